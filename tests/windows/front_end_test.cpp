#include <gtest/gtest.h>
#include <windows.h>
// After the other one.
#include <imm.h>

#include <array>
#include <atomic>
#include <functional>
#include <set>
#include <string>
#include <thread>
#include <vector>

#include "driven/user_input.h"
#include "forms/toolkit.h"
#include "forms/window.h"
#include "scale.h"
#include "window_class.h"
#include "windows_toolkit.h"

extern "C" KvrnstepFrontEnd kvrnstepFrontEnd;

// What scripts cannot say: the keyboard leads about in a window, and the window behaves towards its
// host. The mouse and the keyboard are the system's own.
namespace kvrnstep::windows {
namespace {

using forms::ControlRow;
using enum forms::Kind;

constexpr auto kControls = std::to_array<ControlRow>({
    {.kind = TextBox, .name = "text", .place = {10, 10, 150, 60}, .multiLine = true},
    {.kind = Button,
     .name = "first",
     .place = {10, 80, 80, 23},
     .caption = u"&First",
     .clickedByEscape = true},
    {.kind = Button, .name = "second", .place = {100, 80, 80, 23}, .caption = u"&Second"},
    {.kind = Panel, .name = "group", .place = {10, 110, 150, 60}},
    {.kind = OptionButton,
     .name = "option",
     .index = 0,
     .in = "group",
     .place = {0, 0, 150, 20},
     .caption = u"One",
     .checked = true},
    {.kind = OptionButton,
     .name = "option",
     .index = 1,
     .in = "group",
     .place = {0, 20, 150, 20},
     .caption = u"Two"},
    {.kind = ComboBox, .name = "combo", .place = {10, 180, 150, 21}},
    {.kind = Label,
     .name = "link",
     .place = {10, 210, 150, 17},
     .caption = u"Link",
     .clickable = true,
     .accessKey = u'L'},
    {.kind = TextBox, .name = "line", .place = {10, 235, 150, 40}, .enabled = false},
    {.kind = Menu, .name = "menu", .caption = u"&Menu"},
    {.kind = Menu, .name = "entry", .in = "menu", .caption = u"&Entry", .shortcut = "Ctrl+E"},
});

constexpr forms::WindowDesign kDesign{
    .name = "window",
    .caption = u"Window",
    .place = {1500, 1500, 4500, 4500},
    .twipsPerUnit = forms::kTwipsPerPixel,
    .controls = kControls,
};

class TestWindow : public forms::Window {
 public:
  TestWindow() : Window(kDesign) {}

  forms::Control& at(std::string_view name, int index = -1) { return *find(name, index); }
  template <class T>
  T& as(std::string_view name, int index = -1) {
    return static_cast<T&>(at(name, index));
  }
};

/// Carries out one step each time the window has come to rest, and closes it after the last one.
class Steps : public Attendant {
 public:
  using Step = std::function<void(WindowView&)>;
  explicit Steps(std::vector<Step> steps) : steps_(std::move(steps)) {}

  void windowIdle(WindowView& view) override {
    if (next_ < steps_.size()) {
      steps_[next_++](view);
    } else {
      ::PostMessageW(view.handle(), WM_CLOSE, 0, 0);
    }
  }

  [[nodiscard]] bool allTaken() const { return next_ == steps_.size(); }

