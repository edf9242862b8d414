#include "dialogs/frm_listwright.h"
#include "text/numbers.h"
#include "text/text.h"

namespace kvrnstep::dialogs {

namespace {

/// Sets a spinner to the number that its box holds; a number that is out of all bounds is ignored.
void follow(forms::Spinner& spinner, const forms::TextBox& box) {
  if (const auto value = text::roundToInt32(text::leadingNumber(box.text()))) {
    spinner.setValue(*value);
  }
}

}  // namespace

bool frmListwright::startAndEndValid() const {
  return text::leadingNumber(txtBEndAt.text()) > 0 && text::leadingNumber(txtBStart.text()) > 0;
}

bool frmListwright::lineSpacingValid() const {
  return text::leadingNumber(txtLS.text()) >= 0;
}

void frmListwright::txtBEndAt_Change() {
  const bool valid = startAndEndValid();
  SetActionsEnabled(valid);
  if (!valid) return;
  follow(updBEndAt, txtBEndAt);
  if (updBEndAt.value() < updBStart.value()) updBStart.setValue(updBEndAt.value());
}

void frmListwright::txtBStart_Change() {
  const bool valid = startAndEndValid();
  SetActionsEnabled(valid);
  if (!valid) return;
  follow(updBStart, txtBStart);
  if (updBStart.value() > updBEndAt.value()) updBEndAt.setValue(updBStart.value());
}

void frmListwright::txtLS_Change() {
  const bool valid = lineSpacingValid();
  SetActionsEnabled(valid);
  if (valid) follow(updLS, txtLS);
}

void frmListwright::AskSpinnerValue(forms::Spinner& spinner, std::int32_t lMinValue,
                                    std::int32_t lMaxValue, std::u16string_view sNote) {
  std::u16string prompt = u"Enter a numeric value between.\n\n";
  prompt += text::decimal(lMinValue) + u" to " + text::decimal(lMaxValue) + u"\n\n";
  prompt += sNote;
  const auto answer = toolkit_.ask({u"Preset value", prompt, text::decimal(spinner.value())});
  const auto number = text::wholeTextNumber(answer.value_or(u""));
  if (!number || *number < lMinValue || *number > lMaxValue) return;
  if (const auto value = text::roundToInt32(*number)) spinner.putValue(*value);
}

}  // namespace kvrnstep::dialogs
