// The sub-menu in Geany's Tools menu and the keys of its entries.

#include <gmodule.h>

#include "lines.h"
#include "step_list.h"

typedef struct Command {
  const char* caption;
  const char* keyName;
  const char* keyLabel;
} Command;

// The dialog as the open defaults have it, one entry for each listing type in its order, then the
// changes of lines in theirs.
static const Command commands[] = {
    {"_Step List…", "step_list", "Insert a step list"},
    {"_Numbered…", "numbered_list", "Insert a numbered list"},
    {"_Alphabetical…", "alphabetical_list", "Insert an alphabetical list"},
    {"_Roman Numeral…", "roman_list", "Insert a Roman numeral list"},
    {"_Prefix And/Or Suffix…", "prefix_suffix_list", "Insert a prefix and/or suffix list"},
    {"Nu_mber Lines", "number_lines", "Number lines"},
    {"R_enumber Lists", "renumber_lists", "Renumber lists"},
    {"_Unnumber Lists", "unnumber_lists", "Take labels of lists away"},
    {"_Continue List", "continue_list", "Continue the list above"},
};
enum { FirstLineChange = 5 };

static GtkWidget* menu;

static void run(GeanyPlugin* plugin, int command) {
  if (command < FirstLineChange) {
    insertStepList(plugin->geany_data, command - 1);
  } else {
    changeLines((LineChange)(command - FirstLineChange));
  }
}

static void onActivate(GtkMenuItem* item, gpointer plugin) {
  run(plugin, GPOINTER_TO_INT(g_object_get_data(G_OBJECT(item), "command")));
}

static gboolean onKey(GeanyKeyGroup* group, guint key, gpointer plugin) {
  (void)group;
  run(plugin, (int)key);
  return TRUE;
}

static gboolean start(GeanyPlugin* plugin, gpointer unused) {
  (void)unused;
  menu = gtk_menu_item_new_with_mnemonic("_Listwright");
  GtkWidget* entries = gtk_menu_new();
  gtk_menu_item_set_submenu(GTK_MENU_ITEM(menu), entries);
  GeanyKeyGroup* keys =
      plugin_set_key_group_full(plugin, "listwright", G_N_ELEMENTS(commands), onKey, plugin, NULL);
  for (guint i = 0; i < G_N_ELEMENTS(commands); ++i) {
    const Command* command = &commands[i];
    GtkWidget* item = gtk_menu_item_new_with_mnemonic(command->caption);
    g_object_set_data(G_OBJECT(item), "command", GINT_TO_POINTER((int)i));
    g_signal_connect(item, "activate", G_CALLBACK(onActivate), plugin);
    if (i == FirstLineChange)
      gtk_menu_shell_append(GTK_MENU_SHELL(entries), gtk_separator_menu_item_new());
    gtk_menu_shell_append(GTK_MENU_SHELL(entries), item);
    // No keys are set, because those that Geany leaves free belong to the user.
    keybindings_set_item_full(keys, i, 0, 0, command->keyName, command->keyLabel, item, NULL, NULL,
                              NULL);
  }
  ui_add_document_sensitive(menu);
  gtk_menu_shell_append(GTK_MENU_SHELL(plugin->geany_data->main_widgets->tools_menu), menu);
  gtk_widget_show_all(menu);
  return TRUE;
}

static void stop(GeanyPlugin* plugin, gpointer unused) {
  (void)plugin;
  (void)unused;
  forgetDocuments();
  gtk_widget_destroy(menu);
}

G_MODULE_EXPORT void geany_load_module(GeanyPlugin* plugin) {
  plugin->info->name = "Listwright";
  plugin->info->description = "Builds step lists in a dialog with a live preview.";
  plugin->info->version = LISTWRIGHT_VERSION;
  plugin->info->author = "The Listwright developers";
  plugin->funcs->init = start;
  plugin->funcs->cleanup = stop;
  // The library that the first dialog loads cannot be unloaded, and a dialog may be open when Geany
  // ends.
  plugin_module_make_resident(plugin);
  GEANY_PLUGIN_REGISTER(plugin, 226);
}
