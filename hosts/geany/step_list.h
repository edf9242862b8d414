#pragma once

#include <geanyplugin.h>

/// Shows the dialog and puts the list that the user inserts in place of the current document's
/// selection, or at its caret. Geany's windows take no input until it returns. If the dialog cannot
/// be shown, the status bar says why.
/// @param type the listing type that the dialog opens with; -1: what the open defaults say
void insertStepList(const GeanyData* data, int type);

/// To be called before Geany frees its data. An open dialog then inserts nothing any more.
void forgetDocuments(void);
