// The plug-in for hosts in C and all languages that can call C. UTF-8 and C structs are converted
// here, and no exception passes out.

#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <limits>
#include <optional>
#include <string>
#include <type_traits>

#include "generator/generator.h"
#include "kvrnstep/fields.hpp"
#include "kvrnstep/kvrnstep.h"
#include "lines/lines.h"
#include "plugin/c_icon.h"
#include "plugin/front_end.h"
#include "plugin/listwright.h"
#include "stepfiles/step_record.h"
#include "text/codepage.h"

namespace kvrnstep::component {

namespace {

// No padding at the end: a later version would put a new field there, and an older host may leave
// any value in it.
static_assert(std::has_unique_object_representations_v<kvrnstep_dialog>);
static_assert(std::has_unique_object_representations_v<kvrnstep_list>);
static_assert(std::has_unique_object_representations_v<kvrnstep_lines>);

/// The sizes of the shortest structs that are taken; a shorter one is a host's mistake.
constexpr std::size_t least(const kvrnstep_dialog& /*dialog*/) {
  return offsetof(kvrnstep_dialog, insert_copies);
}
constexpr std::size_t least(const kvrnstep_list& /*list*/) {
  return offsetof(kvrnstep_list, IndentSpacing);
}
constexpr std::size_t least(const kvrnstep_lines& /*lines*/) {
  return offsetof(kvrnstep_lines, line);
}

/// A struct as this version knows it, with the defaults in fields that its host does not know;
/// nothing where the host did not initialise its own.
template <class Struct>
std::optional<Struct> known(const Struct* given, Struct defaults) {
  if (given == nullptr || given->size < least(defaults)) return std::nullopt;
  std::memcpy(static_cast<void*>(&defaults), given,
              std::min<std::size_t>(given->size, sizeof(Struct)));
  return defaults;
}

/// Fills as much of the host's struct as the host knows.
template <class Struct>
void initialise(Struct* given, std::uint32_t size, const Struct& defaults) {
  if (given == nullptr || size < sizeof(given->size)) return;
  std::memset(static_cast<void*>(given), 0, size);
  std::memcpy(static_cast<void*>(given), &defaults, std::min<std::size_t>(size, sizeof(Struct)));
  given->size = size;
}

std::u16string textOf(const char* given) {
  return given == nullptr ? std::u16string() : text::fromUtf8(given);
}

/// A copy that the host frees, in C's memory because the host may have another allocator.
char* copyOf(const std::string& bytes) {
  auto* copy = static_cast<char*>(std::malloc(bytes.size() + 1));
  if (copy != nullptr) std::memcpy(copy, bytes.c_str(), bytes.size() + 1);
  return copy;
}

/// Numbers are taken as they are or not at all.
template <class Narrow>
bool fits(std::int32_t number) {
  using Limits = std::numeric_limits<Narrow>;
  return number >= Limits::min() && number <= Limits::max();
}

/// Takes over what a host passes, and notes when a number does not fit.
struct Take {
  bool allFit = true;
  void operator()(bool& field, std::int32_t given) const { field = given != 0; }
  void operator()(std::u16string& field, const char* given) const { field = textOf(given); }
  template <class Number>
  void operator()(Number& field, std::int32_t given) {
    allFit = allFit && fits<Number>(given);
    field = static_cast<Number>(given);
  }
};

std::optional<plugin::CallArguments> argumentsOf(const kvrnstep_dialog* given) {
  const auto dialog = known(given, kDialogDefaults);
  if (!dialog) return std::nullopt;
  plugin::CallArguments arguments;
  Take take;
  copyFields(callFields(arguments), callFields(*dialog), take);
  take(arguments.insertCopies, dialog->insert_copies);
  return take.allFit ? std::optional(arguments) : std::nullopt;
}

/// A list and the width of its indentation.
struct Described {
  generator::ListSettings settings;
  std::uint8_t blanks = 0;
};

std::optional<Described> described(const kvrnstep_list* given) {
  const auto list = known(given, kListDefaults);
  if (!list) return std::nullopt;
  Described result;
  Take take;
  copyFields(listFields(result.settings), listFields(*list), take);
  take(result.blanks, list->bytSpcCount);
  for (std::size_t i = 0; i < kListOptions.size(); ++i) {
    take(result.settings.Option.at(i), (*list).*kListOptions.at(i).field);
  }
  return take.allFit ? std::optional(result) : std::nullopt;
}

/// The list that a step file describes.
/// @return KVRNSTEP_DONE, or what is wrong with the file
int readStepFile(const char* path, generator::ListSettings& settings) {
  const auto bytes = stepfiles::readStepFile(textOf(path));
  if (!bytes) return KVRNSTEP_UNREADABLE;
  const auto read = stepfiles::parseStepRecord(*bytes);
  if (!read || !isListingType(read->Selection)) return KVRNSTEP_FOREIGN;
  settings = stepfiles::withinRanges(*read);
  return KVRNSTEP_DONE;
}

int generate(const generator::ListSettings& settings, std::size_t blanks, std::u16string& list) {
  auto generated = generator::generateList(settings, blanks);
  if (!generated) return KVRNSTEP_TOO_LONG;
  list = *std::move(generated);
  return KVRNSTEP_DONE;
}

/// Fills in what the labels look like, and the number that they begin with.
int readLabels(const kvrnstep_lines& given, lines::LineOptions& options) {
  if (given.step_file != nullptr) {
    if (!fits<std::uint8_t>(given.bytSpcCount)) return KVRNSTEP_BAD_ARGUMENT;
    options.indentBlanks = static_cast<std::uint8_t>(given.bytSpcCount);
    const int result = readStepFile(given.step_file, options.list.emplace());
    if (result != KVRNSTEP_DONE) return result;
  } else if (given.list != nullptr) {
    const auto list = described(given.list);
    if (!list) return KVRNSTEP_BAD_ARGUMENT;
    options.list = list->settings;
    options.indentBlanks = list->blanks;
  }
  options.start = given.start >= 0 ? given.start : options.list ? options.list->Start : 1;
  return KVRNSTEP_DONE;
}

/// The host's `take` wants no more.
struct NotTaken : std::exception {};

/// @param changed the new text, unless `take` gets it, or why a label cannot be
int changeLines(decltype(lines::number)& change, const kvrnstep_lines* given, std::string_view text,
                std::string& changed) {
  const auto settings = known(given, kLinesDefaults);
  if (!settings || settings->start < -1 || settings->step == 0 ||
      settings->line < (&change == lines::continueList ? 1 : 0) ||
      !fits<std::uint8_t>(settings->pad) || (text.data() == nullptr && !text.empty())) {
    return KVRNSTEP_BAD_ARGUMENT;
  }
  lines::LineOptions options{.step = settings->step,
                             .digits = static_cast<std::size_t>(settings->pad),
                             .keepStart = settings->keep_start != 0,
                             .line = static_cast<std::size_t>(settings->line)};
  const int result = readLabels(*settings, options);
  if (result != KVRNSTEP_DONE) return result;
  try {
    change(text, options, [&](std::string_view piece) {
      if (settings->take == nullptr) {
        changed += piece;
      } else if (settings->take(settings->context, piece.data(), piece.size()) != 0) {
        throw NotTaken();
      }
    });
  } catch (const lines::NoLabel& problem) {
    changed = problem.what();
    return KVRNSTEP_NO_LABEL;
  }
  return KVRNSTEP_DONE;
}

/// Nothing is thrown into a host.
template <class Result, class Function>
Result guarded(Result failure, Function function) noexcept {
  try {
    return function();
  } catch (const std::exception&) {
    return failure;
  }
}

/// Calls a function that sets a list, and hands the list out if the result is positive.
template <class Function>
int guardedList(char** handedOut, Function function) noexcept {
  if (handedOut == nullptr) return KVRNSTEP_BAD_ARGUMENT;
  *handedOut = nullptr;
  return guarded<int>(KVRNSTEP_FAILED, [&] {
    std::u16string list;
    const int result = function(list);
    if (result > 0) *handedOut = copyOf(text::toUtf8(list));
    return result > 0 && *handedOut == nullptr ? KVRNSTEP_FAILED : result;
  });
}

/// Changes lines and hands the new text out, unless the host takes it piece by piece.
int guardedLines(decltype(lines::number)& change, const kvrnstep_lines* given,
                 std::string_view text, char** handedOut, size_t* size) noexcept {
  if (handedOut == nullptr) return KVRNSTEP_BAD_ARGUMENT;
  *handedOut = nullptr;
  return guarded<int>(KVRNSTEP_FAILED, [&] {
    std::string changed;
    const int result = changeLines(change, given, text, changed);
    if (size != nullptr) *size = changed.size();
    const bool hasText = result == KVRNSTEP_DONE ? given->take == nullptr : !changed.empty();
    if (hasText) *handedOut = copyOf(changed);
    return hasText && *handedOut == nullptr ? KVRNSTEP_FAILED : result;
  });
}

}  // namespace

}  // namespace kvrnstep::component

