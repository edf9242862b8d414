#include "document.h"

void say(const char* problem) {
  ui_set_statusbar(TRUE, "Listwright: %s", problem);
}

GeanyDocument* writableDocument(void) {
  GeanyDocument* document = document_get_current();
  if (document == NULL) {
    say("no document is open");
  } else if (document->readonly) {
    say("the document is read-only");
    document = NULL;
  }
  return document;
}

char* textBetween(ScintillaObject* sci, int start, int end) {
  return start < end ? sci_get_contents_range(sci, start, end) : g_strdup("");
}
