#pragma once

#include <windows.h>

#include <optional>
#include <string_view>

namespace kvrnstep::windows {

struct Shortcut {
  WORD key = 0;
  bool control = false;
};

/// Of a text such as "Ctrl+O", or of a letter or digit alone; nothing for other texts.
constexpr std::optional<Shortcut> shortcutOf(std::string_view keys) {
  constexpr std::string_view kControl = "Ctrl+";
  const bool control = keys.starts_with(kControl);
  if (control) keys.remove_prefix(kControl.size());
  const bool named = keys.size() == 1 &&
                     ((keys[0] >= 'A' && keys[0] <= 'Z') || (keys[0] >= '0' && keys[0] <= '9'));
  if (!named) return std::nullopt;
  return Shortcut{static_cast<WORD>(keys[0]), control};
}

}  // namespace kvrnstep::windows
