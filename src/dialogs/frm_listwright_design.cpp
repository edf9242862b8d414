#include <array>

#include "dialogs/frm_listwright.h"
#include "stepfiles/step_folder.h"

namespace kvrnstep::dialogs {

namespace {

using forms::ControlRow;
using enum forms::Kind;

constexpr std::u16string_view kBoxFont = u"MS Sans Serif";
/// The boxes have no room for all three macros.
constexpr std::u16string_view kMacroHint = u"{STEP_#}, _L, _R";

constexpr const ListingTypeRow& rowOf(ListingType type) {
  return kListingTypes.at(static_cast<std::size_t>(type));
}

// clang-format off
constexpr ControlRow typeRow(ListingType type, forms::Rect place) {
  return {.kind = OptionButton, .name = "optNA", .index = type, .in = "Picture1", .place = place,
          .caption = rowOf(type).caption, .checked = type == Numbered};
}

constexpr ControlRow pictureRow(ListingType type) {
  return {.kind = Image, .name = "imgBull", .index = type, .in = "fraStep",
          .place = {11, 15, 32, 32}, .visible = type == Numbered, .picture = rowOf(type).word,
          .accessibleName = rowOf(type).name};
}

constexpr ControlRow optionRow(ListOption option, forms::Rect place) {
  const ListOptionRow& row = kListOptions.at(option);
  return {.kind = CheckBox, .name = "chkLWO", .index = option, .in = "fraStep", .place = place,
          .caption = row.caption, .enabled = appliesTo(row, Numbered),
          .checked = row.checkedAtFirst};
}

constexpr ControlRow menu(std::string_view name, std::u16string_view caption) {
  return {.kind = Menu, .name = name, .caption = caption};
}

constexpr ControlRow entry(std::string_view name, int index, std::string_view in,
                           std::u16string_view caption, bool enabled = true,
                           std::string_view shortcut = {}) {
  return {.kind = Menu, .name = name, .index = index, .in = in, .caption = caption,
          .enabled = enabled, .shortcut = shortcut};
}

// Places are in pixels.
constexpr auto kControls = std::to_array<ControlRow>({
    // Beside and below the options frame.
    {.kind = TextBox, .name = "txtPreview", .place = {-10000, 6, 265, 264},
     .multiLine = true, .horizontalScroll = true, .readOnly = true,
     .accessibleName = u"Preview"},
    {.kind = Button, .name = "cmdCIC", .index = 5, .place = {2, 274, 80, 23},
     .caption = u"&Open...", .enabled = false},
    {.kind = Button, .name = "cmdCIC", .index = 3, .place = {93, 274, 80, 23},
     .caption = u"&Save As...", .enabled = false, .visible = false},
    {.kind = Button, .name = "cmdCIC", .index = 4, .place = {184, 274, 80, 23},
     .caption = u"&Print...", .enabled = false, .visible = false},
    {.kind = ListBox, .name = "lstStepf", .place = {4, 301, 265, 108},
     .keptFrom = stepfiles::placeOfCodes, .accessibleName = u"Step Files"},

    // The options frame.
    {.kind = Frame, .name = "fraStep", .place = {2, 0, 265, 298},
     .accessibleName = u"List"},
    {.kind = Panel, .name = "Picture1", .in = "fraStep", .place = {54, 4, 203, 68},
     .accessibleName = u"Listing Type"},
    typeRow(Numbered, {0, 0, 203, 17}),
    typeRow(Alphabetical, {0, 17, 203, 17}),
    typeRow(RomanNumeral, {0, 34, 203, 17}),
    typeRow(PrefixSuffix, {0, 51, 203, 17}),
    pictureRow(Numbered),
    pictureRow(Alphabetical),
    pictureRow(RomanNumeral),
    pictureRow(PrefixSuffix),

    optionRow(Indentation, {9, 75, 124, 17}),
    optionRow(IndentSpacing, {137, 75, 124, 17}),
    optionRow(UpperCase, {9, 92, 124, 17}),
    optionRow(RightAlign, {137, 92, 124, 17}),
    optionRow(AddBegEnd, {9, 109, 124, 17}),
    optionRow(PreSufSpace, {137, 109, 124, 17}),
    optionRow(AppendOrdinal, {9, 126, 248, 17}),

    {.kind = Label, .name = "lblD", .index = 2, .in = "fraStep", .place = {9, 147, 31, 20},
     .caption = u"Start:", .buddy = "txtBStart"},
    {.kind = TextBox, .name = "txtBStart", .in = "fraStep", .place = {41, 147, 24, 20},
     .markedByClick = true, .maxLength = 2, .text = u"1", .font = kBoxFont},
    {.kind = Spinner, .name = "updBStart", .in = "fraStep", .place = {65, 147, 14, 20},
     .buddy = "txtBStart", .minimum = 1, .maximum = 99, .value = 1},
    {.kind = Label, .name = "lblD", .index = 3, .in = "fraStep", .place = {86, 147, 25, 20},
     .caption = u"End:", .buddy = "txtBEndAt"},
    {.kind = TextBox, .name = "txtBEndAt", .in = "fraStep", .place = {112, 147, 24, 20},
     .markedByClick = true, .maxLength = 2, .text = u"3", .font = kBoxFont},
    {.kind = Spinner, .name = "updBEndAt", .in = "fraStep", .place = {136, 147, 14, 20},
     .buddy = "txtBEndAt", .minimum = 1, .maximum = 99, .value = 3},
    {.kind = Label, .name = "lblD", .index = 6, .in = "fraStep", .place = {154, 147, 70, 20},
     .caption = u"Line Spacing:", .buddy = "txtLS"},
    {.kind = TextBox, .name = "txtLS", .in = "fraStep", .place = {225, 147, 18, 20},
     .markedByClick = true, .maxLength = 2, .text = u"0", .font = kBoxFont},
    {.kind = Spinner, .name = "updLS", .in = "fraStep", .place = {243, 147, 14, 20},
     .buddy = "txtLS", .minimum = 0, .maximum = 9, .value = 0},

    {.kind = Label, .name = "lblD", .index = 0, .in = "fraStep", .place = {9, 169, 120, 14},
     .caption = u"Prefix", .clickable = true, .buddy = "cboPreSuf", .buddyIndex = 0},
    {.kind = ComboBox, .name = "cboPreSuf", .index = 0, .in = "fraStep",
     .place = {9, 183, 120, 21}, .hint = kMacroHint},
    {.kind = Label, .name = "lblD", .index = 1, .in = "fraStep", .place = {137, 169, 120, 14},
     .caption = u"Suffix", .clickable = true, .buddy = "cboPreSuf", .buddyIndex = 1},
    {.kind = ComboBox, .name = "cboPreSuf", .index = 1, .in = "fraStep",
     .place = {137, 183, 120, 21}, .hint = kMacroHint},
    {.kind = Label, .name = "lblD", .index = 5, .in = "fraStep", .place = {9, 207, 120, 14},
     .caption = u"Beginning", .clickable = true, .buddy = "txtBegin"},
    {.kind = TextBox, .name = "txtBegin", .in = "fraStep", .place = {9, 221, 120, 42},
     .multiLine = true, .font = kBoxFont},
    {.kind = Label, .name = "lblD", .index = 4, .in = "fraStep", .place = {137, 207, 120, 14},
     .caption = u"Ending", .clickable = true, .buddy = "txtEnd"},
    {.kind = TextBox, .name = "txtEnd", .in = "fraStep", .place = {137, 221, 120, 42},
     .multiLine = true, .font = kBoxFont},

    {.kind = Panel, .name = "Picture2", .in = "fraStep", .place = {0, 274, 265, 27},
     .accessibleName = u"Actions"},
    {.kind = Button, .name = "cmdCIC", .index = 2, .in = "Picture2", .place = {9, 0, 80, 23},
     .caption = u"&Copy", .enabled = false},
    {.kind = Button, .name = "cmdCIC", .index = 0, .in = "Picture2", .place = {93, 0, 80, 23},
     .caption = u"&Insert", .toolTip = u"Add bullet list as specified and close",
     .enabled = false, .prominent = true},
    {.kind = Button, .name = "cmdCIC", .index = 1, .in = "Picture2", .place = {177, 0, 80, 23},
     .caption = u"Cancel", .clickedByEscape = true},

    // The menu bar.
    menu("mnuFile", u"&File"),
    entry("mnuFiles", 0, "mnuFile", u"Open...", true, "Ctrl+O"),
    entry("mnuFiles", 1, "mnuFile", u"Save As...", false, "Ctrl+S"),
    entry("mnuFiles", 2, "mnuFile", u"-"),
    entry("mnuFiles", 3, "mnuFile", u"&Print...", false),
    entry("mnuFiles", 4, "mnuFile", u"-"),
    entry("mnuFiles", 5, "mnuFile", u"Close", true, "Ctrl+Q"),
    menu("mnuEdit", u"&Edit"),
    entry("mnuEdits", 0, "mnuEdit", u"Edit Prefix list..."),
    entry("mnuEdits", 1, "mnuEdit", u"Edit Suffix list..."),
    entry("mnuEdits", 2, "mnuEdit", u"-"),
    entry("mnuEdits", 3, "mnuEdit", u"Beginning (Storage)..."),
    entry("mnuEdits", 4, "mnuEdit", u"Ending (Storage)..."),
    menu("mnuOption", u"&Options"),
    entry("mnuOptions", 0, "mnuOption", u"Set as open defaults"),
    entry("mnuOptions", 1, "mnuOption", u"Clear open defaults"),
    entry("mnuOptions", 2, "mnuOption", u"Re-open defaults"),
    entry("mnuOptions", 3, "mnuOption", u"-"),
    entry("mnuOptions", 4, "mnuOption", u"Display Step Files"),
    entry("mnuOptions", 5, "mnuOption", u"Display Preview"),
    menu("mnuAction", u"&Actions"),
    entry("mnuActions", 0, "mnuAction", u"&Insert", false),
    entry("mnuActions", 1, "mnuAction", u"-"),
    entry("mnuActions", 2, "mnuAction", u"&Copy", false),

    // The pop-up menu of the step files.
    {.kind = Menu, .name = "mnuHid", .caption = u"File", .visible = false},
    entry("mnuHidd", 0, "mnuHid", u"Open"),
    entry("mnuHidd", 1, "mnuHid", u"-"),
    entry("mnuHidd", 2, "mnuHid", u"Delete"),
});
// clang-format on

}  // namespace

const forms::WindowDesign frmListwrightDesign{
    .name = "frmListwright",
    .caption = u"Listwright",
    .place = {900, 900, 4170, 5280},
    .twipsPerUnit = forms::kTwipsPerPixel,
    .controls = kControls,
};

}  // namespace kvrnstep::dialogs
