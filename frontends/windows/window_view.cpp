#include "window_view.h"

#include <algorithm>
#include <utility>

#include "box_font.h"
#include "button_views.h"
#include "combo_view.h"
#include "command_keys.h"
#include "forms/keyboard.h"
#include "forms/user_actions.h"
#include "forms/view_sync.h"
#include "label_view.h"
#include "list_view.h"
#include "picture_views.h"
#include "resources.h"
#include "scale.h"
#include "screens.h"
#include "spinner_view.h"
#include "text/windows/wide.h"
#include "text_views.h"

namespace kvrnstep::windows {

using forms::Control;
using forms::Kind;

namespace {

constexpr UINT kLater = WM_APP + 1;

DWORD styleOf(const forms::WindowDesign& design) {
  const DWORD frame = design.resizable ? WS_THICKFRAME : 0;
  return WS_CAPTION | WS_SYSMENU | WS_MINIMIZEBOX | WS_CLIPCHILDREN | frame;
}

double scaleOf(int dpi) {
  return static_cast<double>(dpi) / kNominalDpi;
}

bool isPushButton(HWND control) {
  const auto code = ::SendMessageW(control, WM_GETDLGCODE, 0, 0);
  return (code & (DLGC_DEFPUSHBUTTON | DLGC_UNDEFPUSHBUTTON)) != 0;
}

/// The one that waits until the window has been unloaded.
void wakeLoop() {
  ::PostThreadMessageW(::GetCurrentThreadId(), WM_NULL, 0, 0);
}

/// What only decorates lies behind what is used.
bool decorates(const Control& control) {
  return control.kind() == Kind::StatusBar ||
         (control.kind() == Kind::Image && !forms::takesKeyboard(control));
}

}  // namespace

WindowView::WindowView(forms::Window& window, HWND owner)
    : ViewSync(window),
      menus_(window),
      style_(styleOf(window.design())),
      dpi_(create(owner)),
      captionFont_(windows::captionFont(dpi_)),
      tips_(handle_) {
  makeViews();
  for (const auto& control : window.controls()) viewOf(*control).announce(*names_);
  showAll(scaleOf(dpi_));
}

WindowView::~WindowView() {
  names_.reset();
  destroyViews();
  if (handle_ == nullptr) return;
  ::SetWindowLongPtrW(handle_, GWLP_USERDATA, 0);
  ::DestroyWindow(handle_);
}

/// Makes the window; its density.
int WindowView::create(HWND owner) {
  handle_ = ::CreateWindowExW(WS_EX_CONTROLPARENT, ownClass(), L"", style_, 0, 0, 0, 0, owner,
                              menus_.bar(), thisModule(), static_cast<Receiver*>(this));
  return dpiOf(handle_);
}

std::unique_ptr<forms::ControlSync> WindowView::makeView(Control& control) {
  auto made = forms::makeViewOf<ContainerView, PushButtonView, CheckBoxView, OptionButtonView,
                                ComboView, TextBoxView, SpinnerView, ListView, LabelView, ImageView,
                                StatusBarView, MenuEntryView>(*this, control);
  auto& view = static_cast<ControlView&>(*made);
  if (view.handle() != nullptr) byHandle_.emplace(view.handle(), &view);
  if (!control.row().toolTip.empty()) tips_.add(view.handle(), control.row().toolTip);
  return made;
}

ControlView& WindowView::viewOf(const Control& control) const {
  return static_cast<ControlView&>(syncOf(control));
}

ControlView* WindowView::viewAt(HWND window) const {
  const auto found = byHandle_.find(window);
  return found == byHandle_.end() ? nullptr : found->second;
}

HWND WindowView::parentFor(const Control& control) const {
  return control.container() == nullptr ? handle_ : viewOf(*control.container()).handle();
}

Control* WindowView::controlAt(POINT onScreen) const {
  for (HWND hit = ::WindowFromPoint(onScreen); hit != nullptr; hit = ::GetParent(hit)) {
    if (const ControlView* view = viewAt(hit)) return &view->control();
  }
  return nullptr;
}

void WindowView::later(ControlView& view) {
  ::PostMessageW(handle_, kLater, 0, reinterpret_cast<LPARAM>(&view));
}

void WindowView::show() {
  ::ShowWindow(handle_, SW_SHOW);
  ::SetForegroundWindow(handle_);
}

void WindowView::setBusy(bool busy) {
  busy_ = busy;
  // The cursor under a mouse that does not move is asked for by nobody.
  POINT mouse{};
  ::GetCursorPos(&mouse);
  ::SetCursorPos(mouse.x, mouse.y);
}

bool WindowView::translates(MSG& message) {
  if (message.hwnd != handle_ && ::IsChild(handle_, message.hwnd) == FALSE) return false;
  tellOf(message);
  if (menus_.accelerators() != nullptr &&
      ::TranslateAcceleratorW(handle_, menus_.accelerators(), &message) != 0) {
    return true;
  }
  if (pressed(message)) return true;
  // Enter presses the button that has the focus, and no other one.
  if (message.message == WM_KEYDOWN && message.wParam == VK_RETURN && isPushButton(message.hwnd)) {
    ::SendMessageW(message.hwnd, BM_CLICK, 0, 0);
    return true;
  }
  const HWND before = ::GetFocus();
  const bool taken = ::IsDialogMessageW(handle_, &message) != FALSE;
  if (taken && message.message == WM_KEYDOWN && ::GetFocus() != before) enteredByKey();
  return taken;
}

/// Keys go down and come up, whatever becomes of them.
void WindowView::tellOf(const MSG& message) {
  const auto code = static_cast<forms::KeyCode>(HIWORD(message.lParam)) & (KF_EXTENDED | 0xFFU);
  const bool repeated = (HIWORD(message.lParam) & KF_REPEAT) != 0;
  if (message.message == WM_KEYUP || message.message == WM_SYSKEYUP) {
    forms::userReleasedKey(window(), code);
  } else if (message.message == WM_KEYDOWN && !repeated) {
    if (const ControlView* view = viewWithKeys(message.hwnd)) {
      forms::userPressedKey(view->control(), code);
    }
  }
}

ControlView* WindowView::viewWithKeys(HWND target) const {
  const auto& all = window().controls();
  const auto found = std::ranges::find_if(all, [&](const auto& control) {
    return target != nullptr && viewOf(*control).keyTarget() == target;
  });
  return found == all.end() ? nullptr : &viewOf(**found);
}

/// Whether a key was a command, and has been carried out.
bool WindowView::pressed(const MSG& message) {
  if (const char16_t letter = letterWithAlt(message)) return activatedBy(letter);
  const auto key = commandKeyOf(message);
  const ControlView* view = viewWithKeys(message.hwnd);
  if (!key || view == nullptr || view->usesKeys()) return false;
  menuPlace_ = view->menuPlace();
  const bool dealtWith = forms::userPressedCommandKey(view->control(), *key);
  menuPlace_.reset();
  return dealtWith;
}

/// The system's labels lead on to the next control; ours are clicked.
bool WindowView::activatedBy(char16_t letter) {
  for (const auto& control : window().controls()) {
    if (!forms::takesKeyboard(*control) || !control->reachable()) continue;
    if (forms::mnemonicOf(*control) != letter) continue;
    forms::userActivated(*control);
    return true;
  }
  return false;
}

POINT WindowView::menuPlace() const {
  if (menuPlace_) return *menuPlace_;
  POINT mouse{};
  ::GetCursorPos(&mouse);
  return mouse;
}

void WindowView::enteredByKey() {
  const ControlView* view = viewWithKeys(::GetFocus());
  if (view == nullptr) return;
  Control& control = view->control();
  if (forms::holdsText(control)) {
    forms::userEntered(static_cast<forms::TextControl&>(control), forms::Way::Tab);
  } else if (control.kind() == Kind::OptionButton) {
    // On some systems an arrow key leads to an option without choosing it.
    if (!static_cast<forms::OptionButton&>(control).value()) forms::userClicked(control);
  }
}

LRESULT WindowView::received(HWND window, UINT message, WPARAM wide, LPARAM longer) {
  if (const auto answer = reflected(message, wide, longer)) return *answer;
  if (message == WM_NCCREATE && handle_ == nullptr) handle_ = window;
  // The grounds of containers have nothing of their own to say.
  if (window != handle_) return ::DefWindowProcW(window, message, wide, longer);
  return receivedByWindow(message, wide, longer);
}

/// What controls tell their parent goes back to their views.
std::optional<LRESULT> WindowView::reflected(UINT message, WPARAM wide, LPARAM longer) {
  switch (message) {
    case WM_COMMAND:
      if (ControlView* view = viewAt(reinterpret_cast<HWND>(longer))) {
        view->commanded(HIWORD(wide));
        return 0;
      }
      break;
    case WM_NOTIFY: {
      const auto& notification = *reinterpret_cast<const NMHDR*>(longer);
      if (ControlView* view = viewAt(notification.hwndFrom)) return view->notified(notification);
      break;
    }
    case WM_CTLCOLOREDIT:
    case WM_CTLCOLORSTATIC:
      if (ControlView* view = viewAt(reinterpret_cast<HWND>(longer))) {
        const HBRUSH brush = view->colored(reinterpret_cast<HDC>(wide));
        if (brush != nullptr) return reinterpret_cast<LRESULT>(brush);
      }
      break;
    case WM_DRAWITEM: {
      const auto& request = *reinterpret_cast<const DRAWITEMSTRUCT*>(longer);
      if (ControlView* view = viewAt(request.hwndItem)) {
        view->drawn(request);
        return TRUE;
      }
      break;
    }
    default:
      break;
  }
  return std::nullopt;
}

LRESULT WindowView::receivedByWindow(UINT message, WPARAM wide, LPARAM longer) {
  switch (message) {
    case WM_COMMAND:
      commanded(LOWORD(wide));
      return 0;
    case WM_CLOSE:
      forms::userClosed(window());
      return 0;
    case WM_ENDSESSION:
      // The process may end as soon as this returns; what is to be kept is kept now.
      if (wide != FALSE) forms::userClosed(window());
      return 0;
    case WM_NCDESTROY:
      // Somebody else destroys the window.
      ::SetWindowLongPtrW(std::exchange(handle_, nullptr), GWLP_USERDATA, 0);
      close();
      wakeLoop();
      return 0;
    case WM_ACTIVATE:
      if (HIWORD(wide) == 0) activated(LOWORD(wide) != WA_INACTIVE);
      return 0;
    case WM_ENTERMENULOOP:
      forms::userLeft(window());
      return 0;
    case WM_NEXTDLGCTL:
      // The arrow keys have found where they lead.
      if (LOWORD(longer) != 0) ::SetFocus(reinterpret_cast<HWND>(wide));
      return 0;
    case WM_MOVE:
      reportMove();
      return 0;
    case WM_SIZE:
      reportSize(wide);
      return 0;
    case WM_GETMINMAXINFO:
      limitSize(*reinterpret_cast<MINMAXINFO*>(longer));
      return 0;
    case WM_SETCURSOR:
      if (!busy_) break;
      ::SetCursor(::LoadCursorW(nullptr, IDC_WAIT));
      return TRUE;
    case WM_DPICHANGED:
      rescale(HIWORD(wide), *reinterpret_cast<const RECT*>(longer));
      return 0;
    case WM_SYSCOLORCHANGE:
    case WM_THEMECHANGED:
      recolor(message, wide, longer);
      break;
    case kLater:
      reinterpret_cast<ControlView*>(longer)->afterwards();
      return 0;
    default:
      break;
  }
  return ::DefWindowProcW(handle_, message, wide, longer);
}

void WindowView::commanded(UINT command) {
  if (forms::MenuEntry* entry = menus_.entryOf(command)) forms::userClicked(*entry);
}

void WindowView::updateBegins() {
  focusBefore_ = ::GetFocus();
}

void WindowView::setTitle(const std::u16string& caption) {
  showText(handle_, caption);
}

void WindowView::setInnerSize(forms::PixelSize size) {
  SIZE outside = outsideOf({size.width, size.height}, style_, menus_.bar() != nullptr, dpi_);
  const auto resize = [&] {
    ::SetWindowPos(handle_, nullptr, 0, 0, outside.cx, outside.cy,
                   SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
  };
  resize();
  RECT now{};
  ::GetClientRect(handle_, &now);
  if (now.bottom == size.height) return;
  // The menu bar needs more lines than one, or the frame is another one than was foretold.
  outside.cy += size.height - now.bottom;
  resize();
}

std::vector<forms::Rect> WindowView::screens() const {
  return windows::screens();
}

forms::PixelSize WindowView::frameSize() const {
  RECT frame{};
  ::GetWindowRect(handle_, &frame);
  return {static_cast<int>(frame.right - frame.left), static_cast<int>(frame.bottom - frame.top)};
}

double WindowView::desktopScale() const {
  return scaleOf(desktopDpi());
}

void WindowView::setPosition(forms::PixelPoint position) {
  ::SetWindowPos(handle_, nullptr, position.left, position.top, 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

/// The system leads Tab from the front to the back, so what lies in front is what comes first.
void WindowView::setTabOrder(const std::vector<Control*>& order) {
  std::vector<Control*> sorted = order;
  std::ranges::stable_sort(sorted, {}, [](const Control* control) {
    if (decorates(*control)) return 1;
    return control->reachable() ? 0 : 2;
  });
  std::vector<HWND> depth;
  depth.reserve(sorted.size());
  for (const Control* control : sorted) depth.push_back(viewOf(*control).handle());
  if (depth_ == depth) return;
  depth_ = std::move(depth);
  std::unordered_map<HWND, HWND> lastIn;
  for (const HWND control : depth_) {
    HWND& last = lastIn[::GetParent(control)];
    ::SetWindowPos(control, last == nullptr ? HWND_TOP : last, 0, 0, 0, 0,
                   SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    last = control;
  }
}

bool WindowView::holdsKeys(HWND control) const {
  return control != nullptr && ::IsChild(handle_, control) != FALSE &&
         ::IsWindowVisible(control) != FALSE && ::IsWindowEnabled(control) != FALSE;
}

/// Where Tab leads from a control, whether or not that can still be reached; from nowhere, to the
/// first one.
HWND WindowView::stopAfter(HWND before) const {
  std::vector<Control*> order = forms::tabOrder(window());
  const auto held = std::ranges::find_if(order, [&](const Control* control) {
    return before != nullptr && viewOf(*control).keyTarget() == before;
  });
  if (held != order.end()) std::rotate(order.begin(), held + 1, order.end());
  const auto next = std::ranges::find_if(order, [&](const Control* control) {
    return control->reachable() && forms::takesFocus(*control);
  });
  return next == order.end() ? nullptr : viewOf(**next).keyTarget();
}

void WindowView::giveKeyboard(const Control* control) {
  if (control != nullptr) {
    lastFocus_ = viewOf(*control).keyTarget();
    if (::GetActiveWindow() == handle_) ::SetFocus(lastFocus_);
    return;
  }
  // Keys must not go to what has just been disabled or hidden.
  if (::GetActiveWindow() == handle_ && !holdsKeys(::GetFocus())) {
    ::SetFocus(stopAfter(focusBefore_));
  }
}

std::optional<int> WindowView::findEntry(const forms::ListBox& list, const std::u16string& text) {
  auto& view = static_cast<ListView&>(viewOf(list));
  view.applyChanges();
  return view.find(text);
}

void WindowView::vanish() {
  wakeLoop();
}

void WindowView::activated(bool active) {
  if (!active) {
    forms::userLeft(window());
    lastFocus_ = ::GetFocus();
  } else {
    ::SetFocus(holdsKeys(lastFocus_) ? lastFocus_ : stopAfter(nullptr));
  }
}

void WindowView::reportMove() {
  if (::IsWindowVisible(handle_) == FALSE || ::IsIconic(handle_) != FALSE) return;
  RECT now{};
  ::GetWindowRect(handle_, &now);
  movedTo({static_cast<int>(now.left), static_cast<int>(now.top)}, true);
}

void WindowView::reportSize(WPARAM kind) {
  if (::IsWindowVisible(handle_) == FALSE) return;
  minimizedTo(kind == SIZE_MINIMIZED);
  if (kind == SIZE_MINIMIZED) return;
  RECT now{};
  ::GetClientRect(handle_, &now);
  resizedTo({static_cast<int>(now.right), static_cast<int>(now.bottom)});
}

void WindowView::limitSize(MINMAXINFO& limits) const {
  if (!window().design().resizable) {
    // The system would cut off what does not fit on the screen, and nobody could pull it there.
    limits.ptMaxTrackSize = {SHRT_MAX, SHRT_MAX};
    return;
  }
  const forms::PixelSize inside = smallestInnerSize();
  const SIZE outside =
      outsideOf({inside.width, inside.height}, style_, menus_.bar() != nullptr, dpi_);
  limits.ptMinTrackSize = {outside.cx, outside.cy};
}

void WindowView::rescale(int dpi, const RECT& proposed) {
  dpi_ = dpi;
  // The old font is in use until all have the new one.
  const Font before = std::exchange(captionFont_, windows::captionFont(dpi_));
  for (const auto& control : window().controls()) viewOf(*control).rescale();
  ::SetWindowPos(handle_, nullptr, proposed.left, proposed.top, 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
  rescaledTo(scaleOf(dpi_));
}

void WindowView::recolor(UINT message, WPARAM wide, LPARAM longer) {
  for (const auto& [handle, view] : byHandle_) ::SendMessageW(handle, message, wide, longer);
  recolored();
}

}  // namespace kvrnstep::windows
