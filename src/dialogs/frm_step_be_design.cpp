#include <array>

#include "dialogs/frm_step_be.h"

namespace kvrnstep::dialogs {

namespace {

using forms::Chrome;
using forms::ControlRow;
using enum forms::Kind;

constexpr double kInnerWidth = 8220;
constexpr double kInnerHeight = 3975;
constexpr int kRows = 5;
constexpr double kColumnWidth = 2865;
constexpr double kRowHeight = 660;
constexpr std::size_t kSlots = stepfiles::kStoredTexts;

constexpr double column(int slot) {
  const int number = slot / kRows;
  return kColumnWidth * number;
}

constexpr double row(int slot) {
  return kRowHeight * (slot % kRows);
}

/// The box of a slot; slots fill the columns from top to bottom.
constexpr ControlRow slotBox(int slot) {
  return {.kind = TextBox,
          .name = "txtHold",
          .index = slot,
          .place = {column(slot), 15 + row(slot), 1800, 630},
          .multiLine = true,
          .horizontalScroll = true,
          .font = u"MS Sans Serif",
          .tab = 1 + 2 * slot,
          .accessibleName = u"Text #"};
}

constexpr ControlRow slotPicture(int slot) {
  return {.kind = Image,
          .name = "imgBE",
          .index = slot,
          .place = {1935 + column(slot), 90 + row(slot), 480, 480},
          .toolTip = u"Apply",
          .enabled = false,
          .clickable = true,
          .picture = "apply-inactive",
          .tab = 2 + 2 * slot,
          .accessibleName = u"Apply text #"};
}

// Places are in twips.
constexpr auto kControls = [] {
  std::array<ControlRow, 2 * kSlots + 2> rows{};
  rows[0] = {.kind = StatusBar,
             .name = "StatusBar1",
             .place = {0, kInnerHeight - 375, kInnerWidth, 375},
             .accessibleName = u"Status"};
  for (std::size_t slot = 0; slot < kSlots; ++slot) {
    rows.at(1 + 2 * slot) = slotBox(static_cast<int>(slot));
    rows.at(2 + 2 * slot) = slotPicture(static_cast<int>(slot));
  }
  rows.back() = {.kind = Button,
                 .name = "cmdOK",
                 .place = {3510, 3570, 1200, 360},
                 .caption = u"&OK",
                 .clickedByEscape = true};
  return rows;
}();

constexpr forms::WindowDesign kDesign{
    .name = "frmStepBE",
    .caption = u"Beginning (Storage)",
    .place = {0, 0, kInnerWidth + Chrome::kSides, kInnerHeight + Chrome::kTitleAndBorders},
    .twipsPerUnit = 1,
    .resizable = true,
    .minimumWidth = 8000,
    .minimumHeight = 4335,
    .controls = kControls,
};

}  // namespace

const forms::WindowDesign& frmStepBEDesign() {
  return kDesign;
}

}  // namespace kvrnstep::dialogs
