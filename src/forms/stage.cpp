#include "forms/stage.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "forms/user_actions.h"
#include "text/numbers.h"
#include "text/text.h"

namespace kvrnstep::forms {

namespace {

using Outcome = Stage::Outcome;
using Reply = Stage::Reply;

Reply wrong(std::string reason) {
  return {Outcome::Wrong, std::move(reason)};
}

Reply doneIf(bool possible) {
  return {possible ? Outcome::Done : Outcome::Impossible, {}};
}

std::optional<int> wholeNumber(const std::u16string& text) {
  const auto value = text::wholeTextNumber(text);
  if (!value || *value != std::nearbyint(*value) || std::abs(*value) > 1e9) return std::nullopt;
  return static_cast<int>(*value);
}

/// "chkLWO(3)" as name and index; the index is −1 without parentheses.
struct ControlName {
  std::string name;
  int index = -1;
};

std::optional<ControlName> parseName(std::string_view text) {
  const std::size_t open = text.find('(');
  if (open == std::string_view::npos) return ControlName{std::string(text), -1};
  if (!text.ends_with(')')) return std::nullopt;
  const std::string_view digits = text.substr(open + 1, text.size() - open - 2);
  int index = 0;
  const auto [stop, error] = std::from_chars(digits.data(), digits.data() + digits.size(), index);
  if (error != std::errc() || stop != digits.data() + digits.size() || index < 0) {
    return std::nullopt;
  }
  return ControlName{std::string(text.substr(0, open)), index};
}

Control* findControl(const Window& window, std::string_view text) {
  const auto name = parseName(text);
  return name ? window.find(name->name, name->index) : nullptr;
}

/// The word as a value of the same type as the one that is there now.
std::optional<PropertyValue> valueLike(const PropertyValue& current, const std::u16string& word) {
  if (std::holds_alternative<std::u16string>(current)) return word;
  if (std::holds_alternative<double>(current)) return text::wholeTextNumber(word);
  if (word == u"True") return true;
  if (word == u"False") return false;
  return std::nullopt;
}

}  // namespace

/// One user command on its way to the front end.
class Stage::Command {
 public:
  Command(DrivenToolkit& toolkit, Window& window, const MenuEntry* popUp,
          std::span<const std::u16string> words)
      : toolkit_(toolkit), window_(window), popUp_(popUp), words_(words) {}

  Reply click() { return clickWith(MouseButton::Left); }
  Reply rightClick() { return clickWith(MouseButton::Right); }

  Reply doubleClick() {
    return onControl([&](Control& control) {
      return withEntry(control, [&](std::optional<int> entry) {
        return doneIf(toolkit_.doubleClick(control, entry));
      });
    });
  }

  Reply type() {
    return onText([&](TextControl& box) { return doneIf(toolkit_.type(box, words_[1])); });
  }

  Reply clear() {
    return onText([&](TextControl& box) { return doneIf(toolkit_.clear(box)); });
  }

  Reply select() {
    const auto start = wholeNumber(words_[1]);
    const auto length = wholeNumber(words_[2]);
    if (!start || !length || *start < 0 || *length < 0) return wrong("no such selection");
    return onText([&](TextControl& box) {
      return doneIf(toolkit_.select(
          box, {static_cast<std::size_t>(*start), static_cast<std::size_t>(*length)}));
    });
  }

  Reply press() {
    return doneIf(!window_.minimized() && toolkit_.press(window_, text::toAscii(words_[0])));
  }

  Reply choose() {
    const auto entry = wholeNumber(words_[1]);
    if (!entry) return wrong("the entry must be a number");
    return onKind<ComboBox>(Kind::ComboBox, "combo box", [&](ComboBox& combo) {
      const bool exists = *entry >= 0 && *entry < combo.ListCount();
      return doneIf(exists && toolkit_.choose(combo, *entry));
    });
  }

  Reply up() { return spin(true); }
  Reply down() { return spin(false); }

  Reply drag() {
    Control* to = findControl(window_, text::toAscii(words_[1]));
    if (to == nullptr) return noControl(words_[1]);
    return onControl([&](Control& from) {
      // Whatever else is pulled at stays where it is.
      if (!from.row().draggable) return doneIf(to->reachable());
      return doneIf(to->reachable() && toolkit_.drag(from, *to));
    });
  }

  Reply menu() {
    return onKind<MenuEntry>(Kind::Menu, "menu entry", [&](MenuEntry& entry) {
      return doneIf(!entry.separator() && isOffered(entry) && toolkit_.pick(entry));
    });
  }

  /// No pop-up menu is open while a window waits.
  Reply escape() { return doneIf(popUp_ != nullptr && toolkit_.escape()); }

  Reply move() {
    return withTwoNumbers(
        [&](double left, double top) { return toolkit_.move(window_, left, top); });
  }

