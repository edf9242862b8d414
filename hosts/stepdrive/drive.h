#pragma once

#include <deque>
#include <optional>
#include <string>
#include <vector>

#include "call_arguments.h"
#include "kvrnstep/driving.hpp"
#include "kvrnstep/listwright.hpp"
#include "script.h"

namespace stepdrive {

enum ExitStatus { Held = 0, Failed = 1, ScriptWrong = 2 };

/// Follows one script: calls the plug-in, plays the user, and prints what happens.
class Drive final : public kvrnstep::driving::Player {
 public:
  /// @param plugin the library's path
  /// @throws std::runtime_error with the loader's reason
  Drive(const std::string& plugin, std::istream& script)
      : library_(kvrnstep::openLibrary(plugin)),
        plugin_(kvrnstep::Listwright::load(plugin)),
        script_(script) {}

  /// Has the named front end serve the calls. False with the reason in `problem` if it cannot.
  bool open(const std::string& frontEnd, std::string& problem);
  ExitStatus run();

  void happened(std::string_view what,
                const std::vector<kvrnstep::driving::Value>& details) override;
  void act() override;
  std::optional<std::u16string> answer() override;

 private:
  using Words = std::vector<std::u16string>;

  /// Reads and carries out the next line; false at the end of the script.
  bool step();
  void carryOut(const ScriptLine& line);
  void call();
  void printIcon(const std::u16string& number);
  void printField(const std::string& name);
  void show(const std::string& target);
  void assign(const std::string& target, const std::u16string& value);
  void expect(int lineNumber, const std::string& target, const std::u16string& wanted);
  void userCommand(const ScriptLine& line);
  kvrnstep::driving::Value read(const std::string& target);
  void print(const std::string& line) const;
  void fail();

  void* library_;  ///< stays loaded to the end of the process
  kvrnstep::Listwright plugin_;
  kvrnstep::driving::Stage* stage_ = nullptr;
  Script script_;
  CallArguments arguments_;
  std::deque<std::optional<std::u16string>> answers_;
  ExitStatus status_ = Held;
  int closings_ = 0;
};

}  // namespace stepdrive
