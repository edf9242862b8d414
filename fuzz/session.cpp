// Whole sessions: a script of anything that a user, a host or a file can bring about, on the
// dialog without a screen. Two kinds of lines are the fuzz target's own, comments elsewhere:
// `#file NAME TEXT` and `#folder NAME` put something into the step folder before a call.

#include <algorithm>
#include <array>
#include <deque>
#include <filesystem>
#include <sstream>

#include "dialogs/frm_listwright.h"
#include "fuzz.h"
#include "headless_toolkit.h"
#include "script.h"
#include "session_rules.h"
#include "session_script.h"
#include "text/codepage.h"
#include "text/numbers.h"
#include "text/text.h"

namespace {

using namespace kvrnstep;
using Words = std::vector<std::u16string>;

/// Where a session finds and leaves its files.
class Place {
 public:
  Place() { std::filesystem::create_directory(elsewhere()); }

  void reset() const {
    std::filesystem::remove_all(folder_.path() / "steps");
    std::filesystem::remove_all(folder_.path() / "steps.ini");
    std::filesystem::create_directory(folder_.path() / "steps");
  }
  [[nodiscard]] std::filesystem::path elsewhere() const { return folder_.path() / "elsewhere"; }

  [[nodiscard]] std::u16string steps() const { return folder_.file("steps"); }
  [[nodiscard]] std::u16string settings() const { return folder_.file("steps.ini"); }

  /// The settings file lies beside the step folder, everything else in it.
  [[nodiscard]] std::u16string pathOf(std::string_view name) const {
    return name == "steps.ini" ? settings() : folder_.file("steps/" + std::string(name));
  }
  [[nodiscard]] std::string contentOf(std::string_view name) const {
    return fuzz::readBytes(pathOf(name));
  }

  void checkNothingElse() const {
    for (const auto& entry : std::filesystem::directory_iterator(folder_.path())) {
      const std::string name = entry.path().filename();
      fuzz::check(name == "steps" || name == "steps.ini" || name == "elsewhere",
                  "nothing is written beside the step folder and the settings file");
    }
    fuzz::check(std::filesystem::is_empty(elsewhere()),
                "nothing is written into the working folder");
  }

 private:
  fuzz::ScratchFolder folder_;
};

/// Files that a session may begin with.
constexpr std::array<std::string_view, 9> kFiles{
    "steps.ini",          "Prefix_Step.dat", "Suffix_Step.dat",
    "beginning_step.dat", "ending_step.dat", "begin_my_step.dat",
    "end_my_step.dat",    "a.step",          "b.STEP"};
/// What the program itself assigns; states that follow from others are left to it.
constexpr std::array<std::string_view, 6> kAssigned{"text",     "value",    "index",
                                                    "topindex", "selstart", "sellength"};

constexpr std::size_t kMostLines = 300;
constexpr std::size_t kLongestTyped = 40;

class Session final : driving::Player {
 public:
  Session(const Place& place, std::string_view script)
      : place_(place), lines_(fuzz::linesOf(script)) {
    if (lines_.size() > kMostLines) lines_.resize(kMostLines);
    host_.SEC_APP_NAME = u"Listwright";
    host_.sPthStepFolder = place.steps();
    host_.s_IniPathAndName = place.settings();
    host_.s_EditorFont = u"Courier New";
    host_.i_EditorSize = 9;
    host_.bytSpcCount = 4;
    host_.swavFinishQ = u"finish.wav";
  }

  void run() {
    while (const auto words = nextWords()) {
      const std::string command = text::toAscii(words->front());
      if (command == "call") {
        call();
      } else if (command == "#file" || command == "#folder") {
        prepare(*words);
      } else if (command == "arg" && words->size() == 3) {
        setArgument(text::toAscii((*words)[1]), (*words)[2]);
      } else if (command == "answer") {
        queueAnswer(*words);
      }
    }
  }

