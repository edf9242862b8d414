#pragma once

/// What can be done with lines of the current document: those of the selection, or around the caret
/// where there is none.
typedef enum LineChange {
  NumberLines,    ///< the selection or the paragraph
  RenumberLists,  ///< in the selection, or around the caret
  UnnumberLists,  ///< the same
  ContinueList    ///< the selection or the caret's line, behind the last label above
} LineChange;

/// Changes them in one step of Undo. If that cannot be, the status bar says why.
void changeLines(LineChange change);
