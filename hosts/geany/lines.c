#include "lines.h"

#include <string.h>

#include "document.h"
#include "library.h"

typedef struct Span {
  int first;
  int last;
} Span;

/// What is before an item's text. Of words only those that can be a label.
static const char labelPattern[] =
    "^[ \\t]*(?:[0-9]+|([A-Za-z])\\1*|[ivxlcdm]+|[IVXLCDM]+)[.):](?:[ \\t]+|$)";

static int startOf(ScintillaObject* sci, int line) {
  return line < sci_get_line_count(sci) ? sci_get_position_from_line(sci, line)
                                        : sci_get_length(sci);
}

/// A line without its end. To be freed.
static char* lineText(ScintillaObject* sci, int line) {
  return textBetween(sci, startOf(sci, line), sci_get_line_end_position(sci, line));
}

static gboolean isBlankText(const char* text) {
  return text[strspn(text, " \t")] == '\0';
}

static gboolean isBlank(ScintillaObject* sci, int line) {
  if (line < 0 || line >= sci_get_line_count(sci)) return TRUE;
  char* text = lineText(sci, line);
  const gboolean blank = isBlankText(text);
  g_free(text);
  return blank;
}

static gboolean isItem(const char* text) {
  return g_regex_match_simple(labelPattern, text, 0, 0);
}

static Span paragraphAround(ScintillaObject* sci, int line) {
  Span span = {line, line};
  if (isBlank(sci, line)) return span;
  while (!isBlank(sci, span.first - 1)) --span.first;
  while (!isBlank(sci, span.last + 1)) ++span.last;
  return span;
}

/// Whether lists end before a line: a heading, or text behind a blank line that is neither indented
/// nor an item.
static gboolean endsLists(ScintillaObject* sci, int line) {
  char* text = lineText(sci, line);
  const gboolean heading = g_regex_match_simple("^#+[ \\t]", text, 0, 0);
  const gboolean outside = strchr(" \t", *text) == NULL && !isItem(text) && isBlank(sci, line - 1);
  g_free(text);
  return heading || outside;
}

