#include "headless_toolkit.h"

#include <algorithm>
#include <filesystem>
#include <utility>

#include "forms/keyboard.h"
#include "forms/user_actions.h"
#include "text/characters.h"

namespace kvrnstep::headless {

using driving::Gesture;
using forms::Control;
using forms::Kind;
using forms::ListBox;
using forms::MenuEntry;
using forms::MouseButton;
using forms::TextControl;
using forms::TextSelection;
using forms::Window;
using What = Gesture::What;

namespace {

constexpr char16_t kBackspace = u'\b';
constexpr char16_t kDelete = 0x7f;

/// Puts a text in the place of the marked part, as far as the box has room for it.
void replaceSelection(TextControl& box, std::u16string_view inserted) {
  std::u16string text = box.text();
  const TextSelection marked = box.selection();
  text.erase(marked.start, marked.length);
  if (const int limit = box.row().maxLength; limit > 0) {
    const std::size_t room = static_cast<std::size_t>(limit) -
                             std::min<std::size_t>(text.size(), static_cast<std::size_t>(limit));
    inserted = inserted.substr(0, room);
  }
  text.insert(marked.start, inserted);
  if (text == box.text()) {
    forms::userSelected(box, {marked.start + inserted.size(), 0});
  } else {
    forms::userEdited(box, std::move(text), {marked.start + inserted.size(), 0});
  }
}

/// Of the character that a text ends with: a line break and a pair of surrogates are one.
std::size_t lengthOfLast(std::u16string_view text) {
  if (text.size() < 2) return text.size();
  const auto last = text.substr(text.size() - 2);
  return last == u"\r\n" || text::isSurrogatePair(last) ? 2 : 1;
}

void eraseBeforeCaret(TextControl& box) {
  const TextSelection marked = box.selection();
  if (marked.length == 0 && marked.start == 0) return;
  if (marked.length == 0) {
    const std::size_t erased =
        lengthOfLast(std::u16string_view(box.text()).substr(0, marked.start));
    forms::userSelected(box, {marked.start - erased, erased});
  }
  replaceSelection(box, u"");
}

void typeCharacter(TextControl& box, std::u16string_view typed) {
  const char16_t character = typed.front();
  forms::userPressedKey(box, character);
  const bool lineBreak = character == u'\r' || character == u'\n';
  if (forms::userTypes(box, character) && !box.row().readOnly) {
    if (character == kBackspace) {
      eraseBeforeCaret(box);
    } else if (lineBreak) {
      if (box.row().multiLine) {
        replaceSelection(box, u"\r\n");
      } else {
        forms::userPressedCommandKey(box, forms::CommandKey::Enter);
      }
    } else if (character >= u' ' && character != kDelete) {
      replaceSelection(box, typed);
    }
  }
  forms::userReleasedKey(box.window(), character);
}

/// A name without a folder belongs to the folder that the dialog shows.
std::filesystem::path inFolder(const forms::FileDialog& dialog, const std::u16string& named) {
  return std::filesystem::path(dialog.folder) / named;
}

/// No file dialog lets a name through that the file system cannot hold.
template <class Choose>
std::optional<std::u16string> chosen(Choose choose) {
  try {
    return choose();
  } catch (const std::filesystem::filesystem_error&) {
    return std::nullopt;
  }
}

}  // namespace

void HeadlessToolkit::runModal(Window& window) {
  const Control* before = std::exchange(focus_, nullptr);
  while (!window.unloaded()) player().act();
  focus_ = before;
}

std::optional<std::u16string> HeadlessToolkit::ask(const forms::Question& /*question*/) {
  return player().answer();
}

std::optional<std::u16string> HeadlessToolkit::ShowOpenDialog(const forms::FileDialog& dialog) {
  const auto named = player().answer();
  if (!named) return std::nullopt;
  return chosen([&]() -> std::optional<std::u16string> {
    const std::filesystem::path path = inFolder(dialog, *named);
    // A file dialog does not let a name through that names no file.
    if (!std::filesystem::is_regular_file(path)) return std::nullopt;
    return path.u16string();
  });
}

std::optional<std::u16string> HeadlessToolkit::ShowSaveDialog(const forms::FileDialog& dialog) {
  const auto named = player().answer();
  if (!named || named->empty()) return std::nullopt;
  return chosen([&] {
    std::filesystem::path path = inFolder(dialog, *named);
    // Any dot begins an extension, a first one too.
    if (path.filename().u16string().find(u'.') == std::u16string::npos) {
      path += u"." + std::u16string(dialog.defaultExtension);
    }
    return path.u16string();
  });
}

void HeadlessToolkit::popUp(MenuEntry& /*menu*/) {
  popUpOpen_ = true;
  while (popUpOpen_) player().act();
}

bool HeadlessToolkit::carryOut(const Gesture& gesture) {
  Window& window = gesture.window;
  switch (gesture.what) {
    case What::Click:
    case What::RightClick:
      click(gesture);
      return true;
    case What::DoubleClick:
      doubleClick(gesture);
      return true;
    case What::Type:
      type(gesture.on<TextControl>(), gesture.text);
      return true;
    case What::Clear:
      clear(gesture.on<TextControl>());
      return true;
    case What::Select:
      enter(*gesture.control);
      forms::userSelected(gesture.on<TextControl>(), gesture.selection());
      return true;
    case What::Press:
      forms::userClicked(*gesture.control);
      return true;
    case What::Choose:
      forms::userChose(gesture.on<forms::ComboBox>(), *gesture.entry);
      return true;
    case What::SpinUp:
    case What::SpinDown:
      forms::userSpun(gesture.on<forms::Spinner>(), gesture.what == What::SpinUp);
      return true;
    case What::Drag:
      forms::userDropped(*gesture.control, *gesture.target);
      return true;
    case What::Pick:
      return pick(gesture.on<MenuEntry>());
    case What::Escape:
      return std::exchange(popUpOpen_, false);
    case What::Move:
      forms::userMoved(window, gesture.numbers[0], gesture.numbers[1]);
      return true;
    case What::Resize:
      forms::userResized(window, gesture.numbers[0], gesture.numbers[1]);
      return true;
    case What::Minimize:
    case What::Restore:
      forms::userMinimized(window, gesture.what == What::Minimize);
      return true;
    case What::Close:
      forms::userClosed(window);
      return true;
  }
  return false;
}

void HeadlessToolkit::click(const Gesture& gesture) {
  Control& control = *gesture.control;
  const bool left = gesture.what != What::RightClick;
  forms::userReleasedMouse(control, left ? MouseButton::Left : MouseButton::Right);
  if (!left) return;
  if (control.kind() == Kind::ListBox) {
    if (gesture.entry) forms::userClickedEntry(gesture.on<ListBox>(), *gesture.entry);
  } else {
    enter(control);
    forms::userClicked(control);
  }
}

void HeadlessToolkit::doubleClick(const Gesture& gesture) {
  if (gesture.control->kind() == Kind::ListBox) {
    forms::userDoubleClickedEntry(gesture.on<ListBox>(), gesture.entry.value_or(-1));
  } else {
    click(gesture);
    click(gesture);
  }
}

void HeadlessToolkit::enter(Control& control) {
  if (control.kind() == Kind::Spinner || control.kind() == Kind::Menu) return;
  const bool elsewhere = std::exchange(focus_, &control) != &control;
  if (!elsewhere || !forms::holdsText(control)) return;
  forms::userEntered(static_cast<TextControl&>(control), forms::Way::Click);
}

void HeadlessToolkit::type(TextControl& box, std::u16string_view text) {
  enter(box);
  forms::userSelected(box, {box.text().size(), 0});
  while (!text.empty() && !box.window().unloaded()) {
    typeCharacter(box, text::takeCharacter(text));
  }
}

void HeadlessToolkit::clear(TextControl& box) {
  enter(box);
  forms::userSelected(box, {0, box.text().size()});
  forms::userPressedKey(box, kDelete);
  if (!box.row().readOnly && !box.text().empty()) replaceSelection(box, u"");
  forms::userReleasedKey(box.window(), kDelete);
}

bool HeadlessToolkit::pick(MenuEntry& entry) {
  if (!entry.reachable()) return false;
  popUpOpen_ = false;
  forms::userClicked(entry);
  return true;
}

}  // namespace kvrnstep::headless
