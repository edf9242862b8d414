#pragma once

#include <geanyplugin.h>
#include <stdint.h>

/// One way to open the dialog.
typedef struct ListKind {
  int32_t iBuildStep;
  int32_t BuMenuMode;
} ListKind;

/// Shows the dialog and puts the list that the user inserts in place of the current document's
/// selection, or at its caret. Geany's windows take no input until it returns. If the dialog cannot
/// be shown, the status bar says why.
void insertStepList(const GeanyData* data, ListKind kind);

/// To be called before Geany takes its data down: a dialog that is open then inserts nothing more.
void forgetDocuments(void);
