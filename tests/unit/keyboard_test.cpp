#include "forms/keyboard.h"

#include <gtest/gtest.h>

#include <array>
#include <set>

#include "dialogs/frm_listwright.h"
#include "dialogs/frm_step_be.h"
#include "dialogs/frm_step_ps_edit.h"
#include "forms/shown_entry.h"
#include "forms/user_actions.h"

namespace kvrnstep::forms {

namespace {

class InEachWindow : public testing::TestWithParam<const WindowDesign*> {
 protected:
  Window window{*GetParam()};
};
INSTANTIATE_TEST_SUITE_P(Keyboard, InEachWindow,
                         testing::Values(&dialogs::frmListwrightDesign,
                                         &dialogs::frmStepPSEditDesign, &dialogs::frmStepBEDesign),
                         [](const auto& design) { return std::string(design.param->name); });

TEST_P(InEachWindow, EachLetterLeadsToOneControlAndIsDrawnThere) {
  std::set<char16_t> letters;
  for (const auto& control : window.controls()) {
    const char16_t letter = mnemonicOf(*control);
    EXPECT_EQ(drawnCaption(*control).find(u'&') != std::u16string::npos, letter != 0)
        << control->scriptName();
    const bool inMenu = control->kind() == Kind::Menu && control->container() != nullptr;
    if (letter != 0 && !inMenu) {
      EXPECT_TRUE(letters.insert(letter).second) << control->scriptName();
    }
  }
  EXPECT_FALSE(letters.empty());
}

TEST_P(InEachWindow, EveryControlHasANameOfItsOwn) {
  // What the window says when it opens.
  if (Control* heading = window.find("lblDum", -1)) heading->setCaption(u"Prefixes");
  std::set<std::u16string> names;
  for (const auto& control : window.controls()) {
    const std::u16string name = accessibleName(*control);
    EXPECT_EQ(name.find_first_of(u"&#:"), std::u16string::npos) << control->scriptName();
    // A label is called as what it leads to, and a menu entry may be called as a button.
    if (control->kind() == Kind::Label || control->kind() == Kind::Menu ||
        control->kind() == Kind::Spinner) {
      EXPECT_FALSE(name.empty()) << control->scriptName();
    } else {
      EXPECT_TRUE(!name.empty() && names.insert(name).second) << control->scriptName();
    }
  }
}

TEST(Keyboard, AReleaseCountsInTheBoxThatSawThePress) {
  Window window(dialogs::frmListwrightDesign);
  auto& end = static_cast<TextBox&>(*window.find("txtBEndAt", -1));
  auto& start = static_cast<TextBox&>(*window.find("txtBStart", -1));
  std::string released;
  end.onKeyUp = [&](int /*index*/) { released += "end "; };
  start.onKeyUp = [&](int /*index*/) { released += "start "; };
  // A fast typist: 1 and 2 overlap, and 2 comes up when Tab has led on.
  userPressedKey(end, '1');
  userPressedKey(end, '2');
  userReleasedKey(window, '1');
  userPressedKey(start, '3');
  userReleasedKey(window, '2');
  userReleasedKey(window, '3');
  EXPECT_EQ(released, "end end start ");
  // What went down elsewhere, or before the keyboard was elsewhere, comes up here.
  userPressedKey(end, '4');
  userLeft(window);
  userPressedKey(*window.find("optNA", 0), '5');
  for (const KeyCode key : {U'3', U'4', U'5'}) EXPECT_FALSE(userReleasedKey(window, key));
  EXPECT_EQ(released, "end end start ");
}

constexpr auto kUsed = std::to_array<ControlRow>({
    {.kind = Kind::OptionButton, .name = "off", .place = {0, 0, 40, 10}, .tab = 1},
    {.kind = Kind::CheckBox, .name = "check", .place = {100, 0, 40, 10}},
    {.kind = Kind::ListBox, .name = "list", .place = {50, 10, 40, 30}},
    {.kind = Kind::TextBox, .name = "lines", .place = {0, 60, 40, 20}, .multiLine = true},
    {.kind = Kind::Button,
     .name = "ok",
     .place = {0, 90, 40, 20},
     .caption = u"R&&D",
     .clickedByEnter = true},
    {.kind = Kind::Label, .name = "label", .place = {0, 120, 20, 10}, .buddy = "number"},
    {.kind = Kind::TextBox, .name = "number", .place = {30, 120, 20, 10}, .tab = 2},
    {.kind = Kind::Spinner,
     .name = "spin",
     .place = {60, 120, 10, 10},
     .enabled = false,
     .buddy = "number",
     .maximum = 9},
    {.kind = Kind::Frame, .name = "hidden", .place = {0, 0, 300, 300}, .visible = false},
    {.kind = Kind::Menu, .name = "popup", .visible = false},
});
constexpr WindowDesign kUse{.name = "Use",
                            .caption = u"",
                            .place = {0, 0, 6000, 6000},
                            .twipsPerUnit = 15,
                            .controls = kUsed};

class Use : public testing::Test {
 protected:
  template <class T>
  T& the(std::string_view name) {
    return static_cast<T&>(*window.find(name, -1));
  }
  Window window{kUse};
};

TEST(ShownEntry, LosesItsMiddleAndKeepsItsEnd) {
  ControlRow row{.kind = Kind::ListBox, .name = "list"};
  const auto shown = [&](const char16_t* entry, int width) {
    return shownEntry(row, entry, width,
                      [](const auto& part) { return static_cast<int>(part.size()); });
  };
  EXPECT_EQ(shown(u"abcdefgh", 8), u"abcdefgh");
  EXPECT_EQ(shown(u"abcdefgh", 6), u"abc\u2026gh");
  EXPECT_EQ(shown(u"ab\U0001F600cd\U0001F600", 7), u"ab\u2026d\U0001F600") << "no halves";
  EXPECT_EQ(shown(u"abc", 0), u"\u2026");
  row.keptFrom = [](std::u16string_view entry) { return entry.find(u'{'); };
  EXPECT_EQ(shown(u"abcdefgh{12}", 8), u"abc\u2026{12}");
  EXPECT_EQ(shown(u"abcdefgh{123456789}", 8), u"abcd\u202689}") << "nothing of the beginning";
  EXPECT_EQ(shown(u"abcdefgh", 6), u"abc\u2026gh") << "no end to keep";
}

TEST_F(Use, AListKeepsItsSelectionWhileItChanges) {
  auto& list = the<ListBox>("list");
  for (const auto* entry : {u"a", u"b", u"c", u"d"}) list.AddItem(entry);
  list.setTopIndex(3);
  EXPECT_TRUE(userPressedCommandKey(list, CommandKey::Down));
  EXPECT_EQ(list.entries().selected, 2) << "an arrow begins with what is seen";
  list.setIndex(2);
  list.InsertItem(2, u"new");
  EXPECT_EQ(list.entries().selected, 3);
  list.RemoveItem(0);
  userClickedEntry(list, -1);
  EXPECT_EQ(list.entries().selected, 2) << "a click beside the entries is none";
  list.setTopIndex(3);
  list.RemoveItem(3);
  EXPECT_EQ(list.topIndex(), 2);
}

TEST_F(Use, ControlsTakeWhatIsMeantForThem) {
  userClicked(the<CheckBox>("check"));
  EXPECT_EQ(the<CheckBox>("check").value(), 1) << "a hidden frame covers nothing";
  the<CheckBox>("check").setValue(2);
  userClicked(the<CheckBox>("check"));
  EXPECT_EQ(the<CheckBox>("check").value(), 1) << "grey becomes checked";
  userSpun(the<Spinner>("spin"), true);
  EXPECT_EQ(the<Spinner>("spin").value(), 0) << "it is disabled";
  the<Control>("ok").onClick = [](int /*index*/) { FAIL() << "Enter is the box's"; };
  EXPECT_FALSE(userPressedCommandKey(the<TextBox>("lines"), CommandKey::Enter));
  EXPECT_EQ(mnemonicOf(the<Control>("ok")), 0);
  EXPECT_FALSE(window.hasMenuBar()) << "a menu that pops up is not in it";
}

TEST_F(Use, TabGoesByTurnThenByLine) {
  const std::vector<Control*> controls = tabOrder(window);
  std::string order;
  for (const Control* control : controls) order += control->scriptName() + ' ';
  EXPECT_EQ(order, "off label number check list lines ok spin ");
  EXPECT_EQ(firstFocus(controls), &the<Control>("number"))
      << "an option that is off takes no focus";
}

}  // namespace

}  // namespace kvrnstep::forms
