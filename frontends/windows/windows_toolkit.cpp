#include "windows_toolkit.h"

#include "box_font.h"
#include "file_box.h"
#include "forms/user_actions.h"
#include "native_look.h"
#include "output.h"
#include "question_box.h"
#include "scale.h"
#include "text/windows/wide.h"

namespace kvrnstep::windows {

using forms::kTwipsPerPixel;

namespace {

/// Disables all other windows of this thread, the host's too, as long as it lives. Then the one
/// that was active is active again.
class Modality {
 public:
  explicit Modality(HWND window) : exempt_(window), active_(::GetActiveWindow()) {
    ::EnumThreadWindows(::GetCurrentThreadId(), disable, reinterpret_cast<LPARAM>(this));
  }
  ~Modality() {
    for (const HWND window : disabled_) ::EnableWindow(window, TRUE);
    if (::IsWindow(active_) != FALSE) ::SetActiveWindow(active_);
  }
  Modality(const Modality&) = delete;
  Modality& operator=(const Modality&) = delete;

 private:
  static BOOL CALLBACK disable(HWND window, LPARAM self) {
    auto& modality = *reinterpret_cast<Modality*>(self);
    const bool takesInput =
        ::IsWindowVisible(window) != FALSE && ::IsWindowEnabled(window) != FALSE;
    if (takesInput && window != modality.exempt_) {
      ::EnableWindow(window, FALSE);
      modality.disabled_.push_back(window);
    }
    return TRUE;
  }

  HWND exempt_;
  HWND active_;
  std::vector<HWND> disabled_;
};

double screenTwips(int metric) {
  return fromPixels(::GetSystemMetrics(metric), desktopDpi()) * kTwipsPerPixel;
}

}  // namespace

HWND WindowsToolkit::owner() {
  for (WindowView* view : open_) view->update();
  return open_.empty() ? nullptr : open_.back()->handle();
}

void WindowsToolkit::runModal(forms::Window& window) {
  const NativeLook look;
  WindowView view(window, owner());
  const forms::Attached attached(view, open_);
  const Modality modality(view.handle());
  view.show();
  waitUntilUnloaded(view);
}

void WindowsToolkit::bringToFront() {
  if (open_.empty()) return;
  for (const WindowView* view : open_) {
    if (::IsIconic(view->handle()) != FALSE) ::ShowWindow(view->handle(), SW_RESTORE);
  }
  ::SetForegroundWindow(::GetLastActivePopup(open_.back()->handle()));
}

void WindowsToolkit::waitUntilUnloaded(WindowView& view) {
  while (view.open()) {
    if (dealWithOne()) continue;
    if (attendant_ != nullptr) {
      attendant_->windowIdle(view);
    } else {
      ::WaitMessage();
    }
  }
  // If somebody else has destroyed the view's window, this one has not been closed yet.
  forms::userClosed(view.window());
}

bool WindowsToolkit::dealWithOne() {
  MSG message{};
  if (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) == FALSE) return false;
  if (message.message == WM_QUIT) {
    quit(static_cast<int>(message.wParam));
  } else if (::CallMsgFilterW(&message, MSGF_DIALOGBOX) != FALSE) {
    // The loop of the host does not run meanwhile, but the host has handled the message by its
    // hook.
  } else if (open_.empty() || !open_.back()->translates(message)) {
    ::TranslateMessage(&message);
    ::DispatchMessageW(&message);
  }
  return true;
}

/// The host ends: our window closes, and the message is posted again for the host's own loop.
void WindowsToolkit::quit(int status) {
  if (!open_.empty()) forms::userClosed(open_.back()->window());
  ::PostQuitMessage(status);
}

void WindowsToolkit::showMessage(const forms::Message& message) {
  const NativeLook look;
  const HWND over = owner();
  const UINT icon =
      message.icon == forms::MessageIcon::Information ? MB_ICONINFORMATION : MB_ICONEXCLAMATION;
  ::MessageBoxW(over, text::wide(message.text), text::wide(message.title),
                MB_OK | icon | (over == nullptr ? MB_TASKMODAL : MB_APPLMODAL));
}

std::optional<std::u16string> WindowsToolkit::ask(const forms::Question& question) {
  const NativeLook look;
  return QuestionBox(question).ask(owner());
}

std::optional<std::u16string> WindowsToolkit::ShowOpenDialog(const forms::FileDialog& dialog) {
  const NativeLook look;
  return chooseFile(Purpose::Open, dialog, owner());
}

std::optional<std::u16string> WindowsToolkit::ShowSaveDialog(const forms::FileDialog& dialog) {
  const NativeLook look;
  return chooseFile(Purpose::Save, dialog, owner());
}

void WindowsToolkit::popUp(forms::MenuEntry& menu) {
  WindowView* view = WindowView::of(menu.window());
  if (view == nullptr) return;
  view->update();
  POINT place{};
  ::GetCursorPos(&place);
  if (const auto wanted = view->menuPlace()) place = {wanted->left, wanted->top};
  const auto picked = static_cast<UINT>(::TrackPopupMenu(view->menus().menuOf(menu),
                                                         TPM_RETURNCMD | TPM_RIGHTBUTTON, place.x,
                                                         place.y, 0, view->handle(), nullptr));
  if (forms::MenuEntry* entry = view->menus().entryOf(picked)) forms::userClicked(*entry);
}

void WindowsToolkit::print(const std::u16string& text) {
  printText(text);
}

void WindowsToolkit::setBusy(bool busy) {
  // No messages are dealt with meanwhile, so nothing changes the cursor.
  ::SetCursor(::LoadCursorW(nullptr, busy ? IDC_WAIT : IDC_ARROW));
}

forms::Size WindowsToolkit::screenSize() {
  const NativeLook look;
  return {screenTwips(SM_CXSCREEN), screenTwips(SM_CYSCREEN)};
}

double WindowsToolkit::fontSize(const std::u16string& font, double points) {
  const NativeLook look;
  return boxFontSize(font, points, desktopDpi());
}

void WindowsToolkit::setClipboard(const std::u16string& text) {
  putOnClipboard(text, open_.empty() ? nullptr : open_.back()->handle());
}

void WindowsToolkit::playSound(const std::u16string& file, forms::SoundMode mode) {
  windows::playSound(file, mode);
}

}  // namespace kvrnstep::windows
