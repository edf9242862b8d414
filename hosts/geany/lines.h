#pragma once

/// The changes of lines of the current document: those of the selection, or those around the caret
/// if nothing is selected.
typedef enum LineChange {
  NumberLines,    ///< the selection or the paragraph
  RenumberLists,  ///< in the selection, or around the caret
  UnnumberLists,  ///< the same
  ContinueList    ///< the selection or the caret's line, behind the last label above
} LineChange;

/// Changes them in one step of Undo. If they cannot be changed, the status bar says why.
void changeLines(LineChange change);
