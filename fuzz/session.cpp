// Whole sessions: a script of anything that a user, a host or a file can bring about, on the
// dialog without a screen. Two kinds of lines are the fuzz target's own, comments elsewhere:
// `#file NAME TEXT` and `#folder NAME` put something into the step folder before a call.

#include <algorithm>
#include <array>
#include <deque>
#include <sstream>

#include "dialogs/frm_listwright.h"
#include "driving/script_stage.h"
#include "fuzz.h"
#include "headless_toolkit.h"
#include "script.h"
#include "temporary_folder.h"
#include "text/codepage.h"
#include "text/numbers.h"
#include "text/text.h"

namespace {

using namespace kvrnstep;
using fuzz::check;
using Words = std::vector<std::u16string>;
namespace fs = std::filesystem;

/// Reads properties of the topmost window.
class Reader {
 public:
  explicit Reader(driving::Stage& stage) : stage_(stage) {}

  [[nodiscard]] driving::Value value(const std::string& target) const {
    driving::Value value;
    std::string reason;
    const auto outcome = stage_.read(target, value, reason);
    check(outcome == driving::Outcome::Done, "a property can be read");
    return value;
  }
  [[nodiscard]] bool on(const std::string& target) const { return std::get<bool>(value(target)); }
  [[nodiscard]] double number(const std::string& target) const {
    return std::get<double>(value(target));
  }
  [[nodiscard]] double numberIn(const std::string& box) const {
    return text::leadingNumber(text(box));
  }
  [[nodiscard]] std::u16string text(const std::string& control) const {
    return std::get<std::u16string>(value(control + ".text"));
  }
  [[nodiscard]] bool enabled(const std::string& control) const { return on(control + ".enabled"); }
  [[nodiscard]] bool stepsValid() const {
    return numberIn("txtBStart") > 0 && numberIn("txtBEndAt") > 0;
  }

 private:
  driving::Stage& stage_;
};

void checkNumbers(const Reader& read) {
  for (const std::string spinner : {"updBStart", "updBEndAt"}) {
    const double value = read.number(spinner + ".value");
    check(value >= 1 && value <= 99, "a step lies between 1 and 99");
  }
  const double spacing = read.number("updLS.value");
  check(spacing >= 0 && spacing <= 9, "line spacing lies between 0 and 9");
  // While a box holds no number its spinner may be moved past the other one; the next number
  // that is typed puts them in order.
  if (!read.stepsValid()) return;
  check(read.number("updBEndAt.value") >= read.number("updBStart.value"),
        "the end is not below the start");
}

void checkActions(const Reader& read) {
  static const std::array<std::string, 5> kFollowers{"cmdCIC(2)", "mnuActions(0)", "mnuActions(2)",
                                                     "mnuFiles(1)", "mnuFiles(3)"};
  const bool insert = read.enabled("cmdCIC(0)");
  for (const std::string& follower : kFollowers) {
    check(read.enabled(follower) == insert, "all actions are enabled, or none");
  }
  check(read.enabled("cmdCIC(1)"), "Cancel is always to be had");
}

/// What must hold besides after something was typed into a numeric box, or its text deleted.
void checkAfterTyping(const Reader& read, std::string_view box) {
  const bool insert = read.enabled("cmdCIC(0)");
  const bool panelShown = read.on("mnuOptions(4).checked") || read.on("mnuOptions(5).checked");
  if (box == "txtBStart" || box == "txtBEndAt") {
    check(insert == read.stepsValid(), "Insert needs a start and an end");
  } else if (box == "txtLS") {
    // A refreshed preview writes the end anew, which is judged like a typed one.
    const bool spacing = read.numberIn("txtLS") >= 0;
    check(insert == (panelShown ? read.stepsValid() : spacing), "Insert needs a line spacing");
  }
}

/// Files that a session may begin with.
constexpr std::array<std::string_view, 9> kFiles{
    "steps.ini",          "Prefix_Step.dat", "Suffix_Step.dat",
    "beginning_step.dat", "ending_step.dat", "begin_my_step.dat",
    "end_my_step.dat",    "a.step",          "b.STEP"};
/// What the program itself assigns; states that follow from others are left to it.
constexpr std::array<std::string_view, 6> kAssigned{"text",     "value",    "index",
                                                    "topindex", "selstart", "sellength"};
constexpr std::size_t kLongestTyped = 40;
constexpr int kMostLines = 300;

/// The settings file lies beside the step folder, everything else in it.
std::string pathOf(const std::string& name) {
  return name == "steps.ini" ? name : "steps/" + name;
}

class Session final : driving::Player {
 public:
  Session(const tests::TemporaryFolder& folder, const std::string& script)
      : folder_(folder), script_(script) {
    for (const char* part : {"steps", "steps.ini", "elsewhere"}) fs::remove_all(folder.path(part));
    for (const char* part : {"steps", "elsewhere"}) fs::create_directory(folder.path(part));
    host_.SEC_APP_NAME = u"Listwright";
    host_.sPthStepFolder = folder("steps");
    host_.s_IniPathAndName = folder("steps.ini");
    host_.s_EditorFont = u"Courier New";
    host_.i_EditorSize = 9;
    host_.bytSpcCount = 4;
    host_.swavFinishQ = u"finish.wav";
  }

