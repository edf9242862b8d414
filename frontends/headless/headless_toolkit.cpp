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
  if (const auto limit = static_cast<std::size_t>(box.row().maxLength); limit > 0) {
    inserted = inserted.substr(0, limit - std::min(text.size(), limit));
  }
  text.insert(marked.start, inserted);
  const TextSelection caret{marked.start + inserted.size(), 0};
  if (text == box.text()) {
    forms::userSelected(box, caret);
  } else {
    forms::userEdited(box, std::move(text), caret);
  }
}

/// The units of the last character of a text; a line break and a pair of surrogates count as one.
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
  // Delete types no character.
  const bool types = character == kDelete || forms::userTypes(box, character);
  if (types && !box.row().readOnly) {
    if (character == kBackspace) {
      eraseBeforeCaret(box);
    } else if (character == u'\r' || character == u'\n') {
      if (box.row().multiLine) {
        replaceSelection(box, u"\r\n");
      } else {
        forms::userPressedCommandKey(box, forms::CommandKey::Enter);
      }
    } else if (character == kDelete) {
      if (box.selection().length > 0) replaceSelection(box, u"");
    } else if (character >= u' ') {
      replaceSelection(box, typed);
    }
  }
  forms::userReleasedKey(box.window(), character);
}

/// A name without a folder belongs to the folder that the dialog shows. Nothing for a name that the
/// file system cannot hold.
std::optional<std::filesystem::path> named(const forms::FileDialog& dialog,
                                           const std::optional<std::u16string>& name) {
  if (!name || name->empty()) return std::nullopt;
  try {
    return std::filesystem::path(dialog.folder) / *name;
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
  const auto path = named(dialog, player().answer());
  // A file dialog does not let a name through that names no file.
  std::error_code failed;
  if (!path || !std::filesystem::is_regular_file(*path, failed)) return std::nullopt;
  return path->u16string();
}

std::optional<std::u16string> HeadlessToolkit::ShowSaveDialog(const forms::FileDialog& dialog) {
  const auto path = named(dialog, player().answer());
  if (!path) return std::nullopt;
  // Any dot begins an extension, a first one too.
  const bool extended = path->filename().u16string().find(u'.') != std::u16string::npos;
  return path->u16string() + (extended ? u"" : u"." + std::u16string(dialog.defaultExtension));
}

void HeadlessToolkit::popUp(MenuEntry& /*menu*/) {
  popUpOpen_ = true;
  while (popUpOpen_) player().act();
}

bool HeadlessToolkit::carryOut(const Gesture& gesture) {
  Window& window = gesture.window;
  switch (gesture.what) {
    case What::DoubleClick:
      if (gesture.control->kind() == Kind::ListBox) {
        forms::userDoubleClickedEntry(gesture.on<ListBox>(), gesture.entry.value_or(-1));
        return true;
      }
      click(gesture);
      forms::userDoubleClicked(*gesture.control);
      [[fallthrough]];
    case What::Click:
    case What::RightClick:
      click(gesture);
      return true;
    case What::Type: {
      auto& box = gesture.on<TextControl>();
      type(box, {box.text().size(), 0}, gesture.text);
      return true;
    }
    case What::Clear: {
      auto& box = gesture.on<TextControl>();
      type(box, {0, box.text().size()}, std::u16string_view(&kDelete, 1));
      return true;
    }
    case What::Select:
      type(gesture.on<TextControl>(), gesture.selection(), u"");
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
      popUpOpen_ = false;
      forms::userClicked(*gesture.control);
      return true;
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
  if (left && control.kind() != Kind::ListBox) enter(control);
  forms::userReleasedMouse(control, left ? MouseButton::Left : MouseButton::Right);
  if (!left || forms::takesKeyboard(control)) return;
  if (control.kind() != Kind::ListBox) return forms::userClicked(control);
  if (gesture.entry) forms::userClickedEntry(gesture.on<ListBox>(), *gesture.entry);
}

void HeadlessToolkit::enter(Control& control) {
  if (control.kind() == Kind::Spinner || control.kind() == Kind::Menu) return;
  const bool elsewhere = std::exchange(focus_, &control) != &control;
  if (!elsewhere || !forms::holdsText(control)) return;
  forms::userEntered(static_cast<TextControl&>(control), forms::Way::Click);
}

void HeadlessToolkit::type(TextControl& box, TextSelection selection, std::u16string_view text) {
  enter(box);
  forms::userSelected(box, selection);
  while (!text.empty() && !box.window().unloaded()) {
    typeCharacter(box, text::takeCharacter(text));
  }
}

}  // namespace kvrnstep::headless
