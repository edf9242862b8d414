#include "forms/property.h"

#include <algorithm>
#include <array>
#include <utility>

namespace kvrnstep::forms {

std::optional<Property> propertyByName(std::string_view name) {
  static constexpr std::array<std::pair<std::string_view, Property>, 21> kNames{{
      {"text", Property::Text},
      {"value", Property::Value},
      {"caption", Property::Caption},
      {"checked", Property::Checked},
      {"enabled", Property::Enabled},
      {"visible", Property::Visible},
      {"tooltip", Property::ToolTip},
      {"left", Property::Left},
      {"top", Property::Top},
      {"width", Property::Width},
      {"height", Property::Height},
      {"index", Property::Index},
      {"items", Property::Items},
      {"topindex", Property::TopIndex},
      {"selstart", Property::SelStart},
      {"sellength", Property::SelLength},
      {"font", Property::Font},
      {"fontsize", Property::FontSize},
      {"backcolor", Property::BackColor},
      {"forecolor", Property::ForeColor},
      {"cursor", Property::Cursor},
  }};
  const auto* found = std::ranges::find(kNames, name, &decltype(kNames)::value_type::first);
  if (found == kNames.end()) return std::nullopt;
  return found->second;
}

}  // namespace kvrnstep::forms
