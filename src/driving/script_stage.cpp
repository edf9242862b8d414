#include "driving/script_stage.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <cmath>
#include <memory>
#include <stdexcept>

#include "driving/properties.h"
#include "forms/user_actions.h"
#include "text/numbers.h"
#include "text/text.h"

namespace kvrnstep::driving {

using forms::ComboBox;
using forms::Control;
using forms::Kind;
using forms::ListBox;
using forms::MenuEntry;
using forms::Window;
using What = Gesture::What;

namespace {

/// No such command, control, property or value; what() is the reason.
class WrongScript : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// A command as scripts write it, and what its words are, a letter each:
///   c a control, t one that holds a text, o a combo box, s a spinner, m a menu entry;
///   d the control that another one is dropped on;
///   i an entry of the combo box, l an entry of a list box, which may be left out;
///   w a text, n a number, # a whole number from 0.
struct Verb {
  std::string_view name;
  What what;
  std::string_view words;
};

constexpr auto kVerbs = std::to_array<Verb>({
    {"click", What::Click, "cl"},
    {"dblclick", What::DoubleClick, "cl"},
    {"rightclick", What::RightClick, "cl"},
    {"type", What::Type, "tw"},
    {"clear", What::Clear, "t"},
    {"select", What::Select, "t##"},
    {"press", What::Press, "w"},
    {"choose", What::Choose, "oi"},
    {"up", What::SpinUp, "s"},
    {"down", What::SpinDown, "s"},
    {"drag", What::Drag, "cd"},
    {"menu", What::Pick, "m"},
    {"escape", What::Escape, ""},
    {"move", What::Move, "nn"},
    {"resize", What::Resize, "nn"},
    {"minimize", What::Minimize, ""},
    {"restore", What::Restore, ""},
    {"close", What::Close, ""},
});

const Verb& verbNamed(std::string_view name, std::size_t words) {
  const auto* verb = std::ranges::find(kVerbs, name, &Verb::name);
  if (verb == kVerbs.end()) throw WrongScript("unknown command " + std::string(name));
  const std::size_t most = verb->words.size();
  const std::size_t fewest = verb->words.ends_with('l') ? most - 1 : most;
  if (words >= fewest && words <= most) return *verb;
  throw WrongScript(std::string(name) + " takes another number of words");
}

double number(const std::u16string& word) {
  const auto value = text::wholeTextNumber(word);
  if (!value) throw WrongScript(text::toAscii(word) + " is no number");
  return *value;
}

double wholeNumber(const std::u16string& word) {
  constexpr double kMost = 1e9;
  const double value = number(word);
  if (value != std::nearbyint(value) || std::abs(value) > kMost) {
    throw WrongScript(text::toAscii(word) + " is no whole number");
  }
  return value;
}

void mustBe(char sort, const Control& control) {
  const auto must = [&](bool is, const char* otherwise) {
    if (!is) throw WrongScript(control.scriptName() + otherwise);
  };
  if (sort == 't') must(forms::holdsText(control), " holds no text");
  if (sort == 'o') must(control.kind() == Kind::ComboBox, " is no combo box");
  if (sort == 's') must(control.kind() == Kind::Spinner, " is no spinner");
  if (sort == 'm') must(control.kind() == Kind::Menu, " is no menu entry");
  if (sort == 'l') must(control.kind() == Kind::ListBox, " is no list");
}

/// The menu entry with that shortcut, or null.
Control* entryWith(const Window& window, const std::u16string& shortcut) {
  return window.findIf([&](const Control& control) {
    return !shortcut.empty() && std::ranges::equal(control.row().shortcut, shortcut);
  });
}

int entryCount(const Control& control) {
  return control.kind() == Kind::ListBox ? static_cast<const ListBox&>(control).ListCount()
                                         : static_cast<const ComboBox&>(control).ListCount();
}

/// A user scrolls to an entry before clicking it.
void scrollToEntry(const Gesture& gesture) {
  if (!gesture.entry || gesture.control->kind() != Kind::ListBox) return;
  auto& list = gesture.on<ListBox>();
  const int top = list.topShowing(*gesture.entry);
  if (top != list.topIndex()) forms::userScrolled(list, top);
}

/// Calls `action` for a script. If it throws WrongScript, the text of that becomes the reason.
template <class Action>
Outcome judged(std::string& reason, Action action) {
  try {
    return action() ? Outcome::Done : Outcome::Impossible;
  } catch (const WrongScript& wrong) {
    reason = wrong.what();
    return Outcome::Wrong;
  }
}

}  // namespace

ScriptStage::ScriptStage(Driver& driver, Player& player, ContextFunction* context)
    : driver_(driver), toolkit_(driver.toolkit()), player_(player), context_(context) {
  driver.setPlayer(player);
}

Window& ScriptStage::topmost() const {
  if (windows_.empty()) throw WrongScript("no window is open");
  return *windows_.back();
}

Control& ScriptStage::named(std::string_view name) const {
  Control* control = topmost().findIf([&](const Control& c) { return c.scriptName() == name; });
  if (control != nullptr) return *control;
  throw WrongScript("no control " + std::string(name) + " in this window");
}

Outcome ScriptStage::perform(std::string_view name, const std::vector<std::u16string>& words,
                             std::string& reason) {
  return judged(reason, [&] {
    const Verb& verb = verbNamed(name, words.size());
    Gesture gesture{verb.what, topmost()};
    for (std::size_t i = 0; i < words.size(); ++i) addWord(gesture, verb.words[i], words[i]);
    if (verb.what == What::Press) gesture.control = entryWith(gesture.window, gesture.text);
    if (!inReach(gesture)) return false;
    // A user may try to drag any control; those that cannot be dragged do nothing.
    if (gesture.what == What::Drag && !gesture.control->row().draggable) return true;
    scrollToEntry(gesture);
    return driver_.carryOut(gesture);
  });
}

void ScriptStage::addWord(Gesture& gesture, char sort, const std::u16string& word) const {
  switch (sort) {
    case 'w':
      gesture.text = word;
      return;
    case 'n':
      gesture.numbers.push_back(number(word));
      return;
    case '#':
      gesture.numbers.push_back(wholeNumber(word));
      if (gesture.numbers.back() < 0) throw WrongScript("no such selection");
      return;
    case 'l':
      assert(gesture.control != nullptr);
      mustBe(sort, *gesture.control);
      [[fallthrough]];
    case 'i':
      gesture.entry = static_cast<int>(wholeNumber(word));
      return;
    case 'd':
      gesture.target = &named(text::toAscii(word));
      return;
    default:
      gesture.control = &named(text::toAscii(word));
      mustBe(sort, *gesture.control);
  }
}

bool ScriptStage::inReach(const Gesture& gesture) const {
  // While a pop-up menu is open, everything else is out of reach.
  if (gesture.what == What::Escape) return popUp_ != nullptr;
  if (popUp_ != nullptr && gesture.what != What::Pick) return false;
  if (gesture.what == What::Minimize || gesture.what == What::Restore ||
      gesture.what == What::Close) {
    return true;
  }
  if (gesture.window.minimized()) return false;
  for (const Control* control : {gesture.control, gesture.target}) {
    if (control != nullptr && !control->reachable()) return false;
  }
  if (gesture.what == What::Press && gesture.control == nullptr) return false;
  if (gesture.what == What::Resize && !gesture.window.design().resizable) return false;
  if (gesture.what == What::Pick && !isOffered(gesture.on<MenuEntry>())) return false;
  return !gesture.entry || (*gesture.entry >= 0 && *gesture.entry < entryCount(*gesture.control));
}

/// While a pop-up menu is open only its entries can be picked, and otherwise only those of the bar.
bool ScriptStage::isOffered(const MenuEntry& entry) const {
  const Control* menu = entry.container();
  if (menu == nullptr || entry.separator()) return false;
  return popUp_ != nullptr ? menu == popUp_ : menu->visible();
}

ScriptStage::Target ScriptStage::targetOf(std::string_view text) const {
  const std::size_t dot = text.rfind('.');
  if (dot == std::string_view::npos) throw WrongScript("CONTROL.PROPERTY is wanted");
  const std::string_view name = text.substr(0, dot);
  Control* control = name == topmost().design().name ? nullptr : &named(name);
  return {control, text.substr(dot + 1)};
}

Outcome ScriptStage::read(std::string_view target, Value& value, std::string& reason) {
  return judged(reason, [&] {
    const auto [control, property] = targetOf(target);
    auto found = held(topmost(), control, property);
    if (!found) throw WrongScript("no such property in " + std::string(target));
    value = std::move(*found);
    if (control == nullptr) return true;
    const auto shown = driver_.shown(*control, property);
    if (shown && !looksLike(*control, property, *shown)) value = *shown;
    return true;
  });
}

Outcome ScriptStage::assign(std::string_view target, const std::u16string& value,
                            std::string& reason) {
  return judged(reason, [&] {
    const auto [control, property] = targetOf(target);
    const bool done = driving::assign(topmost(), control, property, value);
    if (!done) throw WrongScript(std::string(target) + " cannot be assigned that value");
    topmost().update();
    return true;
  });
}

void ScriptStage::closeTopmost() {
  if (windows_.empty()) return;
  driver_.carryOut({popUp_ != nullptr ? What::Escape : What::Close, *windows_.back()});
}

std::optional<Value> ScriptStage::contextField(std::string_view name) {
  return context_ == nullptr ? std::nullopt : held(context_(), name);
}

template <class Show>
auto ScriptStage::attended(Opened what, const Window* window, const MenuEntry* menu, Show show) {
  driver_.opens(what, window, menu);
  const auto closed = [](Driver* driver) { driver->closed(); };
  const std::unique_ptr<Driver, decltype(closed)> end(&driver_, closed);
  return show();
}

void ScriptStage::runModal(Window& window) {
  const std::string name(window.design().name);
  windows_.push_back(&window);
  player_.happened("opened", {name});
  attended(Opened::Window, &window, nullptr, [&] { toolkit_.runModal(window); });
  windows_.pop_back();
  player_.happened("closed", {name});
}

void ScriptStage::showMessage(const forms::Message& message) {
  const bool information = message.icon == forms::MessageIcon::Information;
  player_.happened("message", {std::string(information ? "information" : "exclamation"),
                               message.title, message.text});
  attended(Opened::Message, nullptr, nullptr, [&] { toolkit_.showMessage(message); });
}

std::optional<std::u16string> ScriptStage::ask(const forms::Question& question) {
  player_.happened("ask", {question.title, question.prompt, question.proposal});
  return attended(Opened::Question, nullptr, nullptr, [&] { return toolkit_.ask(question); });
}

std::optional<std::u16string> ScriptStage::ShowOpenDialog(const forms::FileDialog& dialog) {
  player_.happened("open-dialog", {std::u16string(dialog.title), dialog.name, dialog.folder});
  return attended(Opened::FileBox, nullptr, nullptr,
                  [&] { return toolkit_.ShowOpenDialog(dialog); });
}

std::optional<std::u16string> ScriptStage::ShowSaveDialog(const forms::FileDialog& dialog) {
  player_.happened("save-dialog", {std::u16string(dialog.title), dialog.name, dialog.folder});
  return attended(Opened::FileBox, nullptr, nullptr,
                  [&] { return toolkit_.ShowSaveDialog(dialog); });
}

void ScriptStage::popUp(MenuEntry& menu) {
  player_.happened("popup", {menu.scriptName()});
  popUp_ = &menu;
  attended(Opened::PopUp, nullptr, &menu, [&] { toolkit_.popUp(menu); });
  popUp_ = nullptr;
}

void ScriptStage::print(const std::u16string& text) {
  player_.happened("print", {text});
  toolkit_.print(text);
}

void ScriptStage::setClipboard(const std::u16string& text) {
  player_.happened("clipboard", {text});
  toolkit_.setClipboard(text);
}

void ScriptStage::playSound(const std::u16string& file, forms::SoundMode mode) {
  player_.happened("sound", {file, mode == forms::SoundMode::Replace ? 0.0 : 1.0});
  toolkit_.playSound(file, mode);
}

}  // namespace kvrnstep::driving
