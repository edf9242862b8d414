/* A host in C: every function of the C interface, with what it promises when it is used wrongly. */

#include <kvrnstep/kvrnstep.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

static int failures = 0;

static void expect(int held, const char* what, int line) {
  if (held) return;
  printf("line %d: %s\n", line, what);
  ++failures;
}
#define EXPECT(condition) expect(condition, #condition, __LINE__)

static int is(char* text, const char* wanted) {
  const int same = text != NULL && strcmp(text, wanted) == 0;
  if (!same) printf("\"%s\" instead of \"%s\"\n", text != NULL ? text : "(null)", wanted);
  kvrnstep_free(text);
  return same;
}

static void generates_lists(void) {
  kvrnstep_list list;
  char* text = NULL;
  kvrnstep_list_init(&list, sizeof list);
  list.Selection = 1;
  list.Prefix = "é ";
  list.Suffix = ")";
  EXPECT(kvrnstep_generate(&list, &text) == KVRNSTEP_DONE);
  EXPECT(is(text, "é a)\r\né b)\r\né c)"));

  static char prefix[KVRNSTEP_LONGEST_LIST / 30000];
  memset(prefix, 'p', sizeof prefix - 1);
  list.Prefix = prefix;
  list.Count = 30000;
  EXPECT(kvrnstep_generate(&list, &text) == KVRNSTEP_TOO_LONG && text == NULL);
  list.Start = 70000;
  EXPECT(kvrnstep_generate(&list, &text) == KVRNSTEP_BAD_ARGUMENT && text == NULL);
  list.Start = 1;
  list.bytSpcCount = 256;
  EXPECT(kvrnstep_generate(&list, &text) == KVRNSTEP_BAD_ARGUMENT);
  EXPECT(kvrnstep_generate(NULL, &text) == KVRNSTEP_BAD_ARGUMENT);
  EXPECT(kvrnstep_generate(&list, NULL) == KVRNSTEP_BAD_ARGUMENT);
  memset(&list, 0, sizeof list);
  EXPECT(kvrnstep_generate(&list, &text) == KVRNSTEP_BAD_ARGUMENT);
}

static void keeps_step_files(const char* folder, const char* foreign) {
  char path[1000];
  kvrnstep_list list;
  char* text = NULL;
  snprintf(path, sizeof path, "%s/a b.step", folder);
  kvrnstep_list_init(&list, sizeof list);
  list.Count = 2;
  list.Indentation = 1;
  EXPECT(kvrnstep_save_step_file(path, &list) == KVRNSTEP_DONE);
  EXPECT(kvrnstep_generate_from_step_file(path, 1, &text) == KVRNSTEP_DONE);
  EXPECT(is(text, " 1\r\n 2"));
  EXPECT(kvrnstep_generate_from_step_file(path, -1, &text) == KVRNSTEP_BAD_ARGUMENT);
  EXPECT(kvrnstep_generate_from_step_file(NULL, 1, &text) == KVRNSTEP_BAD_ARGUMENT);
  EXPECT(kvrnstep_generate_from_step_file(folder, 1, &text) == KVRNSTEP_UNREADABLE);
  EXPECT(kvrnstep_generate_from_step_file(foreign, 1, &text) == KVRNSTEP_FOREIGN && text == NULL);
  EXPECT(kvrnstep_save_step_file(folder, &list) == KVRNSTEP_UNWRITABLE);
}

static int gather(void* context, const char* piece, size_t size) {
  strncat(context, piece, size);
  return 0;
}

static void numbers_lines(const char* folder) {
  char path[1000], taken[100] = "";
  kvrnstep_list list;
  kvrnstep_lines lines;
  char* text = NULL;
  size_t size = 0;
  kvrnstep_lines_init(&lines, sizeof lines);
  EXPECT(kvrnstep_number_lines(&lines, "a\n\0b", 4, &text, &size) == KVRNSTEP_DONE);
  EXPECT(size == 10 && memcmp(text, "1. a\n2. \0b", 11) == 0);
  kvrnstep_free(text);
  EXPECT(kvrnstep_renumber_lines(&lines, "2) a\r\n2) b", 10, &text, NULL) == KVRNSTEP_DONE);
  EXPECT(is(text, "1) a\r\n2) b"));
  EXPECT(kvrnstep_unnumber_lines(&lines, "2) a", 4, &text, NULL) == KVRNSTEP_DONE);
  EXPECT(is(text, "a"));
  EXPECT(kvrnstep_continue_lines(&lines, "2) a", 4, &text, NULL) == KVRNSTEP_BAD_ARGUMENT);
  lines.line = 2;
  EXPECT(kvrnstep_continue_lines(&lines, "2) a\n", 5, &text, NULL) == KVRNSTEP_DONE);
  EXPECT(is(text, "2) a\n3) "));
  // An older host knows no line.
  lines.size = offsetof(kvrnstep_lines, line);
  EXPECT(kvrnstep_renumber_lines(&lines, "2) a\n\nb", 7, &text, NULL) == KVRNSTEP_DONE);
  EXPECT(is(text, "1) a\n\nb"));
  kvrnstep_lines_init(&lines, sizeof lines);
  kvrnstep_list_init(&list, sizeof list);
  list.Selection = 2;
  list.Start = 3999;
  lines.list = &list;
  EXPECT(kvrnstep_number_lines(&lines, "a\nb", 3, &text, NULL) == KVRNSTEP_NO_LABEL);
  EXPECT(is(text, "line 2: there is no Roman numeral for 4000, they go from 1 to 3999"));
  snprintf(path, sizeof path, "%s/c.step", folder);
  list.Selection = 1;
  list.Start = 2;
  EXPECT(kvrnstep_save_step_file(path, &list) == KVRNSTEP_DONE);
  lines.step_file = path;
  lines.take = gather;
  lines.context = taken;
  EXPECT(kvrnstep_number_lines(&lines, "a\nb", 3, &text, &size) == KVRNSTEP_DONE);
  EXPECT(text == NULL && strcmp(taken, "b. a\nc. b") == 0);
  lines.step_file = folder;
  EXPECT(kvrnstep_number_lines(&lines, "a", 1, &text, &size) == KVRNSTEP_UNREADABLE);
  lines.step = 0;
  EXPECT(kvrnstep_number_lines(&lines, "a", 1, &text, &size) == KVRNSTEP_BAD_ARGUMENT);
  EXPECT(kvrnstep_number_lines(NULL, "a", 1, &text, &size) == KVRNSTEP_BAD_ARGUMENT);
}

