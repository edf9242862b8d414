/*
 * The plug-in for hosts in any language: plain C functions and structs. Texts are UTF-8 and end
 * with a zero byte; a null pointer is an empty text.
 *
 *     kvrnstep_dialog dialog;
 *     char *list;
 *     kvrnstep_dialog_init(&dialog, sizeof dialog);
 *     dialog.sPthStepFolder = "/home/me/steps";
 *     dialog.SEC_APP_NAME = "MyEditor";
 *     if (kvrnstep_show_dialog(&dialog, &list) == KVRNSTEP_INSERTED) insert_at_caret(list);
 *     kvrnstep_free(list);
 *
 * Show the dialog on the thread that owns your user interface. All other functions can be called on
 * any thread at any time. Nothing here throws, and no pointer that you pass is kept.
 */
#ifndef KVRNSTEP_KVRNSTEP_H
#define KVRNSTEP_KVRNSTEP_H

/* This header is C. NOLINTBEGIN(modernize-*) */
#include <stddef.h>
#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

#if defined(KVRNSTEP_BUILD) && defined(_WIN32)
#define KVRNSTEP_API __declspec(dllexport)
#elif defined(KVRNSTEP_BUILD) && defined(__GNUC__)
#define KVRNSTEP_API __attribute__((visibility("default")))
#else
#define KVRNSTEP_API
#endif

/* What the functions return. Negative results are failures; no text is handed out then, but for
 * KVRNSTEP_NO_LABEL. */
enum {
  KVRNSTEP_CANCELLED = 0,     /* the dialog was closed in another way than by Insert */
  KVRNSTEP_INSERTED = 1,      /* the user inserted a list */
  KVRNSTEP_DONE = 1,          /* of the functions that need no user */
  KVRNSTEP_BAD_ARGUMENT = -1, /* a null pointer, a number that its field cannot hold, a struct that
                                 was not initialised */
  KVRNSTEP_NO_DISPLAY = -2,   /* no front end, or no display that answers */
  KVRNSTEP_UNREADABLE = -3,   /* the file is missing, is no file, or is too large */
  KVRNSTEP_FOREIGN = -4,      /* the file is not a step file */
  KVRNSTEP_UNWRITABLE = -5,   /* the file cannot be written, or would be too large */
  KVRNSTEP_FAILED = -6,       /* out of memory or another resource of the system */
  KVRNSTEP_NO_LABEL = -7,     /* a line cannot have its label; the text is one line that says why */
  KVRNSTEP_TOO_LONG = -8      /* the list would be too long */
};

/* Limits: bytes of a step file, and characters of a list, where one outside of the Basic
 * Multilingual Plane counts twice. */
enum { KVRNSTEP_LARGEST_STEP_FILE = 1 << 20, KVRNSTEP_LONGEST_LIST = 1 << 24 };

/* One use of the dialog. */
typedef struct kvrnstep_dialog {
  uint32_t size;               /* set by kvrnstep_dialog_init */
  int32_t iBuildStep;          /* 0 numbered, 1 alphabetical, 2 Roman, 3 prefix and/or suffix */
  int32_t BuMenuMode;          /* not 0: iBuildStep wins over the user's stored defaults */
  int32_t bolIsSoundAvailable; /* not 0: sounds may be played */
  const char* swavAlertQ;      /* sound file of an alert */
  const char* swavFinishQ;     /* sound file of a finished edit */
  const char* sPthStepFolder;  /* where the plug-in keeps its files; empty: its own folder */
  const char* SEC_APP_NAME;    /* section of the settings file */
  const char* SEC_APP_LWDR;    /* a second section; nothing reads it */
  int32_t l_EditorBColor;      /* preview: 0x00BBGGRR, or 0x80000000 + number of a system colour */
  int32_t l_EditorFColor;
  const char* s_IniPathAndName; /* settings file; empty: steps.ini in the plug-in's folder */
  const char* s_EditorFont;     /* preview: font name; empty: "Courier New" */
  int32_t i_EditorSize;         /* preview: size in points */
  int32_t bytSpcCount;          /* blanks in one indentation, 0 to 255 */
  int32_t insert_copies;        /* not 0: Insert leaves the list on the clipboard, too */
  int32_t reserved;             /* leave it as it is */
} kvrnstep_dialog;

/* A list to be generated without a window. The fields mean what the dialog's boxes mean. Numbers
 * beyond the dialog's ranges are taken as they are, up to 32767. */
typedef struct kvrnstep_list {
  uint32_t size;     /* set by kvrnstep_list_init */
  int32_t Selection; /* as iBuildStep */
  const char* Prefix;
  const char* Suffix;
  const char* Beginning;
  const char* Ending;
  int32_t Start;         /* number of the first step; the dialog has 1 to 99 */
  int32_t Count;         /* number of the last one */
  int32_t LineSpacing;   /* blank lines between steps, 0 to 9 */
  int32_t bytSpcCount;   /* blanks in one indentation, 0 to 255 */
  int32_t IndentSpacing; /* from here on options: 1 is on */
  int32_t UpperCase;
  int32_t Indentation;
  int32_t AddBegEnd;   /* Beginning and Ending are added */
  int32_t RightAlign;  /* labels are as wide as the widest */
  int32_t PreSufSpace; /* a blank after Prefix and Suffix */
  int32_t AppendOrdinal;
  int32_t reserved; /* leave it as it is */
} kvrnstep_list;