  void run() {
    while (const auto words = nextWords()) {
      const std::string command = text::toAscii(words->front());
      if (command == "call") call();
      if (command == "#file" || command == "#folder") prepare(*words);
      if (command == "arg" && words->size() == 3) {
        setArgument(text::toAscii((*words)[1]), (*words)[2]);
      }
      if (command == "answer") queueAnswer(*words);
    }
  }

 private:
  std::optional<Words> nextWords() {
    for (std::string line; lines_ < kMostLines && std::getline(script_, line);) {
      ++lines_;
      try {
        Words words = stepdrive::splitWords(line);
        if (!words.empty()) return words;
      } catch (const stepdrive::ScriptError&) {
        // A line that no script could hold.
      }
    }
    return std::nullopt;
  }

  void prepare(const Words& words) {
    const std::string name = words.size() > 1 ? text::toAscii(words[1]) : "";
    if (std::ranges::find(kFiles, name) == kFiles.end()) return;
    fs::remove_all(folder_.path(pathOf(name)));
    if (words.size() == 3) folder_.put(pathOf(name), text::toBytes(words[2]));
    if (words.front() == u"#folder") fs::create_directory(folder_.path(pathOf(name)));
  }

  void setArgument(const std::string& name, const std::u16string& value) {
    const auto number = text::roundToInt16(text::leadingNumber(value)).value_or(0);
    if (name == "iBuildStep") listingType_ = number;
    if (name == "BuMenuMode") menuMode_ = value == u"True";
    if (name == "bytSpcCount") host_.bytSpcCount = static_cast<std::uint8_t>(number & 0xFF);
    if (name == "i_EditorSize") host_.i_EditorSize = number;
    if (name == "s_EditorFont") host_.s_EditorFont = value;
    if (name == "SEC_APP_NAME") host_.SEC_APP_NAME = value;
    if (name == "bolIsSoundAvailable") host_.bolIsSoundAvailable = value == u"True";
  }

  void call() {
    dialogs::frmListwright dialog(stage_, host_);
    dialog.LwStepStart(listingType_);
    dialog.LwMenuMode(menuMode_);
    dialog_ = &dialog;
    dialog.showModal(stage_);
    check(dialog.LwSelectionMade() || dialog.LwOutputString().empty(),
          "only Insert hands a list over");
    checkFiles();
  }

  void checkFiles() const {
    for (const std::string& name : folder_.names()) {
      check(name == "steps" || name == "steps.ini" || name == "elsewhere",
            "nothing is written beside the step folder and the settings file");
    }
    check(fs::is_empty(folder_.path("elsewhere")), "nor into the working folder");
  }

