#pragma once

// How a program plays the user of the plug-in: for tests, demonstrations and bug reports. Unlike
// the plug-in's own interface this one passes types of the standard library, so program and
// plug-in must come from the same build.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace kvrnstep::driving {

/// The value of a property.
using Value = std::variant<bool, double, std::u16string>;
/// A bare word, a number or a text that belongs to an event.
using Detail = std::variant<std::string, double, std::u16string>;

/// Implemented by the program.
class Player {
 public:
  virtual ~Player() = default;
  /// Something happened that a user would notice: "opened", "message" …
  virtual void happened(std::string_view what, const std::vector<Detail>& details) = 0;
  /// The topmost window waits for its user: do one thing. Called until the window has closed.
  virtual void act() = 0;
  /// The answer to the text-input box that is open; nothing is Cancel.
  virtual std::optional<std::u16string> answer() = 0;
};

enum class Outcome : std::uint8_t { Done, Impossible, Wrong };

/// Implemented by the plug-in.
class Stage {
 public:
  virtual ~Stage() = default;
  /// Carries out a user command on the topmost window. `reason` tells what is wrong.
  virtual Outcome perform(std::string_view verb, const std::vector<std::u16string>& words,
                          std::string& reason) = 0;
  /// Reads and assigns "NAME.PROPERTY" of the topmost window.
  virtual Outcome read(std::string_view target, Value& value, std::string& reason) = 0;
  virtual Outcome assign(std::string_view target, const std::u16string& value,
                         std::string& reason) = 0;
  /// Closes the topmost window by its close box.
  virtual void closeTopmost() = 0;
  /// A field of the calling thread's host context, by its name.
  virtual std::optional<Value> contextField(std::string_view name) = 0;
};

/// The library's function `kvrnstepDrive`: has the named front end ("headless", "qt") serve all
/// calls from now on. Null, with the reason in `problem`, when that is not possible.
using DriveFunction = Stage* (*)(const char* frontEnd, Player* player, std::string* problem);

}  // namespace kvrnstep::driving
