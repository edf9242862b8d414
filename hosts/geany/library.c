#include "library.h"

#include <dlfcn.h>
#include <glib.h>
#include <stdlib.h>

#include "document.h"

#define LIBRARY_NAME "libkvrnstep.so.2"

static Library library;

/// The folder that this plug-in is in, links resolved. To be freed.
static char* ownFolder(void) {
  Dl_info self;
  if (dladdr(&library, &self) == 0) return NULL;
  char* file = realpath(self.dli_fname, NULL);
  if (file == NULL) return NULL;
  char* folder = g_path_get_dirname(file);
  free(file);
  return folder;
}

/// Where the library may be, seen from that folder: installed, installed into the folder of an
/// architecture, in a build tree.
static const char* const places[] = {"../listwright", "../../listwright", ".."};

/// The library's path; null, and `*problem`, where there is none. To be freed.
static char* findLibrary(char** problem) {
  char* folder = ownFolder();
  char* found = NULL;
  for (size_t i = 0; folder != NULL && found == NULL && i < G_N_ELEMENTS(places); ++i) {
    char* candidate = g_build_filename(folder, places[i], LIBRARY_NAME, NULL);
    if (g_file_test(candidate, G_FILE_TEST_EXISTS)) {
      found = candidate;
    } else {
      g_free(candidate);
    }
  }
  if (found == NULL) {
    char* usual = g_canonicalize_filename(places[0], folder);
    *problem = g_strdup_printf(LIBRARY_NAME " is missing; it belongs into %s", usual);
    g_free(usual);
  }
  g_free(folder);
  return found;
}

static gboolean resolve(void* module, const char* name, void* function) {
  *(void**)function = dlsym(module, name);
  return *(void**)function != NULL;
}

static const Library* load(char** problem) {
  static void* module;
  if (module != NULL) return &library;

  char* path = findLibrary(problem);
  if (path == NULL) return NULL;
  void* opened = dlopen(path, RTLD_NOW | RTLD_LOCAL);
  g_free(path);
  if (opened == NULL) {
    *problem = g_strdup(dlerror());
    return NULL;
  }
  if (!resolve(opened, "kvrnstep_dialog_init", &library.dialog_init) ||
      !resolve(opened, "kvrnstep_show_dialog", &library.show_dialog) ||
      !resolve(opened, "kvrnstep_can_show_dialog", &library.can_show_dialog) ||
      !resolve(opened, "kvrnstep_lines_init", &library.lines_init) ||
      !resolve(opened, "kvrnstep_number_lines", &library.number_lines) ||
      !resolve(opened, "kvrnstep_renumber_lines", &library.renumber_lines) ||
      !resolve(opened, "kvrnstep_unnumber_lines", &library.unnumber_lines) ||
      !resolve(opened, "kvrnstep_continue_lines", &library.continue_lines) ||
      !resolve(opened, "kvrnstep_free", &library.free)) {
    *problem = g_strdup(dlerror());
    dlclose(opened);
    return NULL;
  }
  module = opened;
  return &library;
}

const Library* loadLibrary(void) {
  char* problem = NULL;
  const Library* loaded = load(&problem);
  if (loaded == NULL) say(problem);
  g_free(problem);
  return loaded;
}
