// The plug-in for hosts in C and all languages that can call C: UTF-8 and plain structs on the
// outside, values on the inside, and no exception past this file.

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
#include "platform/files.h"
#include "plugin/c_icon.h"
#include "plugin/front_end.h"
#include "plugin/listwright.h"
#include "stepfiles/step_record.h"
#include "text/codepage.h"

namespace kvrnstep::component {

namespace {

// A field that a later version adds must not come to lie in what was padding at the end of an
// earlier struct, because a host may copy its struct without the padding.
static_assert(std::has_unique_object_representations_v<kvrnstep_dialog>);
static_assert(std::has_unique_object_representations_v<kvrnstep_list>);

/// The sizes of the shortest structs that are taken; a shorter one is a host's mistake.
constexpr std::size_t least(const kvrnstep_dialog& /*dialog*/) {
  return offsetof(kvrnstep_dialog, insert_copies);
}
constexpr std::size_t least(const kvrnstep_list& /*list*/) {
  return offsetof(kvrnstep_list, IndentSpacing);
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

/// A copy that the host frees; plain C memory, for its owner is on the other side.
char* handedOut(const std::string& bytes) {
  auto* copy = static_cast<char*>(std::malloc(bytes.size() + 1));
  if (copy != nullptr) std::memcpy(copy, bytes.c_str(), bytes.size() + 1);
  return copy;
}

/// Hands a text out where the host wants it.
int handOut(const std::u16string& list, char** where, int result) {
  *where = handedOut(text::toUtf8(list));
  return *where == nullptr ? KVRNSTEP_FAILED : result;
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

std::optional<plugin::CallArguments> argumentsOf(const kvrnstep_dialog& dialog) {
  plugin::CallArguments arguments;
  Take take;
  copyFields(callFields(arguments), callFields(dialog), take);
  take(arguments.insertCopies, dialog.insert_copies);
  return take.allFit ? std::optional(arguments) : std::nullopt;
}

std::optional<generator::ListSettings> settingsOf(const kvrnstep_list& list) {
  generator::ListSettings settings;
  Take take{.allFit = fits<std::uint8_t>(list.bytSpcCount)};
  copyFields(listFields(settings), listFields(list), take);
  for (std::size_t i = 0; i < kListOptions.size(); ++i) {
    take(settings.Option.at(i), list.*kListOptions.at(i).field);
  }
  return take.allFit ? std::optional(settings) : std::nullopt;
}

int showDialog(const kvrnstep_dialog* given, char** list) {
  const auto dialog = known(given, kDialogDefaults);
  const auto arguments = dialog ? argumentsOf(*dialog) : std::nullopt;
  if (!arguments) return KVRNSTEP_BAD_ARGUMENT;
  std::string problem;
  forms::Toolkit* frontEnd = plugin::frontEnd(problem);
  if (frontEnd == nullptr) return KVRNSTEP_NO_DISPLAY;
  std::u16string text;
  if (!plugin::Listwright::ShowListwrightDialog(frontEnd, text, *arguments)) {
    return KVRNSTEP_CANCELLED;
  }
  return handOut(text, list, KVRNSTEP_INSERTED);
}

int generate(const kvrnstep_list* given, char** text) {
  const auto list = known(given, kListDefaults);
  const auto settings = list ? settingsOf(*list) : std::nullopt;
  if (!settings) return KVRNSTEP_BAD_ARGUMENT;
  const auto blanks = static_cast<std::uint8_t>(list->bytSpcCount);
  return handOut(generator::generateList(*settings, blanks), text, KVRNSTEP_DONE);
}

int generateFromStepFile(const char* path, std::int32_t blanks, char** text) {
  if (path == nullptr || !fits<std::uint8_t>(blanks)) return KVRNSTEP_BAD_ARGUMENT;
  const auto bytes = platform::readFile(textOf(path), stepfiles::kLargestStepFile);
  if (!bytes) return KVRNSTEP_UNREADABLE;
  if (!stepfiles::isStepRecord(*bytes)) return KVRNSTEP_FOREIGN;
  const auto settings = stepfiles::withinRanges(stepfiles::parseStepRecord(*bytes));
  return handOut(generator::generateList(settings, static_cast<std::uint8_t>(blanks)), text,
                 KVRNSTEP_DONE);
}

int saveStepFile(const char* path, const kvrnstep_list* given) {
  const auto list = known(given, kListDefaults);
  const auto settings = list ? settingsOf(*list) : std::nullopt;
  if (path == nullptr || !settings) return KVRNSTEP_BAD_ARGUMENT;
  return stepfiles::writeStepFile(textOf(path), *settings) ? KVRNSTEP_DONE : KVRNSTEP_UNWRITABLE;
}

int canShowDialog(char** problem) {
  std::string reason;
  if (plugin::frontEnd(reason) != nullptr) return KVRNSTEP_DONE;
  if (problem != nullptr) *problem = handedOut(reason);
  return KVRNSTEP_NO_DISPLAY;
}

char* requestProgramIcon(std::int32_t number) {
  if (!fits<std::int16_t>(number)) return nullptr;
  const auto path = plugin::cIcon::RequestProgramIcon(static_cast<std::int16_t>(number));
  return path.empty() ? nullptr : handedOut(text::toUtf8(path));
}

/// Nothing is thrown into a host.
template <class Result, class Function, class... Arguments>
Result guarded(Result failure, Function function, Arguments... arguments) noexcept {
  try {
    return function(arguments...);
  } catch (const std::exception&) {
    return failure;
  }
}

/// … and what a function returns through a pointer is null where it fails.
template <class Function, class... Arguments>
int guardedWithText(char** text, Function function, Arguments... arguments) noexcept {
  if (text == nullptr) return KVRNSTEP_BAD_ARGUMENT;
  *text = nullptr;
  return guarded<int>(KVRNSTEP_FAILED, function, arguments..., text);
}

}  // namespace

}  // namespace kvrnstep::component

namespace component = kvrnstep::component;

extern "C" {

void kvrnstep_dialog_init(kvrnstep_dialog* dialog, uint32_t size) {
  component::initialise(dialog, size, kvrnstep::kDialogDefaults);
}

void kvrnstep_list_init(kvrnstep_list* list, uint32_t size) {
  component::initialise(list, size, kvrnstep::kListDefaults);
}

char* kvrnstep_plug_name_version(void) {
  return component::guarded<char*>(nullptr, [] {
    return component::handedOut(
        kvrnstep::text::toUtf8(kvrnstep::plugin::Listwright::PlugNameVersion()));
  });
}

int kvrnstep_show_dialog(const kvrnstep_dialog* dialog, char** list) {
  return component::guardedWithText(list, component::showDialog, dialog);
}

int kvrnstep_can_show_dialog(char** problem) {
  if (problem != nullptr) *problem = nullptr;
  return component::guarded<int>(KVRNSTEP_FAILED, component::canShowDialog, problem);
}

int kvrnstep_generate(const kvrnstep_list* list, char** text) {
  return component::guardedWithText(text, component::generate, list);
}

int kvrnstep_generate_from_step_file(const char* path, int32_t bytSpcCount, char** text) {
  return component::guardedWithText(text, component::generateFromStepFile, path, bytSpcCount);
}

int kvrnstep_save_step_file(const char* path, const kvrnstep_list* list) {
  return component::guarded<int>(KVRNSTEP_FAILED, component::saveStepFile, path, list);
}

char* kvrnstep_request_program_icon(int32_t piIndex101to103) {
  return component::guarded<char*>(nullptr, component::requestProgramIcon, piIndex101to103);
}

void kvrnstep_free(char* text) {
  std::free(text);
}

}  // extern "C"
