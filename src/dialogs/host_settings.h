#pragma once

#include <string>
#include <string_view>

#include "forms/toolkit.h"
#include "plugin/host_context.h"

/// What the dialogs keep in the settings file of the host: texts, and places of windows in twips.
namespace kvrnstep::dialogs {

std::u16string readKey(const plugin::HostContext& host, std::u16string_view key,
                       std::u16string_view fallback);
void writeKey(const plugin::HostContext& host, std::u16string_view key, std::u16string_view value);

/// The place in the middle of the screen of a window that has this size.
forms::Rect centred(const forms::Rect& place, forms::Toolkit& toolkit);

/// Moves the window to where it was when it was last closed, the first time to the middle of the
/// screen. An edge whose key holds no number stays where it is.
/// @param name what the keys begin with, "StepBE" for "StepBE_LT" (left) and "StepBE_TT" (top)
void restorePosition(forms::Window& window, forms::Toolkit& toolkit,
                     const plugin::HostContext& host, std::u16string_view name);
/// … and gives it the height and width that it had then, under "_HT" and "_WT"; half of its size
/// the first time.
void restoreSize(forms::Window& window, const plugin::HostContext& host, std::u16string_view name);
/// Neither keeps anything of a window that is minimized.
void savePosition(const forms::Window& window, const plugin::HostContext& host,
                  std::u16string_view name);
void saveSize(const forms::Window& window, const plugin::HostContext& host,
              std::u16string_view name);

}  // namespace kvrnstep::dialogs
