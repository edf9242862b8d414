#include "plugin/listwright.h"

#include <type_traits>

#include "dialogs/frm_listwright.h"
#include "kvrnstep/fields.hpp"
#include "platform/files.h"
#include "platform/module.h"
#include "plugin/host_context.h"
#include "plugin/plugin_folder.h"
#include "storage/text_file.h"
#include "text/paths.h"

namespace kvrnstep::plugin {

namespace {

std::u16string settingsFile(const std::u16string& named) {
  if (!named.empty()) return named;
  return text::inFolder(GetPluginFolder(), u"steps.ini");
}

/// The named folder, made if it is missing, or the plug-in folder.
std::u16string stepFolder(const std::u16string& named) {
  std::u16string folder = text::withoutTrailingSeparator(named);
  if (folder.empty()) return GetPluginFolder();
  if (!storage::PathExists(folder)) platform::createFolder(folder);
  return folder;
}

void fill(HostContext& context, const ShowArguments& arguments) {
  copyFields(contextFields(context), contextFields(arguments),
             [](auto& field, const auto& given) { field = given; });
  if (context.s_EditorFont.empty()) context.s_EditorFont = u"Courier New";
  context.sPthStepFolder = stepFolder(arguments.sPthStepFolder);
  context.s_IniPathAndName = settingsFile(arguments.s_IniPathAndName);
}

/// A call that is open. When it ends, by an exception too, the texts are emptied; numbers and truth
/// values keep what the call brought.
class Call {
 public:
  explicit Call(HostContext& context) : context_(context) { context_.callIsOpen = true; }
  ~Call() {
    context_.callIsOpen = false;
    const auto empty = [](auto& field) {
      if constexpr (std::is_same_v<decltype(field), std::u16string&>) field.clear();
    };
    std::apply([&](auto&... field) { (empty(field), ...); }, contextFields(context_));
  }
  Call(const Call&) = delete;
  Call& operator=(const Call&) = delete;

 private:
  HostContext& context_;
};

}  // namespace

std::u16string Listwright::PlugNameVersion() {
  return u"kvrn Listwright\t" + platform::moduleVersion();
}

bool Listwright::ShowListwrightDialog(forms::Toolkit* toolkit, std::u16string& theLwOutputString,
                                      const ShowArguments& arguments) {
  HostContext& context = hostContext();
  theLwOutputString.clear();
  if (context.callIsOpen) {
    if (toolkit != nullptr) toolkit->bringToFront();
    return false;
  }
  const Call call(context);
  fill(context, arguments);
  bool selectionMade = false;
  if (toolkit != nullptr) {
    dialogs::frmListwright dialog(*toolkit, context);
    dialog.LwStepStart(arguments.iBuildStep);
    dialog.LwMenuMode(arguments.BuMenuMode);
    dialog.insertCopies(arguments.insertCopies);
    dialog.showModal(*toolkit);
    selectionMade = dialog.LwSelectionMade();
    theLwOutputString = dialog.LwOutputString();
  }
  return selectionMade;
}

}  // namespace kvrnstep::plugin
