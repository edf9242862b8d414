#include "dialogs/host_settings.h"

#include <optional>

#include "storage/settings_store.h"
#include "text/numbers.h"

namespace kvrnstep::dialogs {

using forms::Window;
using plugin::HostContext;

namespace {

std::u16string keyOf(std::u16string_view window, std::u16string_view edge) {
  return std::u16string(window).append(edge);
}

/// Sets an edge to what a key holds, if that is a number.
void restore(Window& window, void (Window::*set)(double), const HostContext& host,
             const std::u16string& key, double fallback) {
  const auto number =
      text::wholeTextNumber(readKey(host, key, text::decimal(static_cast<float>(fallback))));
  const auto twips = number ? text::roundToInt32(*number) : std::nullopt;
  if (twips) (window.*set)(*twips);
}

void save(const Window& window, const HostContext& host, const std::u16string& key, double twips) {
  if (!window.minimized()) writeKey(host, key, text::decimal(static_cast<float>(twips)));
}

}  // namespace

std::u16string readKey(const HostContext& host, std::u16string_view key,
                       std::u16string_view fallback) {
  return modSecns::ReadIniKey(host.SEC_APP_NAME, key, fallback, host.s_IniPathAndName);
}

void writeKey(const HostContext& host, std::u16string_view key, std::u16string_view value) {
  modSecns::WriteIniKey(host.SEC_APP_NAME, key, value, host.s_IniPathAndName);
}

forms::Rect centred(const forms::Rect& place, forms::Toolkit& toolkit) {
  const forms::Size screen = toolkit.screenSize();
  return {(screen.width - place.width) / 2, (screen.height - place.height) / 2, place.width,
          place.height};
}

void restorePosition(Window& window, forms::Toolkit& toolkit, const HostContext& host,
                     std::u16string_view name) {
  const forms::Rect middle = centred(window.place(), toolkit);
  restore(window, &Window::setLeft, host, keyOf(name, u"_LT"), middle.left);
  restore(window, &Window::setTop, host, keyOf(name, u"_TT"), middle.top);
}

void restoreSize(Window& window, const HostContext& host, std::u16string_view name) {
  restore(window, &Window::setHeight, host, keyOf(name, u"_HT"), window.place().height / 2);
  restore(window, &Window::setWidth, host, keyOf(name, u"_WT"), window.place().width / 2);
}

void savePosition(const Window& window, const HostContext& host, std::u16string_view name) {
  save(window, host, keyOf(name, u"_LT"), window.place().left);
  save(window, host, keyOf(name, u"_TT"), window.place().top);
}

void saveSize(const Window& window, const HostContext& host, std::u16string_view name) {
  save(window, host, keyOf(name, u"_HT"), window.place().height);
  save(window, host, keyOf(name, u"_WT"), window.place().width);
}

}  // namespace kvrnstep::dialogs
