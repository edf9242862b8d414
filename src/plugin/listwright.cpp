#include "plugin/listwright.h"

#include <tuple>

#include "dialogs/frm_listwright.h"
#include "kvrnstep/fields.hpp"
#include "platform/files.h"
#include "platform/module.h"
#include "plugin/plugin_folder.h"
#include "storage/text_file.h"
#include "text/paths.h"

namespace kvrnstep::plugin {

namespace {

/// The named folder, made if it is missing, or the plug-in folder.
std::u16string stepFolder(const std::u16string& named) {
  std::u16string folder = text::withoutTrailingSeparator(named);
  if (folder.empty()) return GetPluginFolder();
  if (!storage::PathExists(folder)) platform::createFolder(folder);
  return folder;
}

void fill(CallArguments& context, const CallArguments& arguments) {
  context = arguments;
  context.sPthStepFolder = stepFolder(arguments.sPthStepFolder);
  if (context.s_EditorFont.empty()) context.s_EditorFont = u"Courier New";
  if (context.s_IniPathAndName.empty()) {
    context.s_IniPathAndName = text::inFolder(GetPluginFolder(), u"steps.ini");
  }
}

/// A call that is open. When it ends, by an exception too, the texts are emptied.
class Call {
 public:
  explicit Call(HostContext& context) : context_(context) { context_.callIsOpen = true; }
  ~Call() {
    context_.callIsOpen = false;
    std::apply([](auto&... field) { (empty(field), ...); }, callFields(context_));
  }
  Call(const Call&) = delete;
  Call& operator=(const Call&) = delete;

 private:
  static void empty(std::u16string& text) { text.clear(); }
  template <class Number>
  static void empty(Number& /*stays*/) {}

  HostContext& context_;
};

}  // namespace

std::u16string Listwright::PlugNameVersion() {
  return u"kvrn Listwright\t" + platform::moduleVersion();
}

bool Listwright::ShowListwrightDialog(forms::Toolkit* toolkit, std::u16string& theLwOutputString,
                                      const CallArguments& arguments) {
  HostContext& context = hostContext();
  theLwOutputString.clear();
  if (context.callIsOpen) {
    if (toolkit != nullptr) toolkit->bringToFront();
    return false;
  }
  const Call call(context);
  fill(context, arguments);
  if (toolkit == nullptr) return false;
  dialogs::frmListwright dialog(*toolkit, context);
  dialog.LwStepStart(arguments.iBuildStep);
  dialog.LwMenuMode(arguments.BuMenuMode);
  dialog.insertCopies(arguments.insertCopies);
  dialog.showModal(*toolkit);
  theLwOutputString = dialog.LwOutputString();
  return dialog.LwSelectionMade();
}

}  // namespace kvrnstep::plugin