/* How lines of a text are numbered. */
typedef struct kvrnstep_lines {
  uint32_t size;             /* set by kvrnstep_lines_init */
  int32_t keep_start;        /* not 0: every list keeps the number that it begins with */
  const kvrnstep_list* list; /* what labels look like; its Count is not read. Null: "1. " and so on
                                where labels are put, all labels where they are looked for */
  const char* step_file;     /* a step file that says so in its place, or null */
  int64_t start;             /* number of the first line, or of the first list, from 0 on; -1: the
                                Start of the list or step file, otherwise 1 */
  int64_t step;              /* from one number to the next, not 0 */
  int32_t pad;               /* numbers are filled up to so many digits with zeros, 0 to 255 */
  int32_t bytSpcCount;       /* blanks in one indentation of a step file, 0 to 255 */
  /* Takes the new text piece by piece, with `context`, and returns 0 to go on. Null: the text is
   * handed out as a whole. It does not throw. */
  int (*take)(void* context, const char* piece, size_t size);
  void* context;
  int64_t line; /* 0: all lines. From 1 on: only its paragraph is numbered, only the lists around it
                   are renumbered or unnumbered; the first line that continues a list */
} kvrnstep_lines;

/* Fill a struct with defaults. `size` is its sizeof in the host. Later versions add fields at the
 * end only, in place of `reserved` first: a newer plug-in takes its defaults for the fields that an
 * older host lacks, an older plug-in ignores those that it does not know. */
KVRNSTEP_API void kvrnstep_dialog_init(kvrnstep_dialog* dialog, uint32_t size);
KVRNSTEP_API void kvrnstep_list_init(kvrnstep_list* list, uint32_t size);
KVRNSTEP_API void kvrnstep_lines_init(kvrnstep_lines* lines, uint32_t size);

/* Name, a tab, version. Null when memory is out. To be freed. */
KVRNSTEP_API char* kvrnstep_plug_name_version(void);

/* Shows the dialog and returns when it has closed: KVRNSTEP_INSERTED, KVRNSTEP_CANCELLED or a
 * failure. `*list` is the list after Insert, its lines ending in CR LF, and null otherwise; to be
 * freed. A call on the thread whose dialog is open brings that one to the front and returns
 * KVRNSTEP_CANCELLED at once. On Windows another thread has a dialog of its own; elsewhere dialogs
 * belong to one thread, and another one gets KVRNSTEP_NO_DISPLAY. */
KVRNSTEP_API int kvrnstep_show_dialog(const kvrnstep_dialog* dialog, char** list);

/* KVRNSTEP_DONE when a dialog can be shown here; otherwise KVRNSTEP_NO_DISPLAY, and `*problem`,
 * which may be null, gets one line that says why; to be freed. */
KVRNSTEP_API int kvrnstep_can_show_dialog(char** problem);

/* The list as text: KVRNSTEP_DONE or a failure. `*text` is null after a failure; to be freed. */
KVRNSTEP_API int kvrnstep_generate(const kvrnstep_list* list, char** text);

/* The list that a step file describes: KVRNSTEP_DONE, KVRNSTEP_UNREADABLE, KVRNSTEP_FOREIGN … */
KVRNSTEP_API int kvrnstep_generate_from_step_file(const char* path, int32_t bytSpcCount,
                                                  char** text);

/* Writes the description of a list as a step file, in place of a file of that name: KVRNSTEP_DONE,
 * KVRNSTEP_UNWRITABLE … */
KVRNSTEP_API int kvrnstep_save_step_file(const char* path, const kvrnstep_list* list);

/* Number the lines of a text that is there, as docs/number-lines.md has it: put a label before
 * every line that has text, set the labels of its lists right, take labels away again. The text is
 * `size` bytes of any kind; all that is no label stays. KVRNSTEP_DONE, KVRNSTEP_NO_LABEL, or as
 * with step files. `*result` is the new text, to be freed, and null where `take` gets it;
 * `*result_size`, which may be null, is the number of its bytes. A zero byte is behind them. */
KVRNSTEP_API int kvrnstep_number_lines(const kvrnstep_lines* lines, const char* text, size_t size,
                                       char** result, size_t* result_size);
KVRNSTEP_API int kvrnstep_renumber_lines(const kvrnstep_lines* lines, const char* text, size_t size,
                                         char** result, size_t* result_size);
KVRNSTEP_API int kvrnstep_unnumber_lines(const kvrnstep_lines* lines, const char* text, size_t size,
                                         char** result, size_t* result_size);

/* Continue a list: put labels before the lines from `line` to the text's end, which go on behind
 * the last label above. The same otherwise; KVRNSTEP_NO_LABEL also where there is no label above.
 */
KVRNSTEP_API int kvrnstep_continue_lines(const kvrnstep_lines* lines, const char* text, size_t size,
                                         char** result, size_t* result_size);

/* Writes icon 101 (32×32 and 16×16), 102 (16×16) or 103 (32×32) as a file into the plug-in's
 * folder; its full path, or null on failure. To be freed. */
KVRNSTEP_API char* kvrnstep_request_program_icon(int32_t piIndex101to103);

/* Frees a text that was returned; null is allowed. */
KVRNSTEP_API void kvrnstep_free(char* text);

#ifdef __cplusplus
}
#endif

/* NOLINTEND(modernize-*) */
#endif
