#pragma once

#include <kvrnstep/kvrnstep.h>

/// The functions of Listwright's library that Geany needs.
typedef struct Library {
  __typeof__(&kvrnstep_dialog_init) dialog_init;
  __typeof__(&kvrnstep_show_dialog) show_dialog;
  __typeof__(&kvrnstep_can_show_dialog) can_show_dialog;
  __typeof__(&kvrnstep_lines_init) lines_init;
  __typeof__(&kvrnstep_number_lines) number_lines;
  __typeof__(&kvrnstep_renumber_lines) renumber_lines;
  __typeof__(&kvrnstep_unnumber_lines) unnumber_lines;
  __typeof__(&kvrnstep_continue_lines) continue_lines;
  __typeof__(&kvrnstep_free) free;
} Library;

/// The library, which the first call loads until Geany ends. Null, and the user is told why, if
/// that fails.
const Library* loadLibrary(void);
