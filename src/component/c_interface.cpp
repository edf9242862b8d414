// The part of the C interface that may show a window.

#include <optional>
#include <string>

#include "component/c_values.h"
#include "component/running_call.h"
#include "kvrnstep/fields.hpp"
#include "kvrnstep/kvrnstep.h"
#include "plugin/c_icon.h"
#include "plugin/front_end.h"
#include "plugin/listwright.h"
#include "text/codepage.h"

namespace kvrnstep::component {

namespace {

std::optional<plugin::CallArguments> argumentsOf(const kvrnstep_dialog* given) {
  const auto dialog = known(given, kDialogDefaults, offsetof(kvrnstep_dialog, insert_copies));
  if (!dialog) return std::nullopt;
  plugin::CallArguments arguments;
  Take take;
  copyFields(callFields(arguments), callFields(*dialog), take);
  take(arguments.insertCopies, dialog->insert_copies);
  return take.allFit ? std::optional(arguments) : std::nullopt;
}

}  // namespace

}  // namespace kvrnstep::component

using namespace kvrnstep;             // NOLINT(google-build-using-namespace)
using namespace kvrnstep::component;  // NOLINT(google-build-using-namespace)

extern "C" {

void kvrnstep_dialog_init(kvrnstep_dialog* dialog, uint32_t size) {
  initialise(dialog, size, kDialogDefaults);
}

char* kvrnstep_plug_name_version(void) {
  return guarded<char*>(nullptr,
                        [] { return copyOf(text::toUtf8(plugin::Listwright::PlugNameVersion())); });
}

int kvrnstep_show_dialog(const kvrnstep_dialog* dialog, char** list) {
  const RunningCall running;
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

char* kvrnstep_request_program_icon(int32_t piIndex101to103) {
  return guarded<char*>(nullptr, [&]() -> char* {
    if (!std::in_range<std::int16_t>(piIndex101to103)) return nullptr;
    const auto path = plugin::cIcon::RequestProgramIcon(static_cast<std::int16_t>(piIndex101to103));
    return path.empty() ? nullptr : copyOf(text::toUtf8(path));
  });
}

}  // extern "C"