/* Structs of hosts that were built against a longer, a shorter and no version of the header. */
static void takes_structs_of_other_versions(void) {
  struct {
    kvrnstep_list known;
    int32_t later;
  } later;
  union {
    kvrnstep_list whole;
    struct {
      uint32_t size;
      int32_t Selection;
      const char* texts[4];
      int32_t Start, Count, LineSpacing, bytSpcCount, IndentSpacing, UpperCase;
    } list;
    struct {
      uint32_t size;
      int32_t iBuildStep, BuMenuMode, bolIsSoundAvailable;
      const char* texts[5];
      int32_t l_EditorBColor, l_EditorFColor;
      const char *s_IniPathAndName, *s_EditorFont;
      int32_t i_EditorSize, bytSpcCount;
    } dialog;
    int32_t words[30];
  } earlier;
  char* text = NULL;
  kvrnstep_list_init(&later.known, sizeof later);
  EXPECT(later.later == 0 && later.known.size == sizeof later);
  EXPECT(kvrnstep_generate(&later.known, &text) == KVRNSTEP_DONE);
  EXPECT(is(text, "1\r\n2\r\n3"));

  /* Behind a shorter one are bytes that are none of the plug-in's: ordinals, an indentation. */
  for (int i = 0; i < 30; ++i) earlier.words[i] = 1;
  kvrnstep_list_init(&earlier.whole, sizeof earlier.list);
  EXPECT(earlier.whole.AppendOrdinal == 1 && earlier.list.Count == 3);
  EXPECT(kvrnstep_generate(&earlier.whole, &text) == KVRNSTEP_DONE);
  EXPECT(is(text, "1\r\n2\r\n3"));
  kvrnstep_list_init(&earlier.whole, sizeof(void*));
  EXPECT(kvrnstep_generate(&earlier.whole, &text) == KVRNSTEP_BAD_ARGUMENT);

  kvrnstep_dialog_init((kvrnstep_dialog*)&earlier, sizeof earlier.dialog);
  EXPECT(earlier.dialog.bytSpcCount == 4);
  EXPECT(earlier.words[sizeof earlier.dialog / sizeof(int32_t)] == 1);
  EXPECT(kvrnstep_show_dialog((kvrnstep_dialog*)&earlier, &text) == KVRNSTEP_NO_DISPLAY);
}

/* The test runs without a display. */
static void says_why_it_shows_nothing(void) {
  kvrnstep_dialog dialog;
  char* text = "untouched";
  kvrnstep_dialog_init(&dialog, sizeof dialog);
  EXPECT(dialog.i_EditorSize == 9 && dialog.bytSpcCount == 4);
  dialog.BuMenuMode = dialog.insert_copies = -1;
  EXPECT(kvrnstep_show_dialog(&dialog, &text) == KVRNSTEP_NO_DISPLAY && text == NULL);
  EXPECT(kvrnstep_can_show_dialog(&text) == KVRNSTEP_NO_DISPLAY);
  EXPECT(text != NULL && strlen(text) > 10 && strchr(text, '\n') == NULL);
  kvrnstep_free(text);
  EXPECT(kvrnstep_can_show_dialog(NULL) == KVRNSTEP_NO_DISPLAY);
  int32_t* numbers[] = {&dialog.iBuildStep, &dialog.i_EditorSize, &dialog.bytSpcCount};
  for (int i = 0; i < 3; ++i) {
    const int32_t before = *numbers[i];
    *numbers[i] = 65536;
    EXPECT(kvrnstep_show_dialog(&dialog, &text) == KVRNSTEP_BAD_ARGUMENT);
    *numbers[i] = before;
  }
  EXPECT(kvrnstep_show_dialog(NULL, &text) == KVRNSTEP_BAD_ARGUMENT);
  EXPECT(kvrnstep_show_dialog(&dialog, NULL) == KVRNSTEP_BAD_ARGUMENT);
}

int main(int count, char** arguments) {
  EXPECT(count == 2);
  EXPECT(is(kvrnstep_plug_name_version(), "kvrn Listwright\t2.0.0"));
  EXPECT(kvrnstep_request_program_icon(104) == NULL);
  EXPECT(kvrnstep_request_program_icon(65536 + 101) == NULL);
  kvrnstep_free(NULL);
  generates_lists();
  keeps_step_files(arguments[1], arguments[0]);
  numbers_lines(arguments[1]);
  takes_structs_of_other_versions();
  says_why_it_shows_nothing();
  return failures == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}
