#include "lines.h"

#include <string.h>

#include "document.h"
#include "library.h"

typedef struct Span {
  int first;
  int last;
} Span;

static int startOf(ScintillaObject* sci, int line) {
  return line < sci_get_line_count(sci) ? sci_get_position_from_line(sci, line)
                                        : sci_get_length(sci);
}

static Span selectedLines(ScintillaObject* sci) {
  const int start = sci_get_selection_start(sci);
  const int end = sci_get_selection_end(sci);
  Span span = {sci_get_line_from_position(sci, start), sci_get_line_from_position(sci, end)};
  if (span.last > span.first && end == startOf(sci, span.last)) --span.last;
  return span;
}

static const char* skipLine(const char* text) {
  text += strcspn(text, "\r\n");
  return text + (text[0] == '\r' && text[1] == '\n' ? 2 : text[0] != '\0');
}

/// Replaces a line up to where it ends as before, so that markers and the rest stay.
static void setLine(ScintillaObject* sci, int line, const char* text) {
  const int start = startOf(sci, line);
  int end = sci_get_line_end_position(sci, line);
  size_t length = strcspn(text, "\r\n");
  while (end > start && length > 0 && sci_get_char_at(sci, end - 1) == text[length - 1]) {
    --end;
    --length;
  }
  sci_set_target_start(sci, start);
  sci_set_target_end(sci, end);
  scintilla_send_message(sci, SCI_REPLACETARGET, length, (sptr_t)text);
}

/// Sets those lines from the first one on that differ, in one step of Undo. The caret stays on its
/// character, a selection becomes one of whole lines.
static void setLines(ScintillaObject* sci, int line, const char* before, const char* after) {
  const gboolean selected = sci_has_selection(sci);
  const Span span = selectedLines(sci);
  const gboolean behindLast =
      selected && sci_get_selection_end(sci) > sci_get_line_end_position(sci, span.last);
  const int caret = sci_get_current_position(sci);
  const int caretLine = sci_get_line_from_position(sci, caret);
  const int behind = sci_get_line_end_position(sci, caretLine) - caret;
  sci_start_undo_action(sci);
  for (; *after != '\0'; ++line, before = skipLine(before), after = skipLine(after)) {
    const size_t length = strcspn(after, "\r\n");
    if (length != strcspn(before, "\r\n") || strncmp(before, after, length) != 0)
      setLine(sci, line, after);
  }
  sci_end_undo_action(sci);
  if (selected) {
    sci_set_selection_start(sci, startOf(sci, span.first));
    sci_set_selection_end(
        sci, behindLast ? startOf(sci, span.last + 1) : sci_get_line_end_position(sci, span.last));
  } else {
    const int place = sci_get_line_end_position(sci, caretLine) - behind;
    sci_set_current_position(sci, MAX(place, startOf(sci, caretLine)), TRUE);
  }
}

/// The text as the library changes it; null, and the user is told, where it cannot. To be freed by
/// the library.
static char* changedText(const Library* library, LineChange change, int64_t line,
                         const char* text) {
  __typeof__(&kvrnstep_number_lines)
      const functions[] = {library->number_lines, library->renumber_lines, library->unnumber_lines,
                           library->continue_lines};
  kvrnstep_lines lines;
  char* result = NULL;
  library->lines_init(&lines, sizeof lines);
  lines.line = line;
  const int done = functions[change](&lines, text, strlen(text), &result, NULL);
  if (done == KVRNSTEP_DONE) return result;
  say(done == KVRNSTEP_NO_LABEL && result != NULL ? result : "the lines cannot be changed");
  library->free(result);
  return NULL;
}

void changeLines(LineChange change) {
  GeanyDocument* document = writableDocument();
  if (document == NULL) return;
  const Library* library = loadLibrary();
  if (library == NULL) return;
  ScintillaObject* sci = document->editor->sci;
  // Selected lines are a text of their own; a list is continued behind all that is above them.
  const Span selected = selectedLines(sci);
  const gboolean alone = sci_has_selection(sci) && change != ContinueList;
  const gboolean all = !alone && change != ContinueList;
  const int first = alone ? selected.first : 0;
  char* text = textBetween(sci, startOf(sci, first),
                           all ? sci_get_length(sci) : startOf(sci, selected.last + 1));
  char* result = changedText(library, change, alone ? 0 : selected.first + 1, text);
  if (result != NULL && strcmp(result, text) == 0) {
    say("nothing to change here");
  } else if (result != NULL) {
    setLines(sci, first, text, result);
  }
  library->free(result);
  g_free(text);
}
