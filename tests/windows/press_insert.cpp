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

/// Asks again and again until the condition holds; no event tells of another program's windows
/// under every system. Whoever started this program limits its time.
template <class Condition>
void waitUntil(Condition condition) {
  constexpr DWORD kBetween = 20;  // milliseconds
  while (!condition()) ::Sleep(kBetween);
}

}  // namespace

int main() {
  HWND button = nullptr;
  waitUntil([&] { return (button = insertButton()) != nullptr; });
  RECT inside{};
  ::GetClientRect(button, &inside);
  const LPARAM middle = MAKELPARAM(inside.right / 2, inside.bottom / 2);
  ::PostMessageW(button, WM_LBUTTONDOWN, MK_LBUTTON, middle);
  ::PostMessageW(button, WM_LBUTTONUP, 0, middle);
  // The next one to be started must not find this dialog any more.
  waitUntil([&] { return ::IsWindow(button) == FALSE; });
}
