#pragma once

#include <geanyplugin.h>

/// Shows a problem in the status bar.
void say(const char* problem);

/// The current document; null, and the user is told, where it takes no text.
GeanyDocument* writableDocument(void);

/// The text between two positions, which may be the same. To be freed.
char* textBetween(ScintillaObject* sci, int start, int end);
