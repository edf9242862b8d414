#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "forms/window.h"

namespace kvrnstep::forms {

enum class MessageIcon : std::uint8_t { Information, Exclamation };

/// A message with an OK button.
struct Message {
  MessageIcon icon;
  std::u16string title;
  std::u16string text;
};

/// A question that is answered with one line of text.
struct Question {
  std::u16string title;
  std::u16string prompt;
  std::u16string proposal;
};

enum class SoundMode : std::uint8_t {
  Replace,  ///< ends a sound that is playing
  GiveWay,  ///< is not played while another one plays
};

/// Everything that a user sees or hears. A front end implements it, draws and passes on; it
/// decides nothing. All calls come from the thread that shows the dialog.
class Toolkit {
 public:
  virtual ~Toolkit() = default;

  /// Shows a loaded window, without an owner or over the window that is open, and returns when
  /// it has been unloaded.
  virtual void runModal(Window& window) = 0;
  virtual void showMessage(const Message& message) = 0;
  /// Nothing when the question was cancelled.
  virtual std::optional<std::u16string> ask(const Question& question) = 0;
  /// Of the screen that dialogs are centred on, in twips.
  virtual double screenWidth() = 0;
  virtual double screenHeight() = 0;
  /// Lets events run that have gathered while a handler was at work.
  virtual void letEventsRun() = 0;
  /// Replaces what is on the clipboard, if that is possible.
  virtual void setClipboard(const std::u16string& text) = 0;
  /// Starts a sound and returns at once; what cannot be played is silent.
  virtual void playSound(const std::u16string& file, SoundMode mode) = 0;
};

/// The one line that a front end says when no window can be shown (no display …); empty when all
/// is well.
using FrontEndProblem = std::string;

}  // namespace kvrnstep::forms
