#pragma once

/* What the module's resources go by; the resource compiler reads this too. */
#define IDM_COMMON_CONTROLS 2
#define IDI_WINDOW 200