  Reply resize() {
    return withTwoNumbers([&](double width, double height) {
      return window_.design().resizable && toolkit_.resize(window_, width, height);
    });
  }

  Reply minimize() { return doneIf(toolkit_.minimize(window_, true)); }
  Reply restore() { return doneIf(toolkit_.minimize(window_, false)); }
  Reply close() { return doneIf(toolkit_.close(window_)); }

 private:
  static Reply noControl(const std::u16string& word) {
    return wrong("no control " + text::toAscii(word) + " in this window");
  }

  /// An open pop-up menu hides the menu bar from the mouse, and the other way round.
  [[nodiscard]] bool isOffered(const MenuEntry& entry) const {
    const Control* menu = entry.container();
    if (menu == nullptr) return false;
    return popUp_ != nullptr ? menu == popUp_ : menu->visible();
  }

  /// Runs the action on the control that the first word names, if a user can reach it.
  template <class Action>
  Reply onControl(Action action) {
    Control* control = findControl(window_, text::toAscii(words_[0]));
    if (control == nullptr) return noControl(words_[0]);
    if (window_.minimized() || !control->reachable()) return doneIf(false);
    return action(*control);
  }

  template <class T, class Action>
  Reply onKind(Kind kind, std::string_view kindName, Action action) {
    Control* control = findControl(window_, text::toAscii(words_[0]));
    if (control != nullptr && control->kind() != kind) {
      return wrong(text::toAscii(words_[0]) + " is no " + std::string(kindName));
    }
    return onControl([&](Control& found) { return action(static_cast<T&>(found)); });
  }

  template <class Action>
  Reply onText(Action action) {
    Control* control = findControl(window_, text::toAscii(words_[0]));
    if (control != nullptr && !holdsText(*control)) {
      return wrong(text::toAscii(words_[0]) + " holds no text");
    }
    return onControl([&](Control& found) { return action(static_cast<TextControl&>(found)); });
  }

  template <class Action>
  Reply withEntry(Control& control, Action action) {
    if (words_.size() < 2) return action(std::optional<int>());
    const auto entry = wholeNumber(words_[1]);
    if (!entry || control.kind() != Kind::ListBox) return wrong("no list entry");
    auto& list = static_cast<ListBox&>(control);
    if (*entry < 0 || *entry >= list.ListCount()) return doneIf(false);
    // A user scrolls to the entry first.
    if (const int top = list.topShowing(*entry); top != list.topIndex()) userScrolled(list, top);
    return action(entry);
  }

  template <class Action>
  Reply withTwoNumbers(Action action) {
    const auto first = text::wholeTextNumber(words_[0]);
    const auto second = text::wholeTextNumber(words_[1]);
    if (!first || !second) return wrong("two numbers are wanted");
    return doneIf(!window_.minimized() && action(*first, *second));
  }

  Reply clickWith(MouseButton button) {
    return onControl([&](Control& control) {
      return withEntry(control, [&](std::optional<int> entry) {
        return doneIf(toolkit_.click(control, button, entry));
      });
    });
  }

  Reply spin(bool upwards) {
    return onKind<Spinner>(Kind::Spinner, "spinner", [&](Spinner& spinner) {
      return doneIf(toolkit_.spin(spinner, upwards));
    });
  }

