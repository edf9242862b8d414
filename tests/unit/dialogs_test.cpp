#include <gtest/gtest.h>

#include <algorithm>
#include <array>

#include "dialogs/frm_step_ps_edit.h"
#include "dialogs/list_sort.h"
#include "forms/user_actions.h"
#include "forms/view_sync.h"
#include "headless_toolkit.h"

namespace kvrnstep::dialogs {

namespace {

using Items = std::vector<std::u16string>;

TEST(Sort, ByCodeUnits) {
  Items items{u"b", u"B",  u"a",      u"A", u"Item10", u"Item2", u"Item",
              u"ä", u" z", u"\xE000", u"9", u"é",      u"a",     u"\xD83D\xDE00"};
  QuickSortStrings(items, 0, static_cast<std::int32_t>(items.size()) - 1);
  EXPECT_EQ(items, (Items{u" z", u"9", u"A", u"B", u"Item", u"Item10", u"Item2", u"a", u"a", u"b",
                          u"ä", u"é", u"\xD83D\xDE00", u"\xE000"}));
  // Only the range that was asked for.
  Items part{u"d", u"c", u"b", u"a"};
  QuickSortStrings(part, 1, 2);
  QuickSortStrings(part, 3, 0);
  EXPECT_EQ(part, (Items{u"d", u"b", u"c", u"a"}));

  forms::Window window(frmStepPSEditDesign);
  auto& list = static_cast<forms::ListBox&>(*window.find("lstEdit", -1));
  for (const auto* entry : {u"c", u"b", u"a"}) list.AddItem(entry);
  SortList(list);
  EXPECT_EQ(list.entries().items, (Items{u"a", u"b", u"c"}));
}

TEST(ScreenPlace, IsNearAndOnTheScreens) {
  using forms::Rect;
  // A panel above, and a higher screen to the right.
  const std::array screens{Rect{0, 30, 1280, 994}, Rect{1280, 0, 1000, 1600}};
  for (const auto& [wanted, shown] : std::to_array<std::pair<Rect, Rect>>({
           {{100, 50, 500, 400}, {100, 50, 500, 400}},
           {{1000, 100, 500, 400}, {1000, 100, 500, 400}},  // on both
           {{100, 0, 500, 400}, {100, 30, 500, 400}},
           {{800, 900, 500, 400}, {780, 624, 500, 400}},
           {{1000, 900, 500, 400}, {1280, 900, 500, 400}},
           {{2666, 60, 500, 400}, {1780, 60, 500, 400}},
           {{-900, 2000, 500, 400}, {0, 624, 500, 400}},
           {{-200, -200, 5000, 4000}, {1280, 0, 5000, 4000}},
           {{-200, -200, 1290, 900}, {0, 30, 1290, 900}},
       })) {
    EXPECT_EQ(forms::placeOnScreen(wanted, screens), shown) << wanted.left << " " << wanted.top;
  }
  EXPECT_EQ(forms::placeOnScreen({-900, 0, 1, 1}, {}), (Rect{-900, 0, 1, 1}));
}

TEST(Editors, TakeOneLineOfWhatIsPastedIntoTheAddBox) {
  headless::HeadlessToolkit toolkit;
  const plugin::HostContext host;
  frmStepPSEdit editor(toolkit, host);
  auto& box = static_cast<forms::TextBox&>(*editor.find("txtAdd", -1));
  forms::userEdited(box, u"one\r\ntwo", {8, 0});
  EXPECT_EQ(box.text(), u"one");
  forms::userEdited(box, u"on\n\ne", {4, 0});
  EXPECT_EQ(box.text(), u"one");
  EXPECT_EQ(box.selection(), (forms::TextSelection{2, 0}));
  // A break that was there before, as in an entry of a list, stays.
  box.setText(u"a\nb");
  forms::userEdited(box, u"a\nbc", {4, 0});
  EXPECT_EQ(box.text(), u"a\nbc");
}

}  // namespace

}  // namespace kvrnstep::dialogs
