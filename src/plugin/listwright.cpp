#include "plugin/listwright.h"

#include "dialogs/frm_listwright.h"
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
  context.s_EditorFont = arguments.s_EditorFont.empty() ? u"Courier New" : arguments.s_EditorFont;
  context.i_EditorSize = arguments.i_EditorSize;
  context.bytSpcCount = arguments.bytSpcCount;
  context.l_EditorBColor = arguments.l_EditorBColor;
  context.l_EditorFColor = arguments.l_EditorFColor;
  context.SEC_APP_NAME = arguments.SEC_APP_NAME;
  context.SEC_APP_LWDR = arguments.SEC_APP_LWDR;
  context.sPthStepFolder = stepFolder(arguments.sPthStepFolder);
  context.s_IniPathAndName = settingsFile(arguments.s_IniPathAndName);
  context.bolIsSoundAvailable = arguments.bolIsSoundAvailable;
  context.swavAlertQ = arguments.swavAlertQ;
  context.swavFinishQ = arguments.swavFinishQ;
}

/// A call that is open. When it ends, by an exception too, the texts are emptied; numbers and truth
/// values keep what the call brought.
class Call {
 public:
  explicit Call(HostContext& context) : context_(context) { context_.callIsOpen = true; }
  ~Call() {
    context_.callIsOpen = false;
    for (std::u16string* text :
         {&context_.SEC_APP_NAME, &context_.SEC_APP_LWDR, &context_.sPthStepFolder,
          &context_.s_IniPathAndName, &context_.s_EditorFont, &context_.swavAlertQ,
          &context_.swavFinishQ}) {
      text->clear();
    }
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