using namespace kvrnstep;             // NOLINT(google-build-using-namespace)
using namespace kvrnstep::component;  // NOLINT(google-build-using-namespace)

extern "C" {

void kvrnstep_dialog_init(kvrnstep_dialog* dialog, uint32_t size) {
  initialise(dialog, size, kDialogDefaults);
}

void kvrnstep_list_init(kvrnstep_list* list, uint32_t size) {
  initialise(list, size, kListDefaults);
}

void kvrnstep_lines_init(kvrnstep_lines* lines, uint32_t size) {
  initialise(lines, size, kLinesDefaults);
}

char* kvrnstep_plug_name_version(void) {
  return guarded<char*>(nullptr,
                        [] { return copyOf(text::toUtf8(plugin::Listwright::PlugNameVersion())); });
}

int kvrnstep_show_dialog(const kvrnstep_dialog* dialog, char** list) {
  return guardedList(list, [&](std::u16string& text) {
    const auto arguments = argumentsOf(dialog);
    if (!arguments) return KVRNSTEP_BAD_ARGUMENT;
    std::string problem;
    forms::Toolkit* frontEnd = plugin::frontEnd(problem);
    if (frontEnd == nullptr) return KVRNSTEP_NO_DISPLAY;
    return plugin::Listwright::ShowListwrightDialog(frontEnd, text, *arguments)
               ? KVRNSTEP_INSERTED
               : KVRNSTEP_CANCELLED;
  });
}

int kvrnstep_can_show_dialog(char** problem) {
  if (problem != nullptr) *problem = nullptr;
  return guarded<int>(KVRNSTEP_FAILED, [&] {
    std::string reason;
    if (plugin::frontEnd(reason) != nullptr) return KVRNSTEP_DONE;
    if (problem != nullptr) *problem = copyOf(reason);
    return KVRNSTEP_NO_DISPLAY;
  });
}

int kvrnstep_generate(const kvrnstep_list* list, char** text) {
  return guardedList(text, [&](std::u16string& generated) -> int {
    const auto given = described(list);
    if (!given) return KVRNSTEP_BAD_ARGUMENT;
    return generate(given->settings, given->blanks, generated);
  });
}

int kvrnstep_generate_from_step_file(const char* path, int32_t bytSpcCount, char** text) {
  return guardedList(text, [&](std::u16string& generated) -> int {
    if (path == nullptr || !fits<std::uint8_t>(bytSpcCount)) return KVRNSTEP_BAD_ARGUMENT;
    generator::ListSettings settings;
    const int result = readStepFile(path, settings);
    if (result != KVRNSTEP_DONE) return result;
    return generate(settings, static_cast<std::uint8_t>(bytSpcCount), generated);
  });
}

int kvrnstep_save_step_file(const char* path, const kvrnstep_list* list) {
  return guarded<int>(KVRNSTEP_FAILED, [&] {
    const auto given = described(list);
    if (path == nullptr || !given) return KVRNSTEP_BAD_ARGUMENT;
    return stepfiles::writeStepFile(textOf(path), given->settings) ? KVRNSTEP_DONE
                                                                   : KVRNSTEP_UNWRITABLE;
  });
}

int kvrnstep_number_lines(const kvrnstep_lines* lines, const char* text, size_t size, char** result,
                          size_t* result_size) {
  return guardedLines(kvrnstep::lines::number, lines, {text, size}, result, result_size);
}

int kvrnstep_renumber_lines(const kvrnstep_lines* lines, const char* text, size_t size,
                            char** result, size_t* result_size) {
  return guardedLines(kvrnstep::lines::renumber, lines, {text, size}, result, result_size);
}

int kvrnstep_unnumber_lines(const kvrnstep_lines* lines, const char* text, size_t size,
                            char** result, size_t* result_size) {
  return guardedLines(kvrnstep::lines::unnumber, lines, {text, size}, result, result_size);
}

int kvrnstep_continue_lines(const kvrnstep_lines* lines, const char* text, size_t size,
                            char** result, size_t* result_size) {
  return guardedLines(kvrnstep::lines::continueList, lines, {text, size}, result, result_size);
}

char* kvrnstep_request_program_icon(int32_t piIndex101to103) {
  return guarded<char*>(nullptr, [&]() -> char* {
    if (!fits<std::int16_t>(piIndex101to103)) return nullptr;
    const auto path = plugin::cIcon::RequestProgramIcon(static_cast<std::int16_t>(piIndex101to103));
    return path.empty() ? nullptr : copyOf(text::toUtf8(path));
  });
}

void kvrnstep_free(char* text) {
  std::free(text);
}

}  // extern "C"
