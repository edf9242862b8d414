#include "dialogs/numeric_fields.h"

#include <utility>

#include "text/numbers.h"
#include "text/text.h"

namespace kvrnstep::dialogs {

using forms::Spinner;
using forms::TextBox;

namespace {

/// Numeric boxes take no other character, control characters included.
bool isDigitOrBackspace(char16_t character) {
  return (character >= u'0' && character <= u'9') || character == u'\b';
}

std::int16_t int16OrZero(std::optional<double> number) {
  return number ? text::roundToInt16(*number).value_or(0) : std::int16_t{0};
}

/// Sets a spinner to the number in its box. A number that is too large for any spinner is ignored.
void follow(Spinner& spinner, const TextBox& box) {
  const auto value = text::roundToInt32(text::leadingNumber(box.text()));
  if (value) spinner.setValue(*value);
}

}  // namespace

NumericFields::NumericFields(Dialog& dialog, std::function<void(bool)> enable,
                             std::function<void()> refresh)
    : dialog_(dialog), SetActionsEnabled(std::move(enable)), RefreshPreview(std::move(refresh)) {
  txtBStart.onChange = [this](int /*index*/) { txtBStart_Change(); };
  txtBEndAt.onChange = [this](int /*index*/) { txtBEndAt_Change(); };
  txtLS.onChange = [this](int /*index*/) { txtLS_Change(); };
  for (TextBox* box : {&txtBStart, &txtBEndAt, &txtLS}) {
    box->onKeyPress = [](int /*index*/, char16_t key) { return isDigitOrBackspace(key); };
    box->onKeyUp = [this, box](int /*index*/) {
      enableActions(box == &txtLS ? lineSpacingValid() : startAndEndValid());
      RefreshPreview();
    };
  }
  for (Spinner* spinner : {&updBStart, &updBEndAt, &updLS}) {
    spinner->onUpClick = spinner->onDownClick = [this](int /*index*/) { RefreshPreview(); };
    spinner->onMouseUp = [this, spinner](int /*index*/, forms::MouseButton button) {
      if (button != forms::MouseButton::Right) return;
      AskSpinnerValue(*spinner);
      RefreshPreview();
    };
  }
}

bool NumericFields::startAndEndValid() const {
  return text::leadingNumber(txtBEndAt.text()) > 0 && text::leadingNumber(txtBStart.text()) > 0;
}

bool NumericFields::lineSpacingValid() const {
  return text::leadingNumber(txtLS.text()) >= 0;
}

bool NumericFields::enableActions(bool valid) {
  SetActionsEnabled(valid);
  return valid;
}

void NumericFields::txtBEndAt_Change() {
  if (!enableActions(startAndEndValid())) return;
  follow(updBEndAt, txtBEndAt);
  if (updBEndAt.value() < updBStart.value()) updBStart.setValue(updBEndAt.value());
}

void NumericFields::txtBStart_Change() {
  if (!enableActions(startAndEndValid())) return;
  follow(updBStart, txtBStart);
  if (updBStart.value() > updBEndAt.value()) updBEndAt.setValue(updBStart.value());
}

void NumericFields::txtLS_Change() {
  if (enableActions(lineSpacingValid())) follow(updLS, txtLS);
}

void NumericFields::AskSpinnerValue(Spinner& spinner) {
  const int least = spinner.row().minimum;
  const int most = spinner.row().maximum;
  const auto answer =
      dialog_.toolkit().ask({u"Preset value",
                             u"Enter a numeric value between.\n\n" + text::decimal(least) +
                                 u" to " + text::decimal(most) + u"\n\n",
                             text::decimal(spinner.value())});
  const auto number = text::wholeTextNumber(answer.value_or(u""));
  if (!number || *number < least || *number > most) return;
  if (const auto value = text::roundToInt32(*number)) spinner.putValue(*value);
}

void NumericFields::takeCount() {
  endBefore_ = txtBEndAt.text();
  caretBefore_ = txtBEndAt.selection();
  const auto typed = text::trimBlanks(endBefore_);
  iStepCount = int16OrZero(text::wholeTextNumber(typed));
  if (!typed.empty()) txtBEndAt.setText(u"");
}

void NumericFields::putCountBack() {
  txtBEndAt.setText(text::decimal(iStepCount));
  if (txtBEndAt.text() == endBefore_) txtBEndAt.setSelection(caretBefore_);
}

void NumericFields::readBoxes(generator::ListSettings& settings) const {
  const bool startGiven = !text::trimBlanks(txtBStart.text()).empty();
  if (startGiven) settings.Start = int16OrZero(text::leadingNumber(txtBStart.text()));
  settings.Count = iStepCount;
  settings.LineSpacing = int16OrZero(text::leadingNumber(txtLS.text()));
}

void NumericFields::readSpinners(generator::ListSettings& settings) const {
  settings.LineSpacing = static_cast<std::int16_t>(updLS.value());
  settings.Start = static_cast<std::int16_t>(updBStart.value());
  settings.Count = static_cast<std::int16_t>(updBEndAt.value());
}

void NumericFields::show(const generator::ListSettings& settings) {
  updLS.putValue(settings.LineSpacing);
  updBStart.putValue(settings.Start);
  updBEndAt.putValue(settings.Count);
}

}  // namespace kvrnstep::dialogs
