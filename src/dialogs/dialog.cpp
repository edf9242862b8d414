#include "dialogs/dialog.h"

#include <optional>

#include "text/numbers.h"

namespace kvrnstep::dialogs {

std::u16string Dialog::readKey(std::u16string_view key, std::u16string_view fallback) const {
  return modSecns::ReadIniKey(host_.SEC_APP_NAME, key, fallback, host_.s_IniPathAndName);
}

void Dialog::centre() {
  const forms::Size screen = toolkit_.screenSize();
  setTop((screen.height - place().height) / 2);
  setLeft((screen.width - place().width) / 2);
}

void Dialog::restorePlace() {
  const forms::Size screen = toolkit_.screenSize();
  restore(u"_LT", &Window::setLeft, (screen.width - place().width) / 2);
  restore(u"_TT", &Window::setTop, (screen.height - place().height) / 2);
  if (!design().resizable) return;
  restore(u"_HT", &Window::setHeight, place().height / 2);
  restore(u"_WT", &Window::setWidth, place().width / 2);
}

void Dialog::saveKeys(modSecns::IniKeys keys) const {
  const auto add = [&](const char16_t* edge, double twips) {
    keys.emplace_back(placeKeys_ + edge, text::decimal(static_cast<float>(twips)));
  };
  if (!minimized()) {
    add(u"_LT", place().left);
    add(u"_TT", place().top);
  }
  if (!minimized() && design().resizable) {
    add(u"_HT", place().height);
    add(u"_WT", place().width);
  }
  modSecns::WriteIniKeys(host_.SEC_APP_NAME, keys, host_.s_IniPathAndName);
}

void Dialog::restore(std::u16string_view edge, void (Window::*set)(double), double fallback) {
  const auto number = text::wholeTextNumber(
      readKey(placeKeys_ + std::u16string(edge), text::decimal(static_cast<float>(fallback))));
  const auto twips = number ? text::roundToInt32(*number) : std::nullopt;
  if (twips) (this->*set)(*twips);
}

}  // namespace kvrnstep::dialogs
