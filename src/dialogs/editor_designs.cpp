#include <array>

#include "dialogs/frm_step_be.h"
#include "dialogs/frm_step_ps_edit.h"

// How the two editors are declared. Places are in twips.
namespace kvrnstep::dialogs {

namespace {

using forms::Chrome;
using forms::ControlRow;
using enum forms::Kind;

constexpr forms::Size kAffixSize{5145, 3810};
constexpr forms::Size kStorageSize{8220, 3975};

constexpr forms::Rect around(forms::Size inner) {
  return {0, 0, inner.width + Chrome::kSides, inner.height + Chrome::kTitleAndBorders};
}

// clang-format off
constexpr auto kAffixControls = std::to_array<ControlRow>({
    {.kind = Label, .name = "lblDum", .place = {45, 15, 2340, 195}, .buddy = "lstEdit"},
    {.kind = ListBox, .name = "lstEdit", .place = {15, 225, 2385, 3570}, .tab = 5},
    {.kind = Panel, .name = "Picture1", .place = {4290, 0, 840, 225},
     .accessibleName = u"Letter Case"},
    {.kind = Button, .name = "cmdCases", .index = 0, .in = "Picture1", .place = {0, -15, 255, 225},
     .caption = u"P", .toolTip = u"Proper Case",
     .accessibleName = u"Proper Case"},
    {.kind = Button, .name = "cmdCases", .index = 1, .in = "Picture1",
     .place = {270, -15, 255, 225}, .caption = u"L", .toolTip = u"Lower Case",
     .accessibleName = u"Lower Case"},
    {.kind = Button, .name = "cmdCases", .index = 2, .in = "Picture1",
     .place = {540, -15, 255, 225}, .caption = u"U", .toolTip = u"Upper Case",
     .accessibleName = u"Upper Case"},
    {.kind = TextBox, .name = "txtAdd", .place = {2430, 225, 2700, 285}, .tab = 1,
     .accessibleName = u"Text to add"},
    {.kind = Label, .name = "lblDrag", .index = 0, .place = {2610, 555, 720, 195},
     .caption = u"{STEP_#}", .toolTip = u"Macro: Step Number", .draggable = true,
     .accessKey = u'T', .accessibleName = u"Step Number macro"},
    {.kind = Label, .name = "lblDrag", .index = 1, .place = {3480, 555, 675, 195},
     .caption = u"{STEP_L}", .toolTip = u"Macro: Step Letter", .draggable = true,
     .accessKey = u'L', .accessibleName = u"Step Letter macro"},
    {.kind = Label, .name = "lblDrag", .index = 2, .place = {4305, 555, 705, 195},
     .caption = u"{STEP_R}", .toolTip = u"Macro: Step Roman", .draggable = true,
     .accessKey = u'R', .accessibleName = u"Step Roman macro"},
    {.kind = Button, .name = "cmdAdd", .place = {2685, 915, 1200, 345}, .caption = u"&Add",
     .enabled = false, .tab = 2, .clickedByEnter = true},
    {.kind = Button, .name = "cmdSort", .place = {3930, 915, 1200, 345}, .caption = u"&Sort asc."},
    {.kind = Button, .name = "cmdEdO", .place = {2685, 1305, 1200, 345}, .caption = u"&Edit Out",
     .enabled = false, .tab = 3},
    {.kind = Button, .name = "cmdDelete", .place = {3930, 1305, 1200, 345}, .caption = u"&Delete",
     .enabled = false, .tab = 4},
    {.kind = Button, .name = "cmdPatU", .place = {2415, 1965, 330, 570}, .enabled = false,
     .picture = "arrow-up", .accessibleName = u"Move up"},
    {.kind = Button, .name = "cmdPatD", .place = {2415, 2580, 330, 570}, .enabled = false,
     .picture = "arrow-down", .accessibleName = u"Move down"},
    {.kind = Button, .name = "cmdOK", .place = {2685, 3435, 1200, 345}, .caption = u"&OK"},
    {.kind = Button, .name = "cmdCancel", .place = {3930, 3435, 1200, 345}, .caption = u"&Cancel",
     .clickedByEscape = true},
});
// clang-format on

constexpr std::size_t kSlots = stepfiles::kStoredTexts;

// Slots get their places when the window gets its size.
constexpr ControlRow slotBox(int slot) {
  return {.kind = TextBox,
          .name = "txtHold",
          .index = slot,
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
          .place = {0, 0, 480, 480},
          .toolTip = u"Apply",
          .enabled = false,
          .clickable = true,
          .picture = "apply-inactive",
          .tab = 2 + 2 * slot,
          .accessibleName = u"Apply text #"};
}

constexpr auto kStorageControls = [] {
  std::array<ControlRow, 2 * kSlots + 2> rows{};
  rows[0] = {.kind = StatusBar,
             .name = "StatusBar1",
             .place = {0, kStorageSize.height - 375, kStorageSize.width, 375},
             .accessibleName = u"Status"};
  for (std::size_t slot = 0; slot < kSlots; ++slot) {
    rows.at(1 + 2 * slot) = slotBox(static_cast<int>(slot));
    rows.at(2 + 2 * slot) = slotPicture(static_cast<int>(slot));
  }
  rows.back() = {.kind = Button, .name = "cmdOK", .caption = u"&OK", .clickedByEscape = true};
  return rows;
}();

}  // namespace

const forms::WindowDesign frmStepPSEditDesign{
    .name = "frmStepPSEdit",
    .caption = u"Edit Step",
    .place = around(kAffixSize),
    .controls = kAffixControls,
};
const forms::WindowDesign frmStepBEDesign{
    .name = "frmStepBE",
    .caption = u"Beginning (Storage)",
    .place = around(kStorageSize),
    .resizable = true,
    .minimumWidth = 8000,
    .minimumHeight = 4335,
    .controls = kStorageControls,
};

}  // namespace kvrnstep::dialogs
