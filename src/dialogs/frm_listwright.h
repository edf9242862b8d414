#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "forms/toolkit.h"
#include "forms/window.h"
#include "generator/list_settings.h"
#include "plugin/host_context.h"
#include "stepfiles/open_defaults.h"

namespace kvrnstep::dialogs {

/// The dialog in which the user builds a list. One instance serves one call of the host: set
/// LwStepStart and LwMenuMode, showModal(), then read LwSelectionMade and LwOutputString.
class frmListwright : public forms::Window {
 public:
  /// Both arguments must outlive the dialog.
  frmListwright(forms::Toolkit& toolkit, const plugin::HostContext& host);

  /// Listing type to begin with, 0 to 3.
  void LwStepStart(const std::int16_t& theLwStepStart) { lwStepStart_ = theLwStepStart; }
  [[nodiscard]] std::int16_t LwStepStart() const { return lwStepStart_; }
  /// Whether the host's listing type stands against stored defaults.
  void LwMenuMode(const bool& theLwMenuMode) { lwMenuMode_ = theLwMenuMode; }
  /// Whether Insert leaves the list on the clipboard, too.
  void insertCopies(bool copies) { insertCopies_ = copies; }
  [[nodiscard]] bool LwSelectionMade() const { return lwSelectionMade_; }
  [[nodiscard]] const std::u16string& LwOutputString() const { return lwOutputString_; }

  /// Generates the list anew and shows it in the preview, while a panel is shown.
  void RefreshPreview();

 private:
  template <int Count>
  using Boxes = forms::ControlArray<forms::CheckBox, Count>;
  template <int Count>
  using Menus = forms::ControlArray<forms::MenuEntry, Count>;

  void assignHandlers();

  // Load and close
  void Form_Load();
  void Form_QueryUnload();
  void adoptEditorLook();
  void restoreDisplay();
  void saveDisplay();
  void loadAffixes(int index);
  void saveAffixes();
  [[nodiscard]] std::u16string readKey(std::u16string_view key, std::u16string_view fallback) const;
  void writeKey(std::u16string_view key, std::u16string_view value) const;
  [[nodiscard]] std::u16string stepFolderPath(std::u16string_view name) const;

  // Step files
  void OpenaStepFile(const std::u16string& sAltStepFile);
  void SaveStepFileAs();
  void saveUnderStepExtension(const std::u16string& path);
  void FillStepFileList();
  void DeleteStepFile(const std::u16string& path);
  void lstStepf_DblClick();
  void lstStepf_MouseUp(forms::MouseButton button);
  void mnuHid_Click();
  void mnuHidd_Click(int index);
  [[nodiscard]] std::u16string selectedStepFile() const;
  [[nodiscard]] generator::ListSettings settingsForFile() const;
  void show(const generator::ListSettings& settings);

  // Editors
  void mnuEdits_Click(int index);
  void lblD_MouseUp(int index);
  void editAffixes(int index);
  void editStoredTexts(std::uint8_t kind, forms::TextBox& target);

  // Open defaults
  void ApplyOpenDefaults();
  void setOpenDefaults();
  [[nodiscard]] stepfiles::OpenDefaultsPlace openDefaultsPlace() const;
  /// The boxes that open defaults fill, in the order of their table.
  [[nodiscard]] std::array<forms::TextControl*, stepfiles::kTypedDefaults.size()> typedBoxes()
      const;

  // Settings of the list
  /// Nothing where there is no such type.
  void selectType(std::int16_t type);
  void optNA_Click(int index);
  void chkLWO_Click(int index);
  void cboPreSuf_Click() { RefreshPreview(); }
  void cboPreSuf_KeyUp() { RefreshPreview(); }
  void txtBegin_Change() { RefreshPreview(); }
  void txtEnd_Change() { RefreshPreview(); }
  [[nodiscard]] generator::ListSettings readSettings() const;

  // Numeric fields
  void txtBStart_Change();
  void txtBEndAt_Change();
  void txtLS_Change();
  void AskSpinnerValue(forms::Spinner& spinner, std::int32_t lMinValue, std::int32_t lMaxValue,
                       std::u16string_view sNote);
  [[nodiscard]] bool startAndEndValid() const;
  [[nodiscard]] bool lineSpacingValid() const;

  // Preview and actions
  void takeCountFromEndBox();
  void writeCountToEndBox();
  void BuildStepList();
  void cmdCIC_Click(int index);
  void mnuActions_Click(int index) { cmdCIC_Click(index); }
  void insertList();
  void copyList();
  void printList();
  void PrintStepList(const std::u16string& text);
  void SetActionsEnabled(bool bolEnable);

  // Menus and layout
  void mnuFiles_Click(int index);
  void mnuOptions_Click(int index);
  void toggleDisplay(forms::MenuEntry& item);
  void layOut();
  void layOutStepFiles(bool shown);
  void layOutPreview(bool shown);
  void layOutCompact();
  void showPanelButtons(bool shown);
  void centre();

  static constexpr int kPrint = 4;  ///< index of the button that prints
  /// Entries of the Options menu that show a panel, and the panels' left edge in pixels.
  static constexpr int kDisplayStepFiles = 4;
  static constexpr int kDisplayPreview = 5;
  static constexpr double kPanelLeft = 4;

  forms::Toolkit& toolkit_;
  const plugin::HostContext& host_;

  forms::Control& fraStep;
  forms::ControlArray<forms::Control, 6> cmdCIC;
  Boxes<kListOptions.size()> chkLWO;
  forms::TextBox& txtBStart;
  forms::Spinner& updBStart;
  forms::TextBox& txtBEndAt;
  forms::Spinner& updBEndAt;
  forms::TextBox& txtLS;
  forms::Spinner& updLS;
  forms::ControlArray<forms::ComboBox, 2> cboPreSuf;
  forms::TextBox& txtBegin;
  forms::TextBox& txtEnd;
  forms::ControlArray<forms::OptionButton, kListingTypes.size()> optNA;
  forms::ControlArray<forms::Control, kListingTypes.size()> imgBull;
  forms::ControlArray<forms::Control, 7> lblD;
  forms::TextBox& txtPreview;
  forms::ListBox& lstStepf;
  Menus<6> mnuFiles;
  Menus<5> mnuEdits;
  Menus<6> mnuOptions;
  Menus<3> mnuActions;
  forms::MenuEntry& mnuHid;
  Menus<3> mnuHidd;

  std::int16_t lwStepStart_ = 0;
  bool lwMenuMode_ = false;
  bool insertCopies_ = false;
  bool lwSelectionMade_ = false;
  std::u16string lwOutputString_;
  std::int16_t iListType = 0;
  std::int16_t iStepCount = 0;
  bool bolPanelShown = false;
  std::array<bool, 2> affixesWhole_{};  ///< the list file of that index was read to its end
};

/// How the dialog is declared.
const forms::WindowDesign& frmListwrightDesign();

}  // namespace kvrnstep::dialogs