  void act() override {
    checkTopmost();
    checkFiles();
    if (const auto words = nextWords()) return perform(*words);
    constexpr int kMostClosings = 100;
    check(++closings_ < kMostClosings, "a window closes by its close box");
    stage_.closeTopmost();
  }

  void perform(const Words& words) {
    const std::string verb = text::toAscii(words.front());
    if (verb == "answer") return queueAnswer(words);
    if (verb == "set") return assign(words);
    Words rest(words.begin() + 1, words.end());
    const std::string target = rest.empty() ? "" : text::toAscii(rest.front());
    if (verb == "type" && rest.size() == 2) rest[1] = rest[1].substr(0, kLongestTyped);
    if (windows_.back() == "frmStepPSEdit" && target == "cmdOK") listSaved_ = true;

    std::string reason;
    const bool done = stage_.perform(verb, rest, reason) == driving::Outcome::Done;
    const bool typed = done && (verb == "clear" || (verb == "type" && !rest.back().empty()));
    if (typed && windows_.back() == "frmListwright") checkAfterTyping(read_, target);
  }

  void assign(const Words& words) {
    if (words.size() != 3) return;
    const std::string target = text::toAscii(words[1]);
    const std::string property = target.substr(std::min(target.rfind('.') + 1, target.size()));
    if (std::ranges::find(kAssigned, property) == kAssigned.end()) return;
    std::string reason;
    stage_.assign(target, words[2], reason);
  }

  /// A user may save wherever there is room; a session keeps to its own folder.
  void queueAnswer(const Words& words) {
    const bool given = words.size() == 2 && words[1].find(u'/') == std::u16string::npos;
    answers_.push_back(given ? std::optional(words[1]) : std::nullopt);
  }

  std::optional<std::u16string> answer() override {
    if (answers_.empty()) return std::nullopt;
    auto answer = std::move(answers_.front());
    answers_.pop_front();
    return answer;
  }

  void checkTopmost() {
    check(dialog_->LwOutputString().empty(), "an idle dialog holds no list");
    if (windows_.back() != "frmListwright") return;
    checkNumbers(read_);
    checkActions(read_);
  }

  void happened(std::string_view what, const std::vector<driving::Value>& details) override {
    if (what == "opened") {
      windows_.push_back(std::get<std::string>(details.front()));
      listSaved_ = false;
      lists_ = affixLists();
    } else if (what == "closed") {
      const bool kept = windows_.back() != "frmStepPSEdit" || listSaved_ || lists_ == affixLists();
      check(kept, "only OK saves a list");
      windows_.pop_back();
    }
  }

  [[nodiscard]] std::string affixLists() const {
    return folder_.get("steps/Prefix_Step.dat") + '\f' + folder_.get("steps/Suffix_Step.dat");
  }

  const tests::TemporaryFolder& folder_;
  std::istringstream script_;
  int lines_ = 0;
  int closings_ = 0;
  std::deque<std::optional<std::u16string>> answers_;
  plugin::HostContext host_;
  std::int16_t listingType_ = 0;
  bool menuMode_ = false;
  headless::HeadlessToolkit toolkit_;
  driving::ScriptStage stage_{toolkit_, *this};
  const Reader read_{stage_};
  dialogs::frmListwright* dialog_ = nullptr;
  std::vector<std::string> windows_;  ///< the open ones, the topmost last
  std::string lists_;                 ///< both list files as they were when a window opened
  bool listSaved_ = false;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const tests::TemporaryFolder folder;
  Session session(folder, std::string(reinterpret_cast<const char*>(data), size));
  // The fuzzer itself finds its files from where it was started.
  static const fs::path home = fs::current_path();
  fs::current_path(folder.path("elsewhere"));
  session.run();
  fs::current_path(home);
  return 0;
}
