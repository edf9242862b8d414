#include <windows.h>

#include <set>
#include <string>

#include "driven/user_input.h"
#include "test_window.h"

// The keyboard leads about in a window. It and the mouse are the system's own.
namespace kvrnstep::windows {
namespace {

std::string focused(const WindowView& view) {
  for (const auto& control : view.window().controls()) {
    if (control->kind() == Kind::Menu) continue;
    if (view.viewOf(*control).keyTarget() == ::GetFocus()) return control->scriptName();
  }
  return "nothing";
}

Steps::Step press(WORD key, WORD held = 0) {
  return [=](WindowView& /*view*/) { pressKey(key, held); };
}

Steps::Step expectFocus(const char* name) {
  return [=](WindowView& view) { EXPECT_EQ(focused(view), name); };
}

TEST(WindowsKeyboard, TabLeadsThroughTheWindowAndBack) {
  TestWindow window;
  window.at("second").setEnabled(false);
  auto& text = window.as<forms::TextBox>("text");
  text.setText(u"one\r\ntwo");
  text.setSelection({5, 0});
  show(window, {expectFocus("text"), press(VK_TAB), expectFocus("first"), press(VK_TAB),
                expectFocus("option(0)"), press(VK_TAB), expectFocus("combo"), press(VK_TAB),
                expectFocus("link"), press(VK_TAB), expectFocus("text"), press(VK_TAB, VK_SHIFT),
                expectFocus("link")});
  // Several lines take neither Tab nor Escape for themselves, and show the first one.
  EXPECT_EQ(text.text(), u"one\r\ntwo");
  EXPECT_EQ(text.selection(), forms::TextSelection());
}

TEST(WindowsKeyboard, ArrowKeysSelectAmongTheOptionsOfAGroup) {
  TestWindow window;
  int clicks = 0;
  window.at("option", 1).onClick = [&](int /*index*/) { ++clicks; };
  show(window, {[](WindowView& view) {
                  view.window().setFocus(*view.window().find("option", 0));
                  view.update();
                },
                press(VK_DOWN), expectFocus("option(1)"), press(VK_TAB), expectFocus("combo"),
                press(VK_TAB, VK_SHIFT), expectFocus("option(1)")});
  EXPECT_EQ(clicks, 1);
  EXPECT_TRUE(window.as<forms::OptionButton>("option", 1).value());
}

/// As Windows does, and Wine does not: an option button that gets the keyboard is clicked unless
/// BM_SETDONTCLICK has forbidden it.
LRESULT CALLBACK clickFocused(int code, WPARAM wide, LPARAM longer) {
  static std::set<HWND> forbidden;
  const auto& sent = *reinterpret_cast<const CWPSTRUCT*>(longer);
  if (sent.message == BM_SETDONTCLICK) forbidden.insert(sent.hwnd);
  if (sent.message == WM_SETFOCUS && !forbidden.contains(sent.hwnd) &&
      (::SendMessageW(sent.hwnd, WM_GETDLGCODE, 0, 0) & DLGC_RADIOBUTTON) != 0) {
    ::SendMessageW(::GetParent(sent.hwnd), WM_COMMAND, MAKEWPARAM(0, BN_CLICKED),
                   reinterpret_cast<LPARAM>(sent.hwnd));
  }
  return ::CallNextHookEx(nullptr, code, wide, longer);
}

TEST(WindowsKeyboard, GoesToTheOptionThatIsSelected) {
  const HHOOK hook =
      ::SetWindowsHookExW(WH_CALLWNDPROC, clickFocused, nullptr, ::GetCurrentThreadId());
  TestWindow window;
  auto& second = window.as<forms::OptionButton>("option", 1);
  show(window, {[](WindowView& view) {
                  view.window().setFocus(*view.window().find("option", 0));
                  view.update();
                },
                [&](WindowView& view) {
                  second.setValue(true);
                  view.update();
                },
                expectFocus("option(1)"),
                [&](WindowView& view) {
                  ::SetFocus(view.viewOf(*view.window().find("option", 0)).handle());
                  EXPECT_TRUE(second.value()) << "the keyboard alone selects nothing";
                }});
  ::UnhookWindowsHookEx(hook);
}

TEST(WindowsKeyboard, EnterMnemonicsAndShortcutsReachTheirControls) {
  TestWindow window;
  std::string told;
  window.at("first").onClick = [&](int /*index*/) { told += "first "; };
  window.at("second").onClick = [&](int /*index*/) { told += "second "; };
  window.at("entry").onClick = [&](int /*index*/) { told += "entry "; };
  show(window, {press(VK_RETURN), press('E', VK_CONTROL), press(VK_TAB), press(VK_RETURN),
                press('S', VK_MENU), expectFocus("second"), press(VK_ESCAPE), press(VK_RETURN),
                [](WindowView& view) {
                  const HWND main = view.viewOf(*view.window().find("second", -1)).handle();
                  // As Windows does, and Wine does not, when the focus goes on.
                  ::SendMessageW(main, BM_SETSTYLE, BS_PUSHBUTTON, TRUE);
                  EXPECT_EQ(::GetWindowLongPtrW(main, GWL_STYLE) & BS_TYPEMASK, BS_DEFPUSHBUTTON)
                      << "its look stays, although Enter presses another one";
                }});
  EXPECT_EQ(told, "entry first second first second ");
  EXPECT_EQ(window.as<forms::TextBox>("text").text(), u"\r\n");
}

TEST(WindowsKeyboard, ClicksOnLinks) {
  TestWindow window;
  int clicks = 0;
  window.at("link").onClick = [&](int /*index*/) { ++clicks; };
  window.at("link").onMouseUp = [&](int, forms::MouseButton) { ++clicks; };
  show(window,
       {press('L', VK_MENU), expectFocus("text"), press(VK_TAB, VK_SHIFT), press(VK_SPACE),
        press(VK_RETURN), press(VK_SPACE, VK_CONTROL), expectFocus("link"), [](WindowView& view) {
          const HWND link = view.viewOf(*view.window().find("link", -1)).handle();
          RECT place{};
          ::GetWindowRect(link, &place);
          moveMouse({place.left + 1, place.top + 1});
          useMouse(MOUSEEVENTF_LEFTDOWN);
          moveMouse({place.left + 1, place.bottom + 1});
          useMouse(MOUSEEVENTF_LEFTUP);
        }});
  EXPECT_EQ(clicks, 6) << "each raises both, and a button that comes up elsewhere none";
  EXPECT_EQ(window.as<forms::TextBox>("text").text(), u"");
}

TEST(WindowsKeyboard, ClosesAnOpenListByEscapeAndNothingElse) {
  TestWindow window;
  window.at("first").onClick = [](int /*index*/) { FAIL() << "that is what Escape clicks"; };
  HWND combo = nullptr;
  show(window, {[&](WindowView& view) {
                  combo = view.viewOf(window.at("combo")).handle();
                  ::SetFocus(combo);
                  ::SendMessageW(combo, CB_SHOWDROPDOWN, TRUE, 0);
                },
                press(VK_ESCAPE),
                [&](WindowView& /*view*/) {
                  EXPECT_FALSE(::SendMessageW(combo, CB_GETDROPPEDSTATE, 0, 0));
                }});
}

TEST(WindowsKeyboard, LeavesWhatHasBeenDisabled) {
  TestWindow window;
  window.at("first").onClick = [&](int /*index*/) { window.at("first").setEnabled(false); };
  show(window, {press(VK_TAB), press(VK_SPACE), expectFocus("second")});
}

TEST(WindowsKeyboard, GoesOnAfterAHandlerThatThrows) {
  TestWindow window;
  window.at("first").onClick = [](int /*index*/) { throw std::runtime_error("thrown"); };
  show(window, {press(VK_TAB), press(VK_SPACE), expectFocus("first")});
}

}  // namespace
}  // namespace kvrnstep::windows
