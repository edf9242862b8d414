#pragma once

#include <optional>
#include <string_view>

#include "forms/toolkit.h"
#include "forms/window.h"
#include "plugin/host_context.h"

/// Where a window stood when it was last closed, kept in the settings file in twips.
namespace kvrnstep::dialogs {

/// A key read as a whole number; nothing where the key holds something else.
std::optional<double> storedTwips(const plugin::HostContext& host, std::u16string_view key,
                                  double fallback);
void storeTwips(const plugin::HostContext& host, std::u16string_view key, double twips);

/// The upper left corner of a window of that size in the middle of the screen.
forms::Rect centred(const forms::Rect& place, forms::Toolkit& toolkit);

/// Puts the window where the keys say, and where they say nothing in the middle of the screen.
void restorePosition(forms::Window& window, forms::Toolkit& toolkit,
                     const plugin::HostContext& host, std::u16string_view leftKey,
                     std::u16string_view topKey);
void savePosition(const forms::Window& window, const plugin::HostContext& host,
                  std::u16string_view leftKey, std::u16string_view topKey);

}  // namespace kvrnstep::dialogs
