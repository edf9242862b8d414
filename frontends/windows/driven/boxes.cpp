#include "boxes.h"

#include <array>
#include <string_view>
#include <utility>

#include "user_input.h"

namespace kvrnstep::windows {

namespace {

constexpr int kFileName = 0x0480;       // of the dialog's own line
constexpr int kFileNameCombo = 0x047C;  // … and of the one with a list

bool isDialog(HWND window) {
  constexpr std::wstring_view kDialogClass = L"#32770";
  std::array<wchar_t, kDialogClass.size() + 2> name{};
  ::GetClassNameW(window, name.data(), static_cast<int>(name.size()));
  return name.data() == kDialogClass;
}

BOOL CALLBACK takeDialog(HWND window, LPARAM found) {
  const bool waits = ::IsWindowVisible(window) != FALSE && ::IsWindowEnabled(window) != FALSE;
  if (!waits || !isDialog(window)) return TRUE;
  *reinterpret_cast<HWND*>(found) = window;
  return FALSE;
}

/// The box that waits for its user; null while there is none.
HWND openBox() {
  HWND found = nullptr;
  ::EnumThreadWindows(::GetCurrentThreadId(), takeDialog, reinterpret_cast<LPARAM>(&found));
  return found;
}

HWND firstButton(HWND box) {
  HWND button = nullptr;
  do {
    button = ::FindWindowExW(box, button, L"Button", nullptr);
  } while (button != nullptr && ::IsWindowVisible(button) == FALSE);
  return button;
}

/// The one that lets things take their course.
void agree(HWND box) {
  const HWND yes = ::GetDlgItem(box, IDYES);
  const bool asks = yes != nullptr && ::IsWindowVisible(yes) != FALSE;
  clickOn(asks ? yes : firstButton(box));
}

void close(HWND box, bool accepted) {
  if (::GetForegroundWindow() != box) ::SetForegroundWindow(box);
  pressKey(accepted ? VK_RETURN : VK_ESCAPE);
}

HWND lineOf(HWND fileBox) {
  const HWND line = ::GetDlgItem(fileBox, kFileName);
  if (line != nullptr) return line;
  const HWND combo = ::GetDlgItem(fileBox, kFileNameCombo);
  if (combo == nullptr) return nullptr;
  const HWND inner = ::FindWindowExW(combo, nullptr, L"ComboBox", nullptr);
  return ::FindWindowExW(inner != nullptr ? inner : combo, nullptr, L"Edit", nullptr);
}

void replaceText(HWND line, const std::u16string& text) {
  clickOn(line);
  pressKey(VK_HOME);
  pressKey(VK_END, VK_SHIFT);
  if (text.empty()) pressKey(VK_DELETE);
  typeCharacters(text);
}

}  // namespace

// A tick comes when all input before it has been dealt with. A box that is still open then has not
// noticed its key, as happens while it opens, and gets it again. The key comes up when the box has
// closed, wherever the keyboard is by then.

void MessageReader::act() {
  if (const HWND box = openBox()) close(box, true);
}

void QuestionAnswerer::act() {
  const HWND box = openBox();
  if (box == nullptr) return;
  if (!std::exchange(asked_, true)) {
    const auto answer = answer_();
    leaves_ = !answer;
    // The proposal is marked and waits to be replaced.
    if (answer && answer->empty()) pressKey(VK_DELETE);
    if (answer) typeCharacters(*answer);
  }
  close(box, !leaves_);
}

void FileNamer::act() {
  const HWND box = openBox();
  if (box == nullptr) return;
  if (box_ == nullptr) name(box);
  if (box == box_) {
    close(box_, !leaves_);
  } else {
    leaves_ = true;
    agree(box);
  }
}

void FileNamer::name(HWND box) {
  box_ = box;
  const auto answer = answer_();
  // The box takes no empty name and says nothing: whoever has none leaves.
  leaves_ = !answer || answer->empty();
  if (leaves_) return;
  if (const HWND line = lineOf(box_)) replaceText(line, *answer);
}

}  // namespace kvrnstep::windows
