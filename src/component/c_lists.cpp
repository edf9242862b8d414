// The part of the C interface that needs no window: lists, step files and numbers of lines. The
// command links it without the plug-in.

#include <exception>
#include <optional>
#include <string>
#include <string_view>

#include "component/c_values.h"
#include "generator/generator.h"
#include "kvrnstep/fields.hpp"
#include "kvrnstep/kvrnstep.h"
#include "lines/lines.h"
#include "stepfiles/step_record.h"

namespace kvrnstep::component {

namespace {

/// A list and the width of its indentation.
struct Described {
  generator::ListSettings settings;
  std::uint8_t blanks = 0;
};

std::optional<Described> described(const kvrnstep_list* given) {
  const auto list = known(given, kListDefaults, offsetof(kvrnstep_list, IndentSpacing));
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
    if (!std::in_range<std::uint8_t>(given.bytSpcCount)) return KVRNSTEP_BAD_ARGUMENT;
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

/// The host's `take` wants no more pieces.
struct NotTaken : std::exception {};

/// @param changed the new text, unless `take` gets it; or why a label does not exist
int changeLines(decltype(lines::number)& change, const kvrnstep_lines* given, std::string_view text,
                std::string& changed) {
  const auto settings = known(given, kLinesDefaults, offsetof(kvrnstep_lines, line));
  if (!settings || settings->start < -1 || settings->step == 0 ||
      settings->line < (&change == lines::continueList ? 1 : 0) ||
      !std::in_range<std::uint8_t>(settings->pad) || (text.data() == nullptr && !text.empty())) {
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

void kvrnstep_list_init(kvrnstep_list* list, uint32_t size) {
  initialise(list, size, kListDefaults);
}

void kvrnstep_lines_init(kvrnstep_lines* lines, uint32_t size) {
  initialise(lines, size, kLinesDefaults);
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
    if (path == nullptr || !std::in_range<std::uint8_t>(bytSpcCount)) return KVRNSTEP_BAD_ARGUMENT;
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

void kvrnstep_free(char* text) {
  std::free(text);
}

}  // extern "C"
