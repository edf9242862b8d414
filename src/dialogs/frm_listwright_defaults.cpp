#include <algorithm>

#include "dialogs/frm_listwright.h"
#include "stepfiles/open_defaults.h"

namespace kvrnstep::dialogs {

stepfiles::OpenDefaultsPlace frmListwright::openDefaultsPlace() const {
  return {host_.SEC_APP_NAME, host_.s_IniPathAndName, host_.sPthStepFolder};
}

std::array<forms::TextControl*, stepfiles::kTypedDefaults.size()> frmListwright::typedBoxes()
    const {
  return {&cboPreSuf(0), &cboPreSuf(1), &txtBStart, &txtBEndAt, &txtLS, &txtBegin, &txtEnd};
}

void frmListwright::ApplyOpenDefaults() {
  const stepfiles::OpenDefaults defaults = stepfiles::readOpenDefaults(openDefaultsPlace());
  if (!lwMenuMode_ && defaults.Selection) selectType(*defaults.Selection);
  for (forms::CheckBox* box : chkLWO.all()) {
    const auto option = defaults.Option.at(static_cast<std::size_t>(box->index()));
    if (option) box->setValue(*option);
  }
  const auto boxes = typedBoxes();
  for (std::size_t i = 0; i < boxes.size(); ++i) boxes.at(i)->setText(defaults.typed.at(i));
}

void frmListwright::setOpenDefaults() {
  stepfiles::OpenDefaults defaults;
  for (const forms::OptionButton* button : optNA.all()) {
    if (button->value()) defaults.Selection = static_cast<std::int16_t>(button->index());
  }
  for (const forms::CheckBox* box : chkLWO.all()) {
    defaults.Option.at(static_cast<std::size_t>(box->index())) =
        static_cast<std::int16_t>(box->value());
  }
  std::ranges::transform(typedBoxes(), defaults.typed.begin(), &forms::TextControl::text);
  stepfiles::writeOpenDefaults(openDefaultsPlace(), defaults);
  stepfiles::switchOpenDefaults(openDefaultsPlace(), true);
}

void frmListwright::mnuOptions_Click(int index) {
  enum Entry { SetDefaults = 0, ClearDefaults = 1, ReopenDefaults = 2 };
  switch (index) {
    case SetDefaults:
      setOpenDefaults();
      break;
    case ClearDefaults:
      stepfiles::switchOpenDefaults(openDefaultsPlace(), false);
      break;
    case ReopenDefaults:
      ApplyOpenDefaults();
      stepfiles::switchOpenDefaults(openDefaultsPlace(), true);
      break;
    case kDisplayStepFiles:
      lstStepf.setIndex(-1);
      toggleDisplay(mnuOptions(index));
      break;
    case kDisplayPreview:
      toggleDisplay(mnuOptions(index));
      break;
    default:
      break;
  }
}

}  // namespace kvrnstep::dialogs
