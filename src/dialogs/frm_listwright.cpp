#include "dialogs/frm_listwright.h"

#include <utility>

#include "forms/guard.h"
#include "generator/generator.h"

namespace kvrnstep::dialogs {

using forms::Control;

namespace {

// Buttons and entries of menus, by their index.
enum Action : int { Insert = 0, Cancel = 1, Copy = 2, SaveAs = 3, Print = 4, Open = 5 };
enum FileEntry : int { OpenFile = 0, SaveFile = 1, PrintFile = 3, Close = 5 };
enum EditEntry : int { Prefixes = 0, Suffixes = 1, Beginnings = 3, Endings = 4 };
/// The labels that do what an entry of the Edit menu does.
constexpr std::array<std::pair<int, EditEntry>, 4> kLinks{
    {{0, Prefixes}, {1, Suffixes}, {5, Beginnings}, {4, Endings}}};

}  // namespace

frmListwright::frmListwright(forms::Toolkit& toolkit, const plugin::HostContext& host)
    : Dialog(frmListwrightDesign, toolkit, host, u"Listwright"),
      fields_(
          *this, [this](bool valid) { SetActionsEnabled(valid); }, [this] { RefreshPreview(); }),
      stepFiles_(*this, [this](const std::u16string& path) { OpenaStepFile(path); }),
      panels_(*this, [this] { RefreshPreview(); }),
      affixFiles_{AffixFile(host, kAffixKinds[0], cboPreSuf(0)),
                  AffixFile(host, kAffixKinds[1], cboPreSuf(1))},
      actions_{&control<Control>("cmdCIC", Insert),     &control<Control>("cmdCIC", Copy),
               &control<Control>("mnuActions", Insert), &control<Control>("mnuActions", Copy),
               &control<Control>("mnuFiles", SaveFile), &control<Control>("mnuFiles", PrintFile)} {
  onLoad = [this] { Form_Load(); };
  onQueryUnload = [this] { Form_QueryUnload(); };
  onClick("cmdCIC", [this](int index) { cmdCIC_Click(index); });
  onClick("mnuActions", [this](int index) { mnuActions_Click(index); });
  onClick("mnuFiles", [this](int index) { mnuFiles_Click(index); });
  onClick("mnuEdits", [this](int index) { mnuEdits_Click(index); });
  onClick("mnuOptions", [this](int index) { mnuOptions_Click(index); });
  for (const auto& [label, entry] : kLinks) {
    control<Control>("lblD", label).onMouseUp = [this](int index, forms::MouseButton /*button*/) {
      lblD_MouseUp(index);
    };
  }
}

void frmListwright::mnuFiles_Click(int index) {
  if (index == OpenFile) OpenaStepFile(u"");
  if (index == SaveFile) SaveStepFileAs();
  if (index == PrintFile) cmdCIC_Click(Print);
  if (index == Close) unload();
}

void frmListwright::mnuEdits_Click(int index) {
  if (index == Prefixes || index == Suffixes) editAffixes(index);
  if (index == Beginnings) editStoredTexts(0, control<forms::TextBox>("txtBegin"));
  if (index == Endings) editStoredTexts(1, control<forms::TextBox>("txtEnd"));
}

void frmListwright::mnuOptions_Click(int index) {
  enum Entry { SetDefaults = 0, ClearDefaults = 1, ReopenDefaults = 2, Files = 4, Preview = 5 };
  if (index == Files) return panels_.toggleFiles();
  if (index == Preview) return panels_.togglePreview();
  if (index == SetDefaults) return writeOpenDefaults(openDefaultsPlace(), fields_.openDefaults());
  if (index == ReopenDefaults) ApplyOpenDefaults();
  if (index <= ReopenDefaults) switchOpenDefaults(openDefaultsPlace(), index != ClearDefaults);
}

void frmListwright::lblD_MouseUp(int index) {
  for (const auto& [label, entry] : kLinks) {
    if (label == index) mnuEdits_Click(entry);
  }
}

void frmListwright::SetActionsEnabled(bool bolEnable) {
  for (Control* action : actions_) action->setEnabled(bolEnable);
  panels_.enableButtons(bolEnable);
}

void frmListwright::cmdCIC_Click(int index) {
  switch (index) {
    case Insert:
      forms::guarded([this] {
        lwSelectionMade_ = BuildStepList();
        if (insertCopies_ && lwSelectionMade_) toolkit().setClipboard(lwOutputString_);
      });
      return unload();
    case Cancel:
      return unload();
    case Copy:
      forms::guarded([this] { toolkit().setClipboard(takeList()); });
      return unload();
    case SaveAs:
      return SaveStepFileAs();
    case Print:
      PrintStepList(takeList());
      return fields_.numbers().putCountBack();
    case Open:
      if (panels_.anyShown()) OpenaStepFile(u"");
      return;
    default:
      return;
  }
}

bool frmListwright::BuildStepList(bool forPreview) {
  fields_.numbers().takeCount();
  if (!fields_.numbers().countGiven()) {
    toolkit().showMessage({forms::MessageIcon::Information, u"How many?",
                           u"You must enter a maximum count.\n\n1 to 99"});
    return false;
  }
  auto list = generator::generateList(fields_.settings(), host().bytSpcCount);
  if (list) {
    lwOutputString_ = *std::move(list);
    return true;
  }
  if (!forPreview) {
    toolkit().showMessage({forms::MessageIcon::Information, u"How long?",
                           u"The list is too long.\n\n16 MiB at most"});
  }
  return false;
}

std::u16string frmListwright::takeList(bool forPreview) {
  BuildStepList(forPreview);
  return std::exchange(lwOutputString_, {});
}

void frmListwright::RefreshPreview() {
  if (!panels_.anyShown()) return;
  forms::guarded([this] { txtPreview.setText(takeList(true)); });
  fields_.numbers().putCountBack();
}

void frmListwright::PrintStepList(const std::u16string& text) {
  toolkit().setBusy(true);
  forms::guarded([&] { toolkit().print(text); });
  toolkit().setBusy(false);
}

}  // namespace kvrnstep::dialogs
