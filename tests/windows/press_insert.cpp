// A user of the dialog from outside: waits until some program shows it and clicks on Insert, by
// the messages that a mouse would send to that button. Whoever started this program limits its
// time; no event tells of another program's windows under every system.

#include <windows.h>

#include <string_view>

namespace {

BOOL CALLBACK takeInsert(HWND child, LPARAM found) {
  wchar_t caption[16] = {};
  ::GetWindowTextW(child, caption, 16);
  if (::IsWindowVisible(child) == FALSE || std::wstring_view(caption) != L"&Insert") return TRUE;
  *reinterpret_cast<HWND*>(found) = child;
  return FALSE;
}

HWND insertButton() {
  const HWND dialog = ::FindWindowW(nullptr, L"Listwright");
  HWND button = nullptr;
  if (dialog != nullptr) ::EnumChildWindows(dialog, takeInsert, reinterpret_cast<LPARAM>(&button));
  return button;
}

}  // namespace

int main() {
  constexpr DWORD kBetween = 20;  // milliseconds
  HWND button = nullptr;
  while ((button = insertButton()) == nullptr) ::Sleep(kBetween);
  RECT inside{};
  ::GetClientRect(button, &inside);
  const LPARAM middle = MAKELPARAM(inside.right / 2, inside.bottom / 2);
  ::PostMessageW(button, WM_LBUTTONDOWN, MK_LBUTTON, middle);
  ::PostMessageW(button, WM_LBUTTONUP, 0, middle);
  // The next one to be started must not find this dialog any more.
  while (::IsWindow(button) != FALSE) ::Sleep(kBetween);
}
