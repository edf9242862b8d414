// A user of the dialog from outside: waits until some program shows it and clicks on Insert, by
// the messages that a mouse would send to that button.

#include <windows.h>

#include <string>

namespace {

std::wstring captionOf(HWND window) {
  std::wstring text(static_cast<std::size_t>(::GetWindowTextLengthW(window)) + 1, L'\0');
  text.resize(static_cast<std::size_t>(
      ::GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
  std::erase(text, L'&');
  return text;
}

BOOL CALLBACK takeInsert(HWND child, LPARAM found) {
  const bool wanted = ::IsWindowVisible(child) != FALSE && captionOf(child) == L"Insert";
  if (wanted) *reinterpret_cast<HWND*>(found) = child;
  return wanted ? FALSE : TRUE;
}

HWND insertButton() {
  const HWND dialog = ::FindWindowW(nullptr, L"Listwright");
  HWND button = nullptr;
  if (dialog != nullptr && ::IsWindowVisible(dialog) != FALSE) {
    ::EnumChildWindows(dialog, takeInsert, reinterpret_cast<LPARAM>(&button));
  }
  return button;
}

/// Each event of a window that appears may be the one.
void CALLBACK wakeUp(HWINEVENTHOOK, DWORD, HWND, LONG, LONG, DWORD, DWORD) {
  ::PostThreadMessageW(::GetCurrentThreadId(), WM_NULL, 0, 0);
}

}  // namespace

int main() {
  const HWINEVENTHOOK hook = ::SetWinEventHook(EVENT_OBJECT_SHOW, EVENT_OBJECT_SHOW, nullptr,
                                               wakeUp, 0, 0, WINEVENT_OUTOFCONTEXT);
  if (hook == nullptr) return 1;
  HWND button = insertButton();
  for (MSG message; button == nullptr && ::GetMessageW(&message, nullptr, 0, 0) > 0;) {
    ::DispatchMessageW(&message);
    button = insertButton();
  }
  ::UnhookWinEvent(hook);
  RECT inside{};
  ::GetClientRect(button, &inside);
  const LPARAM middle = MAKELPARAM(inside.right / 2, inside.bottom / 2);
  ::PostMessageW(button, WM_LBUTTONDOWN, MK_LBUTTON, middle);
  ::PostMessageW(button, WM_LBUTTONUP, 0, middle);
  return 0;
}
