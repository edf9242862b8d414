#include "window_view.h"

#include <algorithm>
#include <utility>

#include "box_font.h"
#include "button_views.h"
#include "command_keys.h"
#include "forms/keyboard.h"
#include "forms/user_actions.h"
#include "forms/view_sync.h"
#include "list_views.h"
#include "picture_views.h"
#include "resources.h"
#include "scale.h"
#include "spinner_view.h"
#include "text/windows/wide.h"
#include "text_views.h"
#include "tool_tips.h"

namespace kvrnstep::windows {

using forms::Control;
using forms::Kind;

namespace {

DWORD styleOf(const forms::WindowDesign& design) {
  const DWORD frame = design.resizable ? WS_THICKFRAME : 0;
  return WS_CAPTION | WS_SYSMENU | WS_MINIMIZEBOX | WS_CLIPCHILDREN | frame;
}

/// A window over one that is always on top would be behind it otherwise.
DWORD layerOverActive() {
  const HWND host = ::GetAncestor(::GetActiveWindow(), GA_ROOTOWNER);
  return static_cast<DWORD>(::GetWindowLongPtrW(host, GWL_EXSTYLE)) & WS_EX_TOPMOST;
}

double scaleOf(int dpi) {
  return static_cast<double>(dpi) / kNominalDpi;
}

bool isPushButton(HWND control) {
  const auto code = ::SendMessageW(control, WM_GETDLGCODE, 0, 0);
  return (code & (DLGC_DEFPUSHBUTTON | DLGC_UNDEFPUSHBUTTON)) != 0;
}

/// Ends the wait of the loop that runs while the window is open.
void wakeLoop() {
  ::PostThreadMessageW(::GetCurrentThreadId(), WM_NULL, 0, 0);
}

/// Whether the user can only look at the control.
bool decorates(const Control& control) {
  return control.kind() == Kind::StatusBar ||
         (control.kind() == Kind::Image && !forms::takesKeyboard(control));
}

/// The control that has sent a message to its parent; null for messages of other kinds.
HWND tellerIn(UINT message, LPARAM longer) {
  switch (message) {
    case WM_COMMAND:
    case WM_CTLCOLOREDIT:
    case WM_CTLCOLORSTATIC:
      return reinterpret_cast<HWND>(longer);
    case WM_NOTIFY:
      return reinterpret_cast<const NMHDR*>(longer)->hwndFrom;
    case WM_DRAWITEM:
      return reinterpret_cast<const DRAWITEMSTRUCT*>(longer)->hwndItem;
    default:
      return nullptr;
  }
}

}  // namespace

WindowView::WindowView(forms::Window& window, HWND owner)
    : ViewSync(window),
      menus_(window),
      style_(styleOf(window.design())),
      dpi_(create(owner)),
      captionFont_(windows::captionFont(dpi_)),
      tips_(toolTipsOf(handle())) {
  makeViews();
  for (const auto& control : window.controls()) names_->announce(viewOf(*control));
  showAll(scaleOf(dpi_));
}

WindowView::~WindowView() {
  names_.reset();
  destroyViews();
  ::DestroyWindow(release());
}

/// Makes the window and returns its dots per inch.
int WindowView::create(HWND owner) {
  adopt(::CreateWindowExW(WS_EX_CONTROLPARENT | layerOverActive(), ownClass(), L"", style_, 0, 0, 0,
                          0, owner, menus_.bar(), thisModule(), nullptr));
  return static_cast<int>(::GetDpiForWindow(handle()));
}

std::unique_ptr<forms::ControlSync> WindowView::makeView(Control& control) {
  using forms::Draws;
  auto made = forms::makeViewOf<
      Draws<ContainerView, Control, Kind::Frame, Kind::Panel>,
      Draws<ButtonView, Control, Kind::Button, Kind::CheckBox, Kind::OptionButton>,
      Draws<ComboView, forms::ComboBox, Kind::ComboBox>,
      Draws<TextBoxView, forms::TextBox, Kind::TextBox>,
      Draws<SpinnerView, forms::Spinner, Kind::Spinner>,
      Draws<ListView, forms::ListBox, Kind::ListBox>, Draws<LabelView, Control, Kind::Label>,
      Draws<ImageView, Control, Kind::Image>, Draws<StatusBarView, Control, Kind::StatusBar>,
      Draws<MenuEntryView, forms::MenuEntry, Kind::Menu>>(*this, control);
  auto& view = static_cast<ControlView&>(*made);
  for (const HWND window : {view.handle(), view.keyTarget()}) {
    if (window != nullptr) byHandle_.emplace(window, &view);
  }
  if (!control.row().toolTip.empty() || control.kind() == Kind::ListBox) {
    addToolTip(tips_.get(), view.handle(), control.row().toolTip);
  }
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
  return control.container() == nullptr ? handle() : viewOf(*control.container()).handle();
}

Control* WindowView::controlAt(POINT onScreen) const {
  for (HWND hit = ::WindowFromPoint(onScreen); hit != nullptr; hit = ::GetParent(hit)) {
    if (const ControlView* view = viewAt(hit)) return &view->control();
  }
  return nullptr;
}

void WindowView::show() {
  // The control that has the keyboard is marked from the first moment on, also if the user has used
  // the mouse.
  ::SendMessageW(handle(), WM_CHANGEUISTATE, MAKEWPARAM(UIS_CLEAR, UISF_HIDEFOCUS), 0);
  ::ShowWindow(handle(), SW_SHOW);
  ::SetForegroundWindow(handle());
}

bool WindowView::translates(MSG& message) {
  if (message.hwnd != handle() && ::IsChild(handle(), message.hwnd) == FALSE) return false;
  tellOf(message);
  if (::TranslateAcceleratorW(handle(), menus_.accelerators(), &message) != 0) return true;
  if (pressed(message)) return true;
  // IsDialogMessage would look for a default button, and there is none.
  if (message.message == WM_KEYDOWN && message.wParam == VK_RETURN && isPushButton(message.hwnd)) {
    ::SendMessageW(message.hwnd, BM_CLICK, 0, 0);
    return true;
  }
  const HWND before = ::GetFocus();
  const bool taken = ::IsDialogMessageW(handle(), &message) != FALSE;
  if (taken && message.message == WM_KEYDOWN && ::GetFocus() != before) enteredByKey();
  return taken;
}

/// Reports keys that are pressed and released to the window, whatever handles them.
void WindowView::tellOf(const MSG& message) {
  const auto code = static_cast<forms::KeyCode>(HIWORD(message.lParam)) & (KF_EXTENDED | 0xFFU);
  const bool repeated = (HIWORD(message.lParam) & KF_REPEAT) != 0;
  if (message.message == WM_KEYUP || message.message == WM_SYSKEYUP) {
    forms::userReleasedKey(window(), code);
  } else if (message.message == WM_KEYDOWN && !repeated) {
    if (const ControlView* view = viewAt(message.hwnd)) {
      forms::userPressedKey(view->control(), code);
    }
  }
}

/// True when a key was a command that has been carried out.
bool WindowView::pressed(const MSG& message) {
  // The system would give the focus to the control behind a label.
  if (const char16_t letter = letterWithAlt(message)) {
    return forms::userPressedLetter(window(), letter);
  }
  const ControlView* view = viewAt(message.hwnd);
  return view != nullptr && ViewSync::pressed(*view, commandKeyOf(message));
}

void WindowView::enteredByKey() {
  const ControlView* view = viewAt(::GetFocus());
  if (view == nullptr) return;
  Control& control = view->control();
  if (forms::holdsText(control)) {
    forms::userEntered(static_cast<forms::TextControl&>(control), forms::Way::Tab);
  } else if (control.kind() == Kind::OptionButton) {
    // It has moved the focus without selecting the option.
    if (!static_cast<forms::OptionButton&>(control).value()) forms::userClicked(control);
  }
}

std::optional<LRESULT> WindowView::reflected(UINT message, WPARAM wide, LPARAM longer) {
  ControlView* view = viewAt(tellerIn(message, longer));
  return view == nullptr ? std::nullopt : view->told(message, wide, longer);
}

LRESULT WindowView::received(UINT message, WPARAM wide, LPARAM longer) {
  if (const auto answer = reflected(message, wide, longer)) return *answer;
  switch (message) {
    case WM_COMMAND:
      if (forms::MenuEntry* entry = menus_.entryOf(LOWORD(wide))) forms::userClicked(*entry);
      return 0;
    case WM_CLOSE:
      forms::userClosed(window());
      return 0;
    case WM_ENDSESSION:
      // The process may end as soon as this returns, so the settings are saved now.
      if (wide != FALSE) forms::userClosed(window());
      return 0;
    case WM_NCDESTROY:
      // Something else destroys the window.
      close();
      wakeLoop();
      return ::DefWindowProcW(release(), message, wide, longer);
    case WM_ACTIVATE:
      if (HIWORD(wide) == 0) activated(LOWORD(wide) != WA_INACTIVE);
      return 0;
    case WM_ENTERMENULOOP:
      forms::userLeft(window());
      return 0;
    case WM_NEXTDLGCTL:
      // IsDialogMessage asks for the focus to move.
      if (LOWORD(longer) != 0) ::SetFocus(reinterpret_cast<HWND>(wide));
      return 0;
    case WM_WINDOWPOSCHANGED:
      reportPlace();
      return 0;
    case WM_GETMINMAXINFO:
      limitSize(*reinterpret_cast<MINMAXINFO*>(longer));
      return 0;
    case WM_DPICHANGED:
      rescale(HIWORD(wide), *reinterpret_cast<const RECT*>(longer));
      return 0;
    case WM_SYSCOLORCHANGE:
    case WM_THEMECHANGED:
      for (const auto& [handle, view] : byHandle_) ::SendMessageW(handle, message, wide, longer);
      recolored();
      break;
    default:
      break;
  }
  return Receiver::received(message, wide, longer);
}

void WindowView::updateBegins() {
  focusBefore_ = ::GetFocus();
}

void WindowView::setTitle(const std::u16string& caption) {
  ::SetWindowTextW(handle(), text::wide(caption));
}

void WindowView::setInnerSize(forms::PixelSize size) {
  setFrame(size, nullptr);
}

/// @param corner where the window is to be from now on; null: where it is
void WindowView::setFrame(forms::PixelSize size, const POINT* corner) {
  SIZE outside = outsideOf({size.width, size.height}, style_, menus_.bar() != nullptr, dpi_);
  const POINT at = corner == nullptr ? POINT{} : *corner;
  const auto resize = [&] {
    ::SetWindowPos(handle(), nullptr, at.x, at.y, outside.cx, outside.cy,
                   (corner == nullptr ? SWP_NOMOVE : 0) | SWP_NOZORDER | SWP_NOACTIVATE);
  };
  resize();
  RECT now{};
  ::GetClientRect(handle(), &now);
  if (now.bottom == size.height) return;
  // The menu bar has more than one line, or the frame is not the predicted one.
  outside.cy += size.height - now.bottom;
  resize();
}

std::vector<forms::Rect> WindowView::screens() const {
  return windows::screens();
}

forms::PixelSize WindowView::frameSize() const {
  RECT frame{};
  ::GetWindowRect(handle(), &frame);
  return {static_cast<int>(frame.right - frame.left), static_cast<int>(frame.bottom - frame.top)};
}

double WindowView::desktopScale() const {
  return scaleOf(desktopDpi());
}

void WindowView::setPosition(forms::PixelPoint position) {
  ::SetWindowPos(handle(), nullptr, position.left, position.top, 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

/// Tab goes from the front to the back, so the controls are stacked in its order. Those that can't
/// be reached come last, so that they never cover others.
void WindowView::setTabOrder(const std::vector<Control*>& order) {
  if (const HWND held = ::GetFocus(); selectedFor(held) != held) ::SetFocus(selectedFor(held));
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

/// The selected option of the group that this one belongs to; any other window itself.
HWND WindowView::selectedFor(HWND held) const {
  const ControlView* view = viewAt(held);
  if (view == nullptr || view->control().kind() != Kind::OptionButton) return held;
  const Control* selected = window().findIf([&](const Control& other) {
    return other.kind() == Kind::OptionButton && forms::takesFocus(other) &&
           other.container() == view->control().container();
  });
  return selected == nullptr ? held : viewOf(*selected).handle();
}

bool WindowView::holdsKeys(HWND control) const {
  return control != nullptr && ::IsChild(handle(), control) != FALSE &&
         ::IsWindowVisible(control) != FALSE && ::IsWindowEnabled(control) != FALSE;
}

/// Where Tab leads from a window, even if that can no longer be reached; from null, to the first
/// control.
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
    if (::GetActiveWindow() == handle()) ::SetFocus(lastFocus_);
    return;
  }
  // A control that has just been disabled or hidden would go on getting the keys.
  if (::GetActiveWindow() == handle() && !holdsKeys(::GetFocus())) {
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
    ::SetFocus(holdsKeys(lastFocus_) ? selectedFor(lastFocus_) : stopAfter(nullptr));
  }
}

void WindowView::reportPlace() {
  if (::IsWindowVisible(handle()) == FALSE) return;
  const bool minimized = ::IsIconic(handle()) != FALSE;
  minimizedTo(minimized);
  if (minimized) return;
  RECT frame{};
  ::GetWindowRect(handle(), &frame);
  movedTo({static_cast<int>(frame.left), static_cast<int>(frame.top)}, true);
  RECT inside{};
  ::GetClientRect(handle(), &inside);
  resizedTo({static_cast<int>(inside.right), static_cast<int>(inside.bottom)});
}

void WindowView::limitSize(MINMAXINFO& limits) const {
  if (!window().design().resizable) {
    // The system would make the window as small as the screen, and it has no border to size it by.
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
  // The controls use the old font until all have the new one.
  const Font before = std::exchange(captionFont_, windows::captionFont(dpi_));
  for (const auto& control : window().controls()) viewOf(*control).rescale();
  rescaledTo(scaleOf(dpi_));
  // At once, because with its old size the window may be back on the other monitor there.
  const POINT corner{proposed.left, proposed.top};
  setFrame(innerSize(), &corner);
  update();
}

}  // namespace kvrnstep::windows
