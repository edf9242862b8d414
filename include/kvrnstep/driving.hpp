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

/// The value of a property, or a detail of an event: a text, or a bare word.
using Value = std::variant<bool, double, std::u16string, std::string>;

/// Plays the user; implemented by the program.
class Player {
 public:
  virtual ~Player() = default;
  /// The topmost window, or the pop-up menu over it, waits for its user: do one thing. Called until
  /// it has closed.
  virtual void act() = 0;
  /// The answer to the text-input box or file dialog that is open; nothing is Cancel. A file may be
  /// named with its folder or without, as users do.
  virtual std::optional<std::u16string> answer() { return std::nullopt; }
  /// Something happened that a user would notice: "opened", "message" …
  virtual void happened(std::string_view /*what*/, const std::vector<Value>& /*details*/) {}
};

enum class Outcome : std::uint8_t {
  Done,
  Impossible,  ///< no user could do that now; nothing was done
  Wrong,       ///< no such command, control, property or value; nothing was done
};

/// Where the user is played; implemented by the plug-in. `reason` tells what is wrong.
class Stage {
 public:
  virtual ~Stage() = default;
  /// Carries out a user command on the topmost window: "click" with the words "cmdCIC(0)".
  virtual Outcome perform(std::string_view verb, const std::vector<std::u16string>& words,
                          std::string& reason) = 0;
  /// Reads "NAME.PROPERTY" of the topmost window as it is shown.
  virtual Outcome read(std::string_view target, Value& value, std::string& reason) = 0;
  /// Assigns "NAME.PROPERTY" as the window's own code does.
  virtual Outcome assign(std::string_view target, const std::u16string& value,
                         std::string& reason) = 0;
  /// Closes the open pop-up menu, or the topmost window by its close box.
  virtual void closeTopmost() = 0;
  /// A field of the calling thread's host context, by its name.
  virtual std::optional<Value> contextField(std::string_view name) = 0;
};

/// The library's function `kvrnstepDrive`: from now on the named front end ("headless", "qt",
/// "windows") serves all calls. Null, with the reason in `problem`, when that is not possible.
using DriveFunction = Stage* (*)(const char* frontEnd, Player* player, std::string* problem);

}  // namespace kvrnstep::driving
