#include "driving/script_stage.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <span>
#include <stdexcept>
#include <utility>

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

/// What a command is done to.
enum class On : std::uint8_t { Window, Control, Text, ComboBox, Spinner, Menu };

/// … and with what.
enum class With : std::uint8_t {
  Nothing,
  PerhapsEntry,
  Entry,
  Text,
  Control,
  Selection,  ///< a start and a length
  Twips,      ///< a place or a size
};

/// A command as scripts write it.
struct Verb {
  std::string_view name;
  What what;
  On on;
  With with;
};

constexpr auto kVerbs = std::to_array<Verb>({
    {"click", What::Click, On::Control, With::PerhapsEntry},
    {"dblclick", What::DoubleClick, On::Control, With::PerhapsEntry},
    {"rightclick", What::RightClick, On::Control, With::PerhapsEntry},
    {"type", What::Type, On::Text, With::Text},
    {"clear", What::Clear, On::Text, With::Nothing},
    {"select", What::Select, On::Text, With::Selection},
    {"press", What::Press, On::Window, With::Text},
    {"choose", What::Choose, On::ComboBox, With::Entry},
    {"up", What::SpinUp, On::Spinner, With::Nothing},
    {"down", What::SpinDown, On::Spinner, With::Nothing},
    {"drag", What::Drag, On::Control, With::Control},
    {"menu", What::Pick, On::Menu, With::Nothing},
    {"escape", What::Escape, On::Window, With::Nothing},
    {"move", What::Move, On::Window, With::Twips},
    {"resize", What::Resize, On::Window, With::Twips},
    {"minimize", What::Minimize, On::Window, With::Nothing},
    {"restore", What::Restore, On::Window, With::Nothing},
    {"close", What::Close, On::Window, With::Nothing},
});