 private:
  std::vector<Step> steps_;
  std::size_t next_ = 0;
};

void show(TestWindow& window, std::vector<Steps::Step> steps) {
  Steps attendant(std::move(steps));
  WindowsToolkit toolkit(&attendant);
  window.showModal(toolkit);
  EXPECT_TRUE(attendant.allTaken());
}

std::string focused(const WindowView& view) {
  for (const auto& control : view.window().controls()) {
    if (control->kind() == Menu) continue;
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
                press('S', VK_MENU), expectFocus("second"), press(VK_ESCAPE), press(VK_RETURN)});
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

TEST(WindowsHost, TakesNoInputMeanwhileAndHasTheKeyboardAgain) {
  const HWND host =
      ::CreateWindowExW(WS_EX_TOPMOST, WC_STATICW, L"host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0,
                        200, 100, nullptr, nullptr, nullptr, nullptr);
  const HWND other = ::CreateWindowW(WC_STATICW, L"other", WS_POPUP | WS_VISIBLE | WS_DISABLED, 0,
                                     0, 9, 9, host, nullptr, nullptr, nullptr);
  ::SetForegroundWindow(host);
  TestWindow window;
  window.as<forms::TextBox>("text").onKeyPress = [](int, char16_t) { return true; };
  show(window, {[host](WindowView& view) {
         EXPECT_FALSE(::IsWindowEnabled(host));
         EXPECT_NE(::GetWindowLongPtrW(view.handle(), GWL_EXSTYLE) & WS_EX_TOPMOST, 0);
         const auto hasInputMethod = [&](const char* name) {
           const HWND box = view.viewOf(*view.window().find(name, -1)).keyTarget();
           return ::ImmGetContext(box) != nullptr;
         };
         EXPECT_FALSE(hasInputMethod("text")) << "it judges each key";
         EXPECT_TRUE(hasInputMethod("combo"));
         EXPECT_EQ(::GetWindow(view.handle(), GW_OWNER), nullptr);
         EXPECT_EQ(::GetForegroundWindow(), view.handle());
       }});
  EXPECT_TRUE(::IsWindowEnabled(host));
  EXPECT_FALSE(::IsWindowEnabled(other)) << "the host had disabled it";
  EXPECT_EQ(::GetActiveWindow(), host);
  ::DestroyWindow(host);
}

TEST(WindowsHost, FindsTheWindowAgainByAnotherCall) {
  TestWindow window;
  WindowsToolkit* used = nullptr;
  Steps attendant({[&](WindowView& view) {
    ::SendMessageW(view.handle(), WM_ENDSESSION, FALSE, 0);
    EXPECT_FALSE(window.unloaded()) << "the session goes on";
    ::ShowWindow(view.handle(), SW_MINIMIZE);
    EXPECT_EQ(window.place(), kDesign.place);
    used->bringToFront();
    EXPECT_FALSE(::IsIconic(view.handle()));
    EXPECT_EQ(::GetForegroundWindow(), view.handle());
  }});
  WindowsToolkit toolkit(&attendant);
  used = &toolkit;
  window.showModal(toolkit);
}

TEST(WindowsHost, HearsThatItShallEnd) {
  constexpr int kStatus = 7;
  TestWindow window;
  show(window, {[](WindowView& /*view*/) { ::PostQuitMessage(kStatus); }});
  EXPECT_TRUE(window.unloaded());
  MSG message{};
  ASSERT_TRUE(::PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
  EXPECT_EQ(message.wParam, static_cast<WPARAM>(kStatus));
}

WPARAM heard = 0;

/// A host's hook for messages to its thread, which reach no window.
LRESULT CALLBACK hear(int code, WPARAM wide, LPARAM longer) {
  const auto& message = *reinterpret_cast<const MSG*>(longer);
  if (code == MSGF_DIALOGBOX && message.hwnd == nullptr && message.message == WM_APP) {
    heard = message.wParam;
  }
  return ::CallNextHookEx(nullptr, code, wide, longer);
}

TEST(WindowsHost, HearsWhatIsPostedToItsThreadAndStrayMessagesDoNothing) {
  static constexpr WPARAM kSaid = 42;
  const HHOOK hook = ::SetWindowsHookExW(WH_MSGFILTER, hear, nullptr, ::GetCurrentThreadId());
  TestWindow window;
  show(window, {[](WindowView& view) {
                  ::PostThreadMessageW(::GetCurrentThreadId(), WM_APP, kSaid, 0);
                  ::PostMessageW(view.handle(), WM_APP + 1, 1, 1);
                },
                [](WindowView& /*view*/) { EXPECT_EQ(heard, kSaid); }});
  ::UnhookWindowsHookEx(hook);
}

/// Takes its step, and leaves the rest to others.
class OneStep final : public Steps {
 public:
  using Steps::Steps;

  void windowIdle(WindowView& view) override {
    if (allTaken()) {
      ::WaitMessage();
    } else {
      Steps::windowIdle(view);
    }
  }
};

void CALLBACK destroy(HWND doomed, UINT, UINT_PTR, DWORD) {
  ::DestroyWindow(doomed);
}

TEST(WindowsHost, MayDestroyTheWindowWhateverLiesOverIt) {
  const auto all = std::to_array<void (*)(TestWindow&, WindowsToolkit&)>({
      [](TestWindow&, WindowsToolkit&) {},
      [](TestWindow&, WindowsToolkit& toolkit) {
        TestWindow over;
        over.showModal(toolkit);
        EXPECT_TRUE(over.unloaded());
      },
      [](TestWindow& window, WindowsToolkit& toolkit) {
        toolkit.popUp(window.as<forms::MenuEntry>("menu"));
      },
      [](TestWindow&, WindowsToolkit& toolkit) { toolkit.showMessage({}); },
      [](TestWindow&, WindowsToolkit& toolkit) { EXPECT_FALSE(toolkit.ask({})); },
      [](TestWindow&, WindowsToolkit& toolkit) { EXPECT_FALSE(toolkit.ShowOpenDialog({})); },
  });
  const HWND host = ::CreateWindowW(WC_STATICW, L"host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0,
                                    200, 100, nullptr, nullptr, nullptr, nullptr);
  for (const auto open : all) {
    TestWindow window;
    int closed = 0;
    window.onQueryUnload = [&] { ++closed; };
    WindowsToolkit* used = nullptr;
    OneStep attendant({[&](WindowView& view) {
      ::SetTimer(view.handle(), 1, USER_TIMER_MINIMUM, destroy);
      open(window, *used);
    }});
    WindowsToolkit toolkit(&attendant);
    used = &toolkit;
    window.showModal(toolkit);
    EXPECT_EQ(closed, 1);
    EXPECT_TRUE(::IsWindowEnabled(host));
  }
  ::DestroyWindow(host);
}

/// Closes the window of this thread when there are two.
void CALLBACK closeOfTwo(HWND /*window*/, UINT /*message*/, UINT_PTR /*timer*/, DWORD /*time*/) {
  static std::atomic<bool> both = false;
  const HWND first = ::FindWindowW(ownClass(), nullptr);
  const HWND second = ::FindWindowExW(nullptr, first, ownClass(), nullptr);
  both = both || (::IsWindowVisible(first) != FALSE && ::IsWindowVisible(second) != FALSE);
  if (!both) return;
  for (const HWND window : {first, second}) {
    EXPECT_EQ(::GetWindow(window, GW_OWNER), nullptr);
    if (::GetWindowThreadProcessId(window, nullptr) != ::GetCurrentThreadId()) continue;
    ::PostMessageW(window, WM_CLOSE, 0, 0);
  }
}

TEST(WindowsHost, HasADialogOnEachThread) {
  const auto use = [] {
    TestWindow window;
    std::string problem;
    const UINT_PTR timer = ::SetTimer(nullptr, 0, USER_TIMER_MINIMUM, closeOfTwo);
    window.showModal(*kvrnstepFrontEnd(&problem));
    ::KillTimer(nullptr, timer);
    EXPECT_TRUE(window.unloaded());
  };
  std::thread other([&] {
    while (::IsWindowVisible(::FindWindowW(ownClass(), nullptr)) == FALSE) ::SwitchToThread();
    use();
  });
  use();
  other.join();
}

TEST(WindowsHost, HearsNothingOfWhatAHandlerThrows) {
  TestWindow window;
  window.at("first").onClick = [](int /*index*/) { throw std::runtime_error("thrown"); };
  show(window, {press(VK_TAB), press(VK_SPACE), expectFocus("first")});
}

TEST(WindowsPlace, IsOnTheScreenAndKeptUntilTheUserMovesTheWindow) {
  TestWindow window;
  window.setLeft(600000);
  window.setTop(-9000);
  window.setHeight(30000);
  const double inside = window.innerHeight();
  show(window, {[&](WindowView& view) {
                  RECT area{};
                  ::SystemParametersInfoW(SPI_GETWORKAREA, 0, &area, 0);
                  RECT outside{};
                  ::GetWindowRect(view.handle(), &outside);
                  EXPECT_EQ(outside.right, area.right);
                  EXPECT_EQ(outside.top, area.top);
                  RECT client{};
                  ::GetClientRect(view.handle(), &client);
                  EXPECT_EQ(client.bottom, inside) << "nothing is cut off";
                  EXPECT_EQ(window.place(), (forms::Rect{600000, -9000, 4500, 30000}));
                },
                [](WindowView& view) {
                  ::SetWindowPos(view.handle(), nullptr, 100, 50, 0, 0, SWP_NOSIZE);
                }});
  EXPECT_EQ(window.place(), (forms::Rect{1500, 750, 4500, 30000}));
}

void tellOfTwiceTheDensity(HWND window) {
  RECT proposed{};
  ::GetWindowRect(window, &proposed);
  ::OffsetRect(&proposed, 10, 10);
  ::SendMessageW(window, WM_DPICHANGED, MAKEWPARAM(2 * kNominalDpi, 2 * kNominalDpi),
                 reinterpret_cast<LPARAM>(&proposed));
}

/// Inside of the window, and the width of a button.
std::array<LONG, 3> sizes(const WindowView& view) {
  RECT inside{};
  ::GetClientRect(view.handle(), &inside);
  RECT button{};
  ::GetWindowRect(view.viewOf(*view.window().find("first", -1)).handle(), &button);
  return {inside.right, inside.bottom, button.right - button.left};
}

int moves = 0;

/// As where the monitors differ: a window that SetWindowPos puts on another one gets WM_DPICHANGED
/// before that returns.
LRESULT CALLBACK changeMonitor(int code, WPARAM wide, LPARAM longer) {
  const auto& sent = *reinterpret_cast<const CWPSTRUCT*>(longer);
  const auto* place = reinterpret_cast<const WINDOWPOS*>(sent.lParam);
  if (sent.message == WM_WINDOWPOSCHANGED && ::GetParent(sent.hwnd) == nullptr &&
      (place->flags & SWP_NOMOVE) == 0) {
    const int move = ++moves;
    if (move == 1) tellOfTwiceTheDensity(sent.hwnd);
    EXPECT_TRUE(move != 2 || (place->flags & SWP_NOSIZE) == 0) << "place and size go together";
  }
  return ::CallNextHookEx(nullptr, code, wide, longer);
}

TEST(WindowsScale, ShowsOneLineInTheMiddleOfItsBox) {
  TestWindow window;
  show(window, {[&](WindowView& view) {
         const HWND line = view.viewOf(window.at("line")).handle();
         RECT outside{};
         ::GetWindowRect(line, &outside);
         POINT top{};
         ::ClientToScreen(line, &top);
         RECT inside{};
         ::GetClientRect(line, &inside);
         EXPECT_GT(outside.bottom - outside.top, inside.bottom + 9);
         EXPECT_NEAR(top.y - outside.top, outside.bottom - top.y - inside.bottom, 1);
       }});
}

TEST(WindowsScale, FollowsTheMonitor) {
  TestWindow window;
  std::array<LONG, 3> before{};
  show(window, {[&](WindowView& view) {
         before = sizes(view);
         tellOfTwiceTheDensity(view.handle());
         const auto after = sizes(view);
         for (std::size_t i = 0; i < before.size(); ++i) EXPECT_EQ(after[i], 2 * before[i]) << i;
       }});

  TestWindow other;
  other.setLeft(14000);  // fits on the screen, but not with twice the size
  moves = 0;
  const HHOOK hook =
      ::SetWindowsHookExW(WH_CALLWNDPROC, changeMonitor, nullptr, ::GetCurrentThreadId());
  show(other, {[&](WindowView& view) {
         ::UnhookWindowsHookEx(hook);
         const auto after = sizes(view);
         for (std::size_t i = 0; i < before.size(); ++i) EXPECT_EQ(after[i], 2 * before[i]) << i;
         RECT outside{};
         ::GetWindowRect(view.handle(), &outside);
         EXPECT_EQ(outside.right, ::GetSystemMetrics(SM_CXSCREEN));
         EXPECT_EQ(other.place().left, 14000);
       }});
}

}  // namespace
}  // namespace kvrnstep::windows
