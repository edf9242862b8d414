#pragma once

#include <functional>
#include <string>

namespace kvrnstep::forms {

struct ControlRow;

/// How wide a text is drawn.
using WidthOf = std::function<int(const std::u16string& text)>;

/// What a list shows of an entry. If the entry is too wide, its middle is left out. The end that
/// the list wants to keep is shown, unless that leaves less than a quarter of the width for the
/// beginning.
std::u16string shownEntry(const ControlRow& list, const std::u16string& entry, int width,
                          const WidthOf& widthOf);

}  // namespace kvrnstep::forms
