#include <windows.h>
// After the other one.
#include <imm.h>

#include <atomic>
#include <string>
#include <thread>

#include "forms/toolkit.h"
#include "scale.h"
#include "test_window.h"
#include "window_class.h"

extern "C" KvrnstepFrontEnd kvrnstepFrontEnd;

// How the window behaves towards its host and on its screens.
namespace kvrnstep::windows {
namespace {

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

TEST(WindowsList, TellsWhatItDoesNotDrawWhole) {
  TestWindow window;
  const std::u16string wide(99, u'm');
  for (const auto& entry : {wide, std::u16string(u"a")})
    window.as<forms::ListBox>("list").AddItem(entry);
  show(window, {[&](WindowView& view) {
         const HWND list = view.viewOf(window.at("list")).handle();
         const auto tipAt = [&](int entry) {
           RECT place{};
           ::SendMessageW(list, LB_GETITEMRECT, static_cast<WPARAM>(entry),
                          reinterpret_cast<LPARAM>(&place));
           ::SendMessageW(list, WM_MOUSEMOVE, 0, MAKELPARAM(place.left, place.top));
           std::array<char16_t, 200> text{};
           TTTOOLINFOW tool{};
           tool.cbSize = sizeof tool;
           tool.uFlags = TTF_IDISHWND;
           tool.hwnd = view.handle();
           tool.uId = reinterpret_cast<UINT_PTR>(list);
           tool.lpszText = reinterpret_cast<wchar_t*>(text.data());
           ::SendMessageW(view.tips(), TTM_GETTEXTW, text.size(), reinterpret_cast<LPARAM>(&tool));
           return std::u16string(text.data());
         };
         EXPECT_EQ(tipAt(0), wide);
         EXPECT_EQ(tipAt(1), u"");
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
