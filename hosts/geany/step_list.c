#include "step_list.h"

#include <string.h>

#include "document.h"
#include "library.h"

// Geany's events run while the dialog is open: a screen reader can ask for another dialog in spite
// of the grab, and Geany can be told to end.
static const Library* dialogOpenIn = NULL;
static gboolean documentsAreGone = FALSE;

/// Listwright's folder below one of the user's, the same for every editor; null, and the user is
/// told, where it cannot be made. To be freed.
static char* provideFolder(const char* base) {
  char* folder = g_build_filename(base, "listwright", NULL);
  const int failed = utils_mkdir(folder, TRUE);
  if (failed == 0) return folder;
  ui_set_statusbar(TRUE, "Listwright: cannot make the folder %s: %s", folder, g_strerror(failed));
  g_free(folder);
  return NULL;
}

/// The font that the editor draws with, because "Monospace" only names a choice. To be freed.
static PangoFontDescription* editorFont(const GeanyData* data, GeanyDocument* document) {
  PangoFontDescription* wanted =
      pango_font_description_from_string(data->interface_prefs->editor_font);
  PangoContext* context = gtk_widget_get_pango_context(GTK_WIDGET(document->editor->sci));
  PangoFont* font = pango_context_load_font(context, wanted);
  if (font == NULL) return wanted;
  PangoFontDescription* found = pango_font_describe(font);
  pango_font_description_set_size(found, pango_font_description_get_size(wanted));
  pango_font_description_free(wanted);
  g_object_unref(font);
  return found;
}

static int32_t defaultColor(GeanyDocument* document, unsigned int message) {
  return (int32_t)scintilla_send_message(document->editor->sci, message, STYLE_DEFAULT, 0);
}

/// The blanks of the selection's first line. To be freed.
static char* depthOf(ScintillaObject* sci) {
  const int start = sci_get_selection_start(sci);
  const int line = sci_get_line_from_position(sci, start);
  char* text = textBetween(sci, sci_get_position_from_line(sci, line), start);
  text[strspn(text, " \t")] = '\0';
  return text;
}

/// The list with the line ends of the document. All its lines are indented as the first line of the
/// selection. To be freed.
static char* fitted(GeanyDocument* document, const char* list) {
  ScintillaObject* sci = document->editor->sci;
  const int end = sci_get_selection_end(sci);
  const gboolean textFollows =
      end < sci_get_line_end_position(sci, sci_get_line_from_position(sci, end));
  const char* lineEnd = editor_get_eol_char(document->editor);
  char* depth = depthOf(sci);
  GString* text = g_string_new(NULL);
  for (const char* next = list; *next != '\0'; ++next) {
    if (*next == '\r' && next[1] == '\n') ++next;
    if (*next == '\r' || *next == '\n') {
      g_string_append(text, lineEnd);
      if (next[1] == '\0' ? textFollows : strchr("\r\n", next[1]) == NULL)
        g_string_append(text, depth);
    } else {
      g_string_append_c(text, *next);
    }
  }
  g_free(depth);
  return g_string_free(text, FALSE);
}

/// The document comes to the front first, because Geany may have opened another one meanwhile.
static void replaceSelection(const GeanyData* data, GeanyDocument* document, const char* list) {
  gtk_notebook_set_current_page(GTK_NOTEBOOK(data->main_widgets->notebook),
                                document_get_notebook_page(document));
  char* text = fitted(document, list);
  sci_replace_sel(document->editor->sci, text);
  g_free(text);
}

/// A call while the dialog is open brings it to the front and does nothing else.
static void bringToFront(const Library* library) {
  kvrnstep_dialog dialog;
  char* none = NULL;
  library->dialog_init(&dialog, sizeof dialog);
  library->show_dialog(&dialog, &none);
  library->free(none);
}

/// A user who clicks into Geany may be looking for the dialog, which may be minimized.
static gboolean onClick(GtkWidget* shield, GdkEvent* event, gpointer library) {
  (void)shield;
  (void)event;
  bringToFront(library);
  return TRUE;
}

/// Shows the dialog, if there are folders for its files; result and `*list` as those of
/// kvrnstep_show_dialog.
static int showDialog(const GeanyData* data, GeanyDocument* document, const Library* library,
                      int type, char** list) {
  char* steps = provideFolder(g_get_user_data_dir());
  char* settings = steps == NULL ? NULL : provideFolder(g_get_user_config_dir());
  if (settings == NULL) {
    g_free(steps);
    return KVRNSTEP_CANCELLED;
  }
  char* settingsFile = g_build_filename(settings, "steps.ini", NULL);
  PangoFontDescription* font = editorFont(data, document);
  kvrnstep_dialog dialog;
  library->dialog_init(&dialog, sizeof dialog);
  dialog.iBuildStep = MAX(type, 0);
  dialog.BuMenuMode = type >= 0;
  dialog.sPthStepFolder = steps;
  dialog.SEC_APP_NAME = "Listwright";
  dialog.s_IniPathAndName = settingsFile;
  dialog.l_EditorBColor = defaultColor(document, SCI_STYLEGETBACK);
  dialog.l_EditorFColor = defaultColor(document, SCI_STYLEGETFORE);
  dialog.s_EditorFont = pango_font_description_get_family(font);
  dialog.i_EditorSize = pango_font_description_get_size(font) / PANGO_SCALE;
  dialog.bytSpcCount = CLAMP(editor_get_indent_prefs(document->editor)->width, 0, 255);

  // Geany draws its windows behind the dialog, but an invisible widget gets all keys and clicks.
  GtkWidget* shield = gtk_invisible_new();
  g_signal_connect(shield, "button-press-event", G_CALLBACK(onClick), (gpointer)library);
  gtk_grab_add(shield);
  const int result = library->show_dialog(&dialog, list);
  gtk_grab_remove(shield);
  gtk_widget_destroy(shield);

  pango_font_description_free(font);
  g_free(settingsFile);
  g_free(settings);
  g_free(steps);
  return result;
}

static void sayWhyNoDialog(const Library* library) {
  char* problem = NULL;
  if (library->can_show_dialog(&problem) == KVRNSTEP_NO_DISPLAY && problem != NULL) {
    say(problem);
  } else {
    say("the dialog cannot be shown");
  }
  library->free(problem);
}

void forgetDocuments(void) {
  documentsAreGone = TRUE;
}

void insertStepList(const GeanyData* data, int type) {
  if (dialogOpenIn != NULL) {
    bringToFront(dialogOpenIn);
    return;
  }
  GeanyDocument* document = writableDocument();
  if (document == NULL) return;
  const Library* library = loadLibrary();
  if (library == NULL) return;

  dialogOpenIn = library;
  documentsAreGone = FALSE;
  const guint id = document->id;
  char* list = NULL;
  const int result = showDialog(data, document, library, type, &list);
  dialogOpenIn = NULL;

  if (!documentsAreGone) {
    document = document_find_by_id(id);
    if (result < 0) sayWhyNoDialog(library);
    if (result == KVRNSTEP_INSERTED && document != NULL) replaceSelection(data, document, list);
  }
  library->free(list);
}
