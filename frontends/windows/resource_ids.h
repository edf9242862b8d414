#pragma once

/* What the module's resources go by; the resource compiler reads this too. */
#define IDM_COMMON_CONTROLS 2
#define IDI_WINDOW 200
#define IDI_NUMBERED 201
#define IDI_ALPHABETICAL 202
#define IDI_ROMAN 203
#define IDI_PREFIX_SUFFIX 204
#define IDI_APPLY_ACTIVE 205
#define IDI_APPLY_INACTIVE 206
#define IDI_ARROW_UP 207
#define IDI_ARROW_DOWN 208
