// The functions that the library exports, and the way in and out of them: views and receivers on
// the outside, values on the inside, and no exception past this file.

#include <exception>
#include <string>

#include "generator/generator.h"
#include "kvrnstep/listwright.hpp"
#include "platform/files.h"
#include "plugin/front_end.h"
#include "plugin/listwright.h"
#include "stepfiles/step_record.h"

namespace kvrnstep::component {

namespace {

std::u16string copied(const Text& text) {
  return text.data == nullptr ? std::u16string() : std::u16string(text.data, text.length);
}

std::u16string copied(const Text* text) {
  return text == nullptr ? std::u16string() : copied(*text);
}

template <class T>
void assignIfGiven(T& field, const T* given) {
  if (given != nullptr) field = *given;
}

plugin::ShowArguments argumentsOf(const ShowRequest& request) {
  plugin::ShowArguments arguments;
  arguments.iBuildStep = request.iBuildStep;
  arguments.BuMenuMode = request.BuMenuMode != 0;
  arguments.bolIsSoundAvailable = request.bolIsSoundAvailable != 0;
  arguments.swavAlertQ = copied(request.swavAlertQ);
  arguments.swavFinishQ = copied(request.swavFinishQ);
  arguments.sPthStepFolder = copied(request.sPthStepFolder);
  arguments.SEC_APP_NAME = copied(request.SEC_APP_NAME);
  arguments.SEC_APP_LWDR = copied(request.SEC_APP_LWDR);
  assignIfGiven(arguments.l_EditorBColor, request.l_EditorBColor);
  assignIfGiven(arguments.l_EditorFColor, request.l_EditorFColor);
  arguments.s_IniPathAndName = copied(request.s_IniPathAndName);
  arguments.s_EditorFont = copied(request.s_EditorFont);
  assignIfGiven(arguments.i_EditorSize, request.i_EditorSize);
  assignIfGiven(arguments.bytSpcCount, request.bytSpcCount);
  return arguments;
}

generator::ListSettings settingsOf(const ListRequest& request) {
  generator::ListSettings settings;
  settings.Selection = request.Selection;
  for (std::size_t i = 0; i < settings.Option.size(); ++i) {
    settings.Option.at(i) = request.Option[i];
  }
  settings.Prefix = copied(request.Prefix);
  settings.Suffix = copied(request.Suffix);
  settings.Start = request.Start;
  settings.Count = request.Count;
  settings.LineSpacing = request.LineSpacing;
  settings.Beginning = copied(request.Beginning);
  settings.Ending = copied(request.Ending);
  return settings;
}

void plugNameVersion(TextReceiver take, void* receiver) {
  try {
    const std::u16string text = plugin::Listwright::PlugNameVersion();
    take(receiver, text.data(), text.size());
  } catch (const std::exception&) {
    take(receiver, u"", 0);
  }
}

std::int16_t showListwrightDialog(const ShowRequest* request, TextReceiver take, void* receiver) {
  try {
    std::string problem;
    std::u16string text;
    const bool inserted = plugin::Listwright::ShowListwrightDialog(plugin::frontEnd(problem), text,
                                                                   argumentsOf(*request));
    take(receiver, text.data(), text.size());
    return static_cast<std::int16_t>(inserted ? -1 : 0);
  } catch (const std::exception&) {
    take(receiver, u"", 0);
    return 0;
  }
}

void generateList(const ListRequest* request, TextReceiver take, void* receiver) {
  try {
    const std::u16string text = generator::generateList(settingsOf(*request), request->bytSpcCount);
    take(receiver, text.data(), text.size());
  } catch (const std::exception&) {
    take(receiver, u"", 0);
  }
}

std::int32_t generateFromStepFile(Text path, std::uint8_t bytSpcCount, TextReceiver take,
                                  void* receiver) {
  try {
    const auto bytes = platform::readFile(copied(path), stepfiles::kLargestStepFile);
    if (!bytes) return StepFileUnreadable;
    if (!stepfiles::isStepRecord(*bytes)) return StepFileForeign;
    const auto settings = stepfiles::withinRanges(stepfiles::parseStepRecord(*bytes));
    const std::u16string text = generator::generateList(settings, bytSpcCount);
    take(receiver, text.data(), text.size());
    return StepFileDone;
  } catch (const std::exception&) {
    return StepFileUnreadable;
  }
}

std::int32_t saveStepFile(Text path, const ListRequest* request) {
  try {
    const bool written = stepfiles::writeStepFile(copied(path), settingsOf(*request));
    return written ? StepFileDone : StepFileUnwritable;
  } catch (const std::exception&) {
    return StepFileUnwritable;
  }
}

int canShowDialog(ByteReceiver take, void* receiver) {
  std::string problem;
  try {
    if (plugin::frontEnd(problem) != nullptr) return 1;
  } catch (const std::exception& error) {
    problem = error.what();
  }
  take(receiver, problem.data(), problem.size());
  return 0;
}

constexpr EntryTable kTable{
    .version = kEntryVersion,
    .PlugNameVersion = plugNameVersion,
    .ShowListwrightDialog = showListwrightDialog,
    .generateList = generateList,
    .canShowDialog = canShowDialog,
    .generateFromStepFile = generateFromStepFile,
    .saveStepFile = saveStepFile,
};

}  // namespace

}  // namespace kvrnstep::component

extern "C" [[gnu::visibility("default")]] const kvrnstep::EntryTable* kvrnstepEntry(
    std::uint32_t version) {
  return version == kvrnstep::kEntryVersion ? &kvrnstep::component::kTable : nullptr;
}
