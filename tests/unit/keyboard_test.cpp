#include "forms/keyboard.h"

#include <gtest/gtest.h>

#include <set>

#include "dialogs/frm_listwright.h"
#include "dialogs/frm_step_be.h"
#include "dialogs/frm_step_ps_edit.h"
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
  for (const KeyCode key : {'3', '4', '5'}) EXPECT_FALSE(userReleasedKey(window, key));
  EXPECT_EQ(released, "end end start ");
}

}  // namespace

}  // namespace kvrnstep::forms
