#include "drive.h"

#include <cstdio>
#include <cstdlib>

#include "format.h"
#include "numbers.h"
#include "utf8.h"

namespace stepdrive {

using kvrnstep::driving::DriveFunction;
using kvrnstep::driving::Outcome;
using kvrnstep::driving::Value;

namespace {

/// The word as a value of the same type as the one that was read; nothing if it is none.
std::optional<Value> wantedValue(const Value& read, const std::u16string& word) {
  if (std::holds_alternative<std::u16string>(read)) return word;
  if (std::holds_alternative<bool>(read)) {
    if (word == u"True") return true;
    if (word == u"False") return false;
    return std::nullopt;
  }
  return hosts::numberOf<double>(hosts::toUtf8(word));
}

}  // namespace

bool Drive::open(const std::string& frontEnd, std::string& problem) {
  const auto drive = reinterpret_cast<DriveFunction>(kvrnstep::symbolIn(library_, "kvrnstepDrive"));
  if (drive == nullptr) {
    problem = "the plug-in cannot be driven";
    return false;
  }
  stage_ = drive(frontEnd.c_str(), this, &problem);
  return stage_ != nullptr;
}

ExitStatus Drive::run() {
  while (step()) {
  }
  return status_;
}

bool Drive::step() {
  if (status_ == ScriptWrong) return false;
  try {
    const auto line = script_.next();
    if (!line) return false;
    carryOut(*line);
  } catch (const ScriptError& error) {
    std::fprintf(stderr, "stepdrive: line %d: %s\n", script_.lineNumber(), error.what());
    status_ = ScriptWrong;
  }
  return status_ != ScriptWrong;
}

void Drive::carryOut(const ScriptLine& line) {
  constexpr std::size_t kAny = 1'000'000;
  const Words& words = line.words;
  const std::string command = hosts::toUtf8(words.front());
  const auto is = [&](const char* name, std::size_t fewest, std::size_t most) {
    if (command != name) return false;
    if (words.size() > fewest && words.size() <= most + 1) return true;
    throw ScriptError(command + " takes another number of words");
  };
  if (is("arg", 2, 2)) {
    arguments_.set(words[1], words[2]);
  } else if (is("omit", 1, 1)) {
    arguments_.omit(words[1]);
  } else if (is("call", 0, 0)) {
    call();
  } else if (is("version", 0, 0)) {
    print("version " + inQuotes(hosts::fromUtf8(plugin_.PlugNameVersion())));
  } else if (is("icon", 1, 1)) {
    printIcon(words[1]);
  } else if (is("context", 1, 1)) {
    printField(hosts::toUtf8(words[1]));
  } else if (is("answer", 0, 1)) {
    answers_.push_back(words.size() == 2 ? std::optional(words[1]) : std::nullopt);
  } else if (is("show", 1, kAny)) {
    for (std::size_t i = 1; i < words.size(); ++i) show(hosts::toUtf8(words[i]));
  } else if (is("expect", 2, kAny)) {
    if (words.size() % 2 == 0) throw ScriptError("expect wants CONTROL.PROPERTY VALUE");
    for (std::size_t i = 1; i < words.size(); i += 2) {
      expect(line.number, hosts::toUtf8(words[i]), words[i + 1]);
    }
  } else if (is("set", 2, 2)) {
    assign(hosts::toUtf8(words[1]), words[2]);
  } else {
    userCommand(line);
  }
}

void Drive::call() {
  std::string list;
  const bool inserted = plugin_.ShowListwrightDialog(list, arguments_.dialog());
  print(std::string("returned ") + (inserted ? "True " : "False ") +
        inQuotes(hosts::fromUtf8(list)));
}

void Drive::printIcon(const std::u16string& number) {
  const auto which = hosts::numberOf<std::int16_t>(hosts::toUtf8(number));
  if (!which) throw ScriptError("icon wants a number");
  print("icon " + inQuotes(hosts::fromUtf8(plugin_.RequestProgramIcon(*which))));
}

void Drive::printField(const std::string& name) {
  const auto value = stage_->contextField(name);
  if (!value) throw ScriptError("no field " + name + " in the host context");
  print("context " + name + " = " + formatted(*value));
}

void Drive::show(const std::string& target) {
  print(target + " = " + formatted(read(target)));
}

void Drive::assign(const std::string& target, const std::u16string& value) {
  std::string reason;
  if (stage_->assign(target, value, reason) != Outcome::Done) throw ScriptError(reason);
}

Value Drive::read(const std::string& target) {
  Value value;
  std::string reason;
  if (stage_->read(target, value, reason) != Outcome::Done) throw ScriptError(reason);
  return value;
}

void Drive::expect(int lineNumber, const std::string& target, const std::u16string& wanted) {
  const Value value = read(target);
  const auto wantedAs = wantedValue(value, wanted);
  if (wantedAs == value) return;
  print("line " + std::to_string(lineNumber) + ": " + target + " is " + formatted(value) +
        ", not " + (wantedAs ? formatted(*wantedAs) : inQuotes(wanted)));
  fail();
}

void Drive::userCommand(const ScriptLine& line) {
  std::string reason;
  const Words words(line.words.begin() + 1, line.words.end());
  switch (stage_->perform(hosts::toUtf8(line.words.front()), words, reason)) {
    case Outcome::Done:
      return;
    case Outcome::Impossible:
      print("impossible " + line.text);
      fail();
      return;
    case Outcome::Wrong:
      throw ScriptError(reason);
  }
}

void Drive::happened(std::string_view what, const std::vector<Value>& details) {
  std::string line(what);
  for (const Value& detail : details) line += " " + formatted(detail);
  print(line);
}

void Drive::act() {
  constexpr int kMostClosings = 100;
  if (step()) return;
  // Without a limit, a window that does not close would keep the program running for ever.
  if (++closings_ > kMostClosings) {
    std::fputs("stepdrive: a window cannot be closed\n", stderr);
    std::_Exit(ScriptWrong);
  }
  stage_->closeTopmost();
}

std::optional<std::u16string> Drive::answer() {
  if (answers_.empty()) return std::nullopt;
  auto next = std::move(answers_.front());
  answers_.pop_front();
  return next;
}

void Drive::print(const std::string& line) const {
  if (status_ == ScriptWrong) return;
  std::puts(line.c_str());
  std::fflush(stdout);
}

void Drive::fail() {
  if (status_ == Held) status_ = Failed;
}

}  // namespace stepdrive