 private:
  std::optional<Words> nextWords() {
    while (next_ < lines_.size()) {
      try {
        Words words = stepdrive::splitWords(lines_[next_++]);
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
    const std::filesystem::path path(place_.pathOf(name));
    std::filesystem::remove_all(path);
    if (words.size() == 3) fuzz::writeBytes(path.u16string(), text::toBytes(words[2]));
    if (words.front() == u"#folder") std::filesystem::create_directory(path);
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
    dialog_ = nullptr;
    fuzz::check(dialog.LwSelectionMade() || dialog.LwOutputString().empty(),
                "only Insert hands a list over");
    place_.checkNothingElse();
  }

  void act() override {
    checkTopmost();
    place_.checkNothingElse();
    if (const auto words = nextWords()) {
      perform(*words);
      return;
    }
    constexpr int kMostClosings = 100;
    fuzz::check(++closings_ < kMostClosings, "a window closes by its close box");
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
    if (typed && windows_.back() == "frmListwright") fuzz::checkAfterTyping(stage_, target);
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
    fuzz::check(dialog_->LwOutputString().empty(), "an idle dialog holds no list");
    if (windows_.back() == "frmListwright") fuzz::checkMainDialog(stage_, *dialog_);
    if (windows_.back() == "frmStepBE") fuzz::checkStorageEditor(stage_);
    if (windows_.back() == "frmStepPSEdit") fuzz::checkAffixEditor(stage_);
  }

  void happened(std::string_view what, const std::vector<driving::Detail>& details) override {
    if (what == "opened") {
      windows_.push_back(std::get<std::string>(details.front()));
      listSaved_ = false;
      lists_ = affixLists();
    } else if (what == "closed") {
      const bool kept = windows_.back() != "frmStepPSEdit" || listSaved_ || lists_ == affixLists();
      fuzz::check(kept, "only OK saves a list");
      windows_.pop_back();
    }
  }

  [[nodiscard]] std::string affixLists() const {
    return place_.contentOf("Prefix_Step.dat") + '\f' + place_.contentOf("Suffix_Step.dat");
  }

  const Place& place_;
  fuzz::Lines lines_;
  std::size_t next_ = 0;
  int closings_ = 0;
  std::deque<std::optional<std::u16string>> answers_;
  plugin::HostContext host_;
  std::int16_t listingType_ = 0;
  bool menuMode_ = false;
  headless::HeadlessToolkit toolkit_;
  driving::ScriptStage stage_{toolkit_, *this};
  dialogs::frmListwright* dialog_ = nullptr;
  std::vector<std::string> windows_;  ///< the open ones, the topmost last
  std::string lists_;                 ///< both list files as they were when a window opened
  bool listSaved_ = false;
};

std::size_t handOver(const fuzz::Lines& lines, std::uint8_t* data, std::size_t mostBytes) {
  const std::string script = fuzz::scriptOf(lines, mostBytes);
  std::ranges::copy(script, data);
  return script.size();
}

}  // namespace

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size,
                                        std::size_t mostBytes);

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size,
                                               std::size_t mostBytes, unsigned seed) {
  fuzz::Random random(seed);
  constexpr unsigned kBytewise = 8;  // one of so many
  if (random() % kBytewise == 0) return LLVMFuzzerMutate(data, size, mostBytes);
  return handOver(fuzz::changed(fuzz::linesOf(fuzz::bytesOf(data, size)), random), data, mostBytes);
}

extern "C" std::size_t LLVMFuzzerCustomCrossOver(const std::uint8_t* one, std::size_t oneSize,
                                                 const std::uint8_t* other, std::size_t otherSize,
                                                 std::uint8_t* data, std::size_t mostBytes,
                                                 unsigned seed) {
  fuzz::Random random(seed);
  return handOver(fuzz::crossed(fuzz::linesOf(fuzz::bytesOf(one, oneSize)),
                                fuzz::linesOf(fuzz::bytesOf(other, otherSize)), random),
                  data, mostBytes);
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const Place place;
  static const std::filesystem::path home = std::filesystem::current_path();
  place.reset();
  // The fuzzer itself finds its files from where it was started.
  std::filesystem::current_path(place.elsewhere());
  Session(place, fuzz::bytesOf(data, size)).run();
  std::filesystem::current_path(home);
  return 0;
}