bool takes(const Verb& verb, std::size_t words) {
  const std::size_t first = verb.on == On::Window ? 0 : 1;
  switch (verb.with) {
    case With::Nothing:
      return words == first;
    case With::PerhapsEntry:
      return words == first || words == first + 1;
    case With::Selection:
    case With::Twips:
      return words == first + 2;
    case With::Entry:
    case With::Text:
    case With::Control:
      break;
  }
  return words == first + 1;
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

/// The control of a name such as "chkLWO(3)", or null.
Control* controlNamed(const Window& window, std::string_view name) {
  const auto& controls = window.controls();
  const auto found = std::ranges::find(controls, name, &Control::scriptName);
  return found == controls.end() ? nullptr : found->get();
}

void mustBe(const Control& control, On on) {
  const auto is = [&](Kind kind, const char* what) {
    if (control.kind() != kind) throw WrongScript(control.scriptName() + " is no " + what);
  };
  if (on == On::ComboBox) is(Kind::ComboBox, "combo box");
  if (on == On::Spinner) is(Kind::Spinner, "spinner");
  if (on == On::Menu) is(Kind::Menu, "menu entry");
  if (on == On::Text && !forms::holdsText(control)) {
    throw WrongScript(control.scriptName() + " holds no text");
  }
}

/// Adds to a gesture what the words behind its control say.
void addWords(Gesture& gesture, With with, std::span<const std::u16string> words) {
  const bool isList = gesture.control != nullptr && gesture.control->kind() == Kind::ListBox;
  switch (with) {
    case With::Nothing:
    case With::Control:
      return;
    case With::PerhapsEntry:
      if (words.empty()) return;
      if (!isList) throw WrongScript(gesture.control->scriptName() + " is no list");
      [[fallthrough]];
    case With::Entry:
      gesture.entry = static_cast<int>(wholeNumber(words[0]));
      return;
    case With::Text:
      gesture.text = words[0];
      return;
    case With::Selection:
      gesture.first = wholeNumber(words[0]);
      gesture.second = wholeNumber(words[1]);
      if (gesture.first < 0 || gesture.second < 0) throw WrongScript("no such selection");
      return;
    case With::Twips:
      gesture.first = number(words[0]);
      gesture.second = number(words[1]);
      return;
  }
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

/// Does what a script wants; it is told what is wrong with it.
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

ScriptStage::ScriptStage(DrivenToolkit& toolkit, Player& player, ContextFunction* context)
    : toolkit_(toolkit), player_(player), context_(context) {
  toolkit_.setPlayer(player);
}

Window& ScriptStage::topmost() const {
  if (windows_.empty()) throw WrongScript("no window is open");
  return *windows_.back();
}

Control& ScriptStage::named(std::string_view name) const {
  Control* control = controlNamed(topmost(), name);
  if (control != nullptr) return *control;
  throw WrongScript("no control " + std::string(name) + " in this window");
}

Outcome ScriptStage::perform(std::string_view name, const std::vector<std::u16string>& words,
                             std::string& reason) {
  return judged(reason, [&] {
    const auto* verb = std::ranges::find(kVerbs, name, &Verb::name);
    if (verb == kVerbs.end()) throw WrongScript("unknown command " + std::string(name));
    if (!takes(*verb, words.size())) {
      throw WrongScript(std::string(name) + " takes another number of words");
    }
    Gesture gesture{verb->what, topmost()};
    std::span<const std::u16string> further(words);
    if (verb->on != On::Window) {
      gesture.control = &named(text::toAscii(words[0]));
      mustBe(*gesture.control, verb->on);
      further = further.subspan(1);
    }
    if (verb->with == With::Control) gesture.target = &named(text::toAscii(further[0]));
    addWords(gesture, verb->with, further);
    if (!inReach(gesture)) return false;
    // Whatever cannot be dragged stays where it is.
    if (gesture.what == What::Drag && !gesture.control->row().draggable) return true;
    scrollToEntry(gesture);
    return toolkit_.carryOut(gesture);
  });
}

bool ScriptStage::inReach(const Gesture& gesture) const {
  // Everything else is out of reach as long as a pop-up menu is open.
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
  if (gesture.what == What::Resize && !gesture.window.design().resizable) return false;
  if (gesture.what == What::Pick && !isOffered(gesture.on<MenuEntry>())) return false;
  return !gesture.entry || (*gesture.entry >= 0 && *gesture.entry < entryCount(*gesture.control));
}

/// An open pop-up menu hides the menu bar from the mouse, and the other way round.
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

Outcome ScriptStage::read(std::string_view text, Value& value, std::string& reason) {
  return judged(reason, [&] {
    const auto [control, property] = targetOf(text);
    auto found = control != nullptr ? held(*control, property) : held(topmost(), property);
    if (!found) throw WrongScript("no such property in " + std::string(text));
    value = std::move(*found);
    if (control == nullptr) return true;
    const auto shown = toolkit_.shown(*control, property);
    if (shown && !looksLike(*control, property, *shown)) value = *shown;
    return true;
  });
}

Outcome ScriptStage::assign(std::string_view text, const std::u16string& word,
                            std::string& reason) {
  return judged(reason, [&] {
    const auto [control, property] = targetOf(text);
    const bool done = control != nullptr ? driving::assign(*control, property, word)
                                         : driving::assign(topmost(), property, word);
    if (!done) throw WrongScript(std::string(text) + " cannot be assigned that value");
    topmost().update();
    return true;
  });
}

void ScriptStage::closeTopmost() {
  if (windows_.empty()) return;
  toolkit_.carryOut({popUp_ != nullptr ? What::Escape : What::Close, *windows_.back()});
}

std::optional<Value> ScriptStage::contextField(std::string_view name) {
  if (context_ == nullptr) return std::nullopt;
  const plugin::HostContext& context = context_();
  const auto fields = std::to_array<std::pair<std::string_view, Value>>({
      {"SEC_APP_NAME", context.SEC_APP_NAME},
      {"SEC_APP_LWDR", context.SEC_APP_LWDR},
      {"swavAlertQ", context.swavAlertQ},
      {"swavFinishQ", context.swavFinishQ},
      {"sPthStepFolder", context.sPthStepFolder},
      {"s_IniPathAndName", context.s_IniPathAndName},
      {"s_EditorFont", context.s_EditorFont},
      {"i_EditorSize", static_cast<double>(context.i_EditorSize)},
      {"bolIsSoundAvailable", context.bolIsSoundAvailable},
      {"l_EditorBColor", static_cast<double>(context.l_EditorBColor)},
      {"l_EditorFColor", static_cast<double>(context.l_EditorFColor)},
      {"bytSpcCount", static_cast<double>(context.bytSpcCount)},
  });
  for (const auto& [field, value] : fields) {
    if (field == name) return value;
  }
  return std::nullopt;
}

void ScriptStage::runModal(Window& window) {
  const std::string name(window.design().name);
  windows_.push_back(&window);
  player_.happened("opened", {name});
  toolkit_.runModal(window);
  windows_.pop_back();
  player_.happened("closed", {name});
}

void ScriptStage::showMessage(const forms::Message& message) {
  const bool information = message.icon == forms::MessageIcon::Information;
  player_.happened("message", {std::string(information ? "information" : "exclamation"),
                               message.title, message.text});
  toolkit_.showMessage(message);
}

std::optional<std::u16string> ScriptStage::ask(const forms::Question& question) {
  player_.happened("ask", {question.title, question.prompt, question.proposal});
  return toolkit_.ask(question);
}

std::optional<std::u16string> ScriptStage::ShowOpenDialog(const forms::FileDialog& dialog) {
  player_.happened("open-dialog", {std::u16string(dialog.title), dialog.name, dialog.folder});
  return toolkit_.ShowOpenDialog(dialog);
}

std::optional<std::u16string> ScriptStage::ShowSaveDialog(const forms::FileDialog& dialog) {
  player_.happened("save-dialog", {std::u16string(dialog.title), dialog.name, dialog.folder});
  return toolkit_.ShowSaveDialog(dialog);
}

void ScriptStage::popUp(MenuEntry& menu) {
  player_.happened("popup", {menu.scriptName()});
  popUp_ = &menu;
  toolkit_.popUp(menu);
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
