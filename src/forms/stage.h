#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "forms/driven_toolkit.h"

namespace kvrnstep::forms {

/// A bare word, a number or a text that belongs to an event.
using Detail = std::variant<std::string, double, std::u16string>;

/// Is told what happens on a stage, in the order in which it happens.
class Audience {
 public:
  virtual ~Audience() = default;
  virtual void happened(std::string_view what, const std::vector<Detail>& details) = 0;
};

/// A driven toolkit with a script before it and an audience around it: it carries out what a
/// script says of the topmost window, in the script's words, and reports what a user would see.
class Stage final : public Toolkit {
 public:
  enum class Outcome : std::uint8_t {
    Done,
    Impossible,  ///< no user could do that now; nothing was done
    Wrong,       ///< no such command, control, property or value; nothing was done
  };
  struct Reply {
    Outcome outcome = Outcome::Done;
    std::string reason{};  ///< of a wrong command
  };

  /// All three must outlive the stage.
  Stage(DrivenToolkit& toolkit, Pilot& pilot, Audience& audience);

  /// Carries out a user command: "click" with the words "cmdCIC(0)".
  Reply perform(std::string_view verb, std::span<const std::u16string> words);
  /// Reads "NAME.PROPERTY" of the topmost window as the front end shows it.
  Reply read(std::string_view target, PropertyValue& value);
  /// Assigns "NAME.PROPERTY" as the window's own code does.
  Reply assign(std::string_view target, const std::u16string& value);
  /// Closes the open pop-up menu, or the topmost window by its close box.
  void closeTopmost();
  [[nodiscard]] bool windowOpen() const { return !windows_.empty(); }

  void runModal(Window& window) override;
  void bringToFront() override { toolkit_.bringToFront(); }
  void showMessage(const Message& message) override;
  std::optional<std::u16string> ask(const Question& question) override;
  std::optional<std::u16string> ShowOpenDialog(const FileDialog& dialog) override;
  std::optional<std::u16string> ShowSaveDialog(const FileDialog& dialog) override;
  void popUp(MenuEntry& menu) override;
  void print(const std::u16string& text) override;
  void setBusy(bool busy) override { toolkit_.setBusy(busy); }
  double screenWidth() override { return toolkit_.screenWidth(); }
  double screenHeight() override { return toolkit_.screenHeight(); }
  double fontSize(const std::u16string& font, double points) override {
    return toolkit_.fontSize(font, points);
  }
  void letEventsRun() override { toolkit_.letEventsRun(); }
  void setClipboard(const std::u16string& text) override;
  void playSound(const std::u16string& file, SoundMode mode) override;

 private:
  class Command;
  struct Target;

  Reply findTarget(std::string_view text, Target& target);

  DrivenToolkit& toolkit_;
  Audience& audience_;
  std::vector<Window*> windows_;
  const MenuEntry* popUp_ = nullptr;  ///< the pop-up menu that is open
};

}  // namespace kvrnstep::forms
