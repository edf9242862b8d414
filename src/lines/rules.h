#pragma once

#include <cstdint>
#include <optional>

#include "lines/line_label.h"
#include "lines/lines.h"

namespace kvrnstep::lines {

/// Whether the labels of a list begin in one column or end in one. One label does not tell.
enum class Alignment : std::uint8_t { Unknown, Left, Right };

/// What the options mean for where lists begin and end.
struct Rules {
  explicit Rules(const LineOptions& given) : options(given) {
    if (!options.list) return;
    label.emplace(*options.list, options.digits);
    const bool inFront = label->beginsWithLabel();
    const auto type = options.list->Selection;
    needsSibling = inFront && type != Numbered && type != PrefixSuffix;
    alignment = label->rightAligned() && inFront ? Alignment::Right : Alignment::Left;
    alignsBehindPrefix = label->rightAligned() && !inFront;
  }

  const LineOptions& options;
  std::optional<LineLabel> label;  ///< nothing: labels of all kinds
  bool needsSibling = true;        ///< a single item is not a list unless its label is decimal
  Alignment alignment = Alignment::Unknown;  ///< of all lists
  bool alignsBehindPrefix = false;           ///< labels are filled up with blanks there
};

}  // namespace kvrnstep::lines