/// So many lines that the lists at the line are whole.
static Span listsAround(ScintillaObject* sci, int line) {
  Span span = {line, line};
  while (span.first > 0 && !endsLists(sci, span.first)) --span.first;
  while (span.last + 1 < sci_get_line_count(sci) && !endsLists(sci, span.last + 1)) ++span.last;
  return span;
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
static gboolean setLine(ScintillaObject* sci, int line, const char* text) {
  const int start = startOf(sci, line);
  int end = sci_get_line_end_position(sci, line);
  size_t length = strcspn(text, "\r\n");
  while (end > start && length > 0 && sci_get_char_at(sci, end - 1) == text[length - 1]) {
    --end;
    --length;
  }
  if (end == start && length == 0) return FALSE;
  sci_set_target_start(sci, start);
  sci_set_target_end(sci, end);
  scintilla_send_message(sci, SCI_REPLACETARGET, length, (sptr_t)text);
  return TRUE;
}

/// Sets the lines in one step of Undo. The caret stays on its character, a selection becomes one of
/// whole lines.
static void setLines(ScintillaObject* sci, Span span, const char* text) {
  const gboolean selected = sci_has_selection(sci);
  const gboolean behindLast =
      selected && sci_get_selection_end(sci) > sci_get_line_end_position(sci, span.last);
  const int caret = sci_get_current_position(sci);
  const int caretLine = sci_get_line_from_position(sci, caret);
  const int behind = sci_get_line_end_position(sci, caretLine) - caret;
  gboolean changed = FALSE;
  sci_start_undo_action(sci);
  for (int line = span.first; line <= span.last; ++line, text = skipLine(text)) {
    if (setLine(sci, line, text)) changed = TRUE;
  }
  sci_end_undo_action(sci);
  if (!changed) {
    say("nothing to change here");
  } else if (selected) {
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
static char* changedText(const Library* library, LineChange change, const char* text, size_t size) {
  kvrnstep_lines lines;
  char* result = NULL;
  library->lines_init(&lines, sizeof lines);
  lines.keep_start = change == ContinueList;
  const int done = change == NumberLines ? library->number_lines(&lines, text, size, &result, NULL)
                   : change == UnnumberLists
                       ? library->unnumber_lines(&lines, text, size, &result, NULL)
                       : library->renumber_lines(&lines, text, size, &result, NULL);
  if (done == KVRNSTEP_DONE) return result;
  say(done == KVRNSTEP_NO_LABEL && result != NULL ? result : "the lines cannot be changed");
  library->free(result);
  return NULL;
}

/// Changes the lines as a text of their own, or as a part of the whole document: only that shows
/// what is code and where lists begin.
static void changeSpan(ScintillaObject* sci, const Library* library, LineChange change, Span span,
                       gboolean ofWhole) {
  const int from = ofWhole ? 0 : startOf(sci, span.first);
  const int to = ofWhole ? sci_get_length(sci) : startOf(sci, span.last + 1);
  char* text = textBetween(sci, from, to);
  char* result = changedText(library, change, text, (size_t)(to - from));
  if (result != NULL) {
    const char* changed = result;
    for (int line = 0; ofWhole && line < span.first; ++line) changed = skipLine(changed);
    setLines(sci, span, changed);
  }
  library->free(result);
  g_free(text);
}

static int indentationOf(ScintillaObject* sci, int line) {
  return (int)scintilla_send_message(sci, SCI_GETLINEINDENTATION, (uptr_t)line, 0);
}

/// The last line above with a label that is no further in than the depth; -1 without one.
static int labelAbove(ScintillaObject* sci, int line, int depth) {
  gboolean found = FALSE;
  while (!found && --line >= 0) {
    char* text = lineText(sci, line);
    found = isItem(text) && indentationOf(sci, line) <= depth;
    g_free(text);
  }
  return line;
}

/// What stands before the text of an item, with a blank at least. To be freed.
static char* labelOf(const char* item) {
  GRegex* regex = g_regex_new(labelPattern, 0, 0, NULL);
  GMatchInfo* match = NULL;
  g_regex_match(regex, item, 0, &match);
  char* label = g_match_info_fetch(match, 0);
  g_match_info_free(match);
  g_regex_unref(regex);
  if (strchr(" \t", label[strlen(label) - 1]) != NULL) return label;
  char* separated = g_strconcat(label, " ", NULL);
  g_free(label);
  return separated;
}

/// The lines, each that has text or is the only one with that label.
static char* labelled(ScintillaObject* sci, Span span, const char* label) {
  GString* all = g_string_new(NULL);
  for (int line = span.first; line <= span.last; ++line) {
    char* text = lineText(sci, line);
    const gboolean labels = span.first == span.last || !isBlankText(text);
    g_string_append(all, labels ? label : "");
    g_string_append(all, labels ? text + strspn(text, " \t") : text);
    g_string_append_c(all, '\n');
    g_free(text);
  }
  return g_string_free(all, FALSE);
}

/// Sets right what follows the items that are known. Does nothing, and returns false, where that
/// would change the last of them or change nothing.
static gboolean goOn(ScintillaObject* sci, const Library* library, Span span, const char* before,
                     const char* above, const char* lines) {
  char* known = g_strconcat(before, above, "\n", NULL);
  char* text = g_strconcat(known, lines, NULL);
  char* result = changedText(library, ContinueList, text, strlen(text));
  const char* changed = result == NULL ? NULL : *before != '\0' ? skipLine(result) : result;
  const gboolean follows = changed != NULL && g_str_has_prefix(changed, above) &&
                           strchr("\r\n", changed[strlen(above)]) != NULL &&
                           strcmp(skipLine(changed), lines) != 0;
  if (follows) setLines(sci, span, skipLine(changed));
  library->free(result);
  g_free(text);
  g_free(known);
  return follows;
}

/// Lines get the last label above, which the library then sets right, with the item before it where
/// that is what tells an i that is a letter.
static void continueList(ScintillaObject* sci, const Library* library, Span span) {
  const gboolean empty = sci_get_line_end_position(sci, span.first) == startOf(sci, span.first);
  const int line = labelAbove(sci, span.first, empty ? G_MAXINT : indentationOf(sci, span.first));
  gboolean done = FALSE;
  if (line >= 0) {
    const int lineBefore = labelAbove(sci, line, indentationOf(sci, line));
    char* above = lineText(sci, line);
    char* itemBefore = lineBefore < 0 ? g_strdup("") : lineText(sci, lineBefore);
    char* before = lineBefore < 0 ? g_strdup("") : g_strconcat(itemBefore, "\n", NULL);
    char* label = labelOf(above);
    char* lines = labelled(sci, span, label);
    done = goOn(sci, library, span, before, above, lines) ||
           goOn(sci, library, span, "", above, lines);
    g_free(lines);
    g_free(label);
    g_free(before);
    g_free(itemBefore);
    g_free(above);
  }
  if (!done) say("there is no label above");
}

void changeLines(LineChange change) {
  GeanyDocument* document = writableDocument();
  if (document == NULL) return;
  const Library* library = loadLibrary();
  if (library == NULL) return;
  ScintillaObject* sci = document->editor->sci;
  const gboolean selected = sci_has_selection(sci);
  const Span span = selectedLines(sci);
  if (change == ContinueList) {
    continueList(sci, library, span);
  } else if (selected) {
    changeSpan(sci, library, change, span, FALSE);
  } else if (change == NumberLines) {
    changeSpan(sci, library, change, paragraphAround(sci, span.first), FALSE);
  } else {
    changeSpan(sci, library, change, listsAround(sci, span.first), TRUE);
  }
}
