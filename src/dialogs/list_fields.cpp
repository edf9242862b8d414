#include "dialogs/list_fields.h"

#include <algorithm>
#include <utility>

namespace kvrnstep::dialogs {

using forms::CheckBox;
using forms::OptionButton;

ListFields::ListFields(Dialog& dialog, std::function<void(bool)> enable,
                       std::function<void()> refresh)
    : dialog_(dialog),
      RefreshPreview(std::move(refresh)),
      numbers_(dialog, std::move(enable), RefreshPreview),
      typed_{&cboPreSuf(0),
             &cboPreSuf(1),
             &dialog.control<forms::TextBox>("txtBStart"),
             &dialog.control<forms::TextBox>("txtBEndAt"),
             &dialog.control<forms::TextBox>("txtLS"),
             &txtBegin,
             &txtEnd} {
  dialog.onClick("optNA", [this](int index) { optNA_Click(index); });
  dialog.onClick("chkLWO", [this](int index) { chkLWO_Click(index); });
  const auto refreshes = [this](int /*index*/) { RefreshPreview(); };
  for (forms::ComboBox* box : cboPreSuf.all()) box->onClick = box->onKeyUp = refreshes;
  txtBegin.onChange = txtEnd.onChange = refreshes;
}

void ListFields::optNA_Click(int index) {
  iListType = static_cast<std::int16_t>(index);
  for (forms::Control* picture : imgBull.all()) picture->setVisible(picture->index() == index);
  for (CheckBox* box : chkLWO.all()) {
    const auto& option = kListOptions.at(static_cast<std::size_t>(box->index()));
    if (option.types != kEveryType) box->setEnabled(appliesTo(option, index));
  }
  RefreshPreview();
}

void ListFields::chkLWO_Click(int index) {
  if (index == generator::Indentation) {
    chkLWO(generator::IndentSpacing).setEnabled(chkLWO(index).value() != 0);
  }
  RefreshPreview();
}

void ListFields::selectType(std::int16_t type) {
  for (OptionButton* button : optNA.all()) {
    if (button->index() == type) button->setValue(true);
  }
}

generator::ListSettings ListFields::settings() const {
  generator::ListSettings settings;
  settings.Selection = iListType;
  std::ranges::transform(chkLWO.all(), settings.Option.begin(), &CheckBox::checked);
  settings.Prefix = cboPreSuf(0).text();
  settings.Suffix = cboPreSuf(1).text();
  numbers_.readBoxes(settings);
  settings.Beginning = txtBegin.text();
  settings.Ending = txtEnd.text();
  return settings;
}

generator::ListSettings ListFields::settingsForFile() const {
  generator::ListSettings settings = this->settings();
  numbers_.readSpinners(settings);
  return settings;
}

void ListFields::show(const generator::ListSettings& settings) {
  selectType(settings.Selection);
  txtBegin.setText(settings.Beginning);
  txtEnd.setText(settings.Ending);
  cboPreSuf(0).setText(settings.Prefix);
  cboPreSuf(1).setText(settings.Suffix);
  numbers_.show(settings);
  for (CheckBox* box : chkLWO.all()) {
    box->setValue(settings.Option.at(static_cast<std::size_t>(box->index())));
  }
}

void ListFields::showEmpty() {
  generator::ListSettings settings;
  settings.Selection = iListType;
  settings.Start = settings.Count = 0;
  show(settings);
}

stepfiles::OpenDefaults ListFields::openDefaults() const {
  stepfiles::OpenDefaults defaults;
  for (const OptionButton* button : optNA.all()) {
    if (button->value()) defaults.Selection = static_cast<std::int16_t>(button->index());
  }
  std::ranges::transform(chkLWO.all(), defaults.Option.begin(), [](const CheckBox* box) {
    return static_cast<std::int16_t>(box->value());
  });
  std::ranges::transform(typed_, defaults.typed.begin(), &forms::TextControl::text);
  return defaults;
}

void ListFields::show(const stepfiles::OpenDefaults& defaults, bool withType) {
  if (withType && defaults.Selection) selectType(*defaults.Selection);
  for (CheckBox* box : chkLWO.all()) {
    const auto option = defaults.Option.at(static_cast<std::size_t>(box->index()));
    if (option) box->setValue(*option);
  }
  for (std::size_t i = 0; i < typed_.size(); ++i) typed_.at(i)->setText(defaults.typed.at(i));
}

}  // namespace kvrnstep::dialogs