  DrivenToolkit& toolkit_;
  Window& window_;
  const MenuEntry* popUp_;
  std::span<const std::u16string> words_;
};

struct Stage::Target {
  Control* control = nullptr;  ///< null: the window itself
  Property property = Property::Text;
};

Stage::Stage(DrivenToolkit& toolkit, Pilot& pilot, Audience& audience)
    : toolkit_(toolkit), audience_(audience) {
  toolkit_.setPilot(pilot);
}

Reply Stage::perform(std::string_view verb, std::span<const std::u16string> words) {
  struct Verb {
    std::string_view name;
    std::size_t fewest;
    std::size_t most;
    Reply (Command::*run)();
  };
  static constexpr auto kVerbs = std::to_array<Verb>({
      {"click", 1, 2, &Command::click},
      {"dblclick", 1, 2, &Command::doubleClick},
      {"rightclick", 1, 2, &Command::rightClick},
      {"type", 2, 2, &Command::type},
      {"clear", 1, 1, &Command::clear},
      {"select", 3, 3, &Command::select},
      {"press", 1, 1, &Command::press},
      {"choose", 2, 2, &Command::choose},
      {"up", 1, 1, &Command::up},
      {"down", 1, 1, &Command::down},
      {"drag", 2, 2, &Command::drag},
      {"menu", 1, 1, &Command::menu},
      {"escape", 0, 0, &Command::escape},
      {"move", 2, 2, &Command::move},
      {"resize", 2, 2, &Command::resize},
      {"minimize", 0, 0, &Command::minimize},
      {"restore", 0, 0, &Command::restore},
      {"close", 0, 0, &Command::close},
  });
  const auto* found = std::ranges::find(kVerbs, verb, &Verb::name);
  if (found == kVerbs.end()) return wrong("unknown command " + std::string(verb));
  if (words.size() < found->fewest || words.size() > found->most) {
    return wrong(std::string(verb) + " takes another number of words");
  }
  if (windows_.empty()) return wrong("no window is open");
  // Everything else is out of reach as long as a pop-up menu is open.
  const bool forPopUp = verb == "menu" || verb == "escape";
  if (popUp_ != nullptr && !forPopUp) return doneIf(false);
  Command command(toolkit_, *windows_.back(), popUp_, words);
  return (command.*found->run)();
}

Reply Stage::findTarget(std::string_view text, Target& target) {
  if (windows_.empty()) return wrong("no window is open");
  const std::size_t dot = text.rfind('.');
  if (dot == std::string_view::npos) return wrong("CONTROL.PROPERTY is wanted");
  const std::string_view name = text.substr(0, dot);
  const auto property = propertyByName(text.substr(dot + 1));
  if (!property) return wrong("no property " + std::string(text.substr(dot + 1)));
  target.property = *property;
  if (name == windows_.back()->design().name) return {};
  target.control = findControl(*windows_.back(), name);
  if (target.control == nullptr)
    return wrong("no control " + std::string(name) + " in this window");
  return {};
}

Reply Stage::read(std::string_view target, PropertyValue& value) {
  Target place;
  if (Reply reply = findTarget(target, place); reply.outcome != Outcome::Done) return reply;
  const auto held = place.control != nullptr ? place.control->get(place.property)
                                             : windows_.back()->get(place.property);
  if (!held) return wrong("no such property in " + std::string(target));
  std::optional<PropertyValue> shown;
  if (place.control != nullptr) shown = toolkit_.shown(*place.control, place.property);
  value = shown.value_or(*held);
  return {};
}

Reply Stage::assign(std::string_view target, const std::u16string& value) {
  Target place;
  if (Reply reply = findTarget(target, place); reply.outcome != Outcome::Done) return reply;
  Window& window = *windows_.back();
  const auto held =
      place.control != nullptr ? place.control->get(place.property) : window.get(place.property);
  if (!held) return wrong("no such property in " + std::string(target));
  const auto assigned = valueLike(*held, value);
  if (!assigned) return wrong("a value of another type is wanted");
  const bool done = place.control != nullptr ? place.control->set(place.property, *assigned)
                                             : window.set(place.property, *assigned);
  if (!done) return wrong(std::string(target) + " cannot be assigned");
  window.update();
  return {};
}

void Stage::closeTopmost() {
  if (popUp_ != nullptr) {
    toolkit_.escape();
  } else if (!windows_.empty()) {
    toolkit_.close(*windows_.back());
  }
}

void Stage::runModal(Window& window) {
  const std::string name(window.design().name);
  windows_.push_back(&window);
  audience_.happened("opened", {name});
  toolkit_.runModal(window);
  windows_.pop_back();
  audience_.happened("closed", {name});
}

void Stage::showMessage(const Message& message) {
  const bool information = message.icon == MessageIcon::Information;
  audience_.happened("message", {std::string(information ? "information" : "exclamation"),
                                 message.title, message.text});
  toolkit_.showMessage(message);
}

std::optional<std::u16string> Stage::ask(const Question& question) {
  audience_.happened("ask", {question.title, question.prompt, question.proposal});
  return toolkit_.ask(question);
}

std::optional<std::u16string> Stage::ShowOpenDialog(const FileDialog& dialog) {
  audience_.happened("open-dialog", {std::u16string(dialog.title), dialog.name, dialog.folder});
  return toolkit_.ShowOpenDialog(dialog);
}

std::optional<std::u16string> Stage::ShowSaveDialog(const FileDialog& dialog) {
  audience_.happened("save-dialog", {std::u16string(dialog.title), dialog.name, dialog.folder});
  return toolkit_.ShowSaveDialog(dialog);
}

void Stage::popUp(MenuEntry& menu) {
  audience_.happened("popup", {menu.scriptName()});
  popUp_ = &menu;
  toolkit_.popUp(menu);
  popUp_ = nullptr;
}

void Stage::print(const std::u16string& text) {
  audience_.happened("print", {text});
  toolkit_.print(text);
}

void Stage::setClipboard(const std::u16string& text) {
  audience_.happened("clipboard", {text});
  toolkit_.setClipboard(text);
}

void Stage::playSound(const std::u16string& file, SoundMode mode) {
  audience_.happened("sound", {file, mode == SoundMode::Replace ? 0.0 : 1.0});
  toolkit_.playSound(file, mode);
}

}  // namespace kvrnstep::forms
