#include "dialogs/window_position.h"

#include "storage/settings_store.h"
#include "text/numbers.h"

namespace kvrnstep::dialogs {

std::optional<double> storedTwips(const plugin::HostContext& host, std::u16string_view key,
                                  double fallback) {
  const auto number = text::wholeTextNumber(modSecns::ReadIniKey(
      host.SEC_APP_NAME, key, text::decimal(static_cast<float>(fallback)), host.s_IniPathAndName));
  return number ? text::roundToInt32(*number) : std::nullopt;
}

void storeTwips(const plugin::HostContext& host, std::u16string_view key, double twips) {
  modSecns::WriteIniKey(host.SEC_APP_NAME, key, text::decimal(static_cast<float>(twips)),
                        host.s_IniPathAndName);
}

forms::Rect centred(const forms::Rect& place, forms::Toolkit& toolkit) {
  const forms::Size screen = toolkit.screenSize();
  return {(screen.width - place.width) / 2, (screen.height - place.height) / 2, place.width,
          place.height};
}

void restorePosition(forms::Window& window, forms::Toolkit& toolkit,
                     const plugin::HostContext& host, std::u16string_view leftKey,
                     std::u16string_view topKey) {
  const forms::Rect middle = centred(window.place(), toolkit);
  if (const auto left = storedTwips(host, leftKey, middle.left)) window.setLeft(*left);
  if (const auto top = storedTwips(host, topKey, middle.top)) window.setTop(*top);
}

void savePosition(const forms::Window& window, const plugin::HostContext& host,
                  std::u16string_view leftKey, std::u16string_view topKey) {
  if (window.minimized()) return;
  storeTwips(host, leftKey, window.place().left);
  storeTwips(host, topKey, window.place().top);
}

}  // namespace kvrnstep::dialogs
