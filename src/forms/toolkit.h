#pragma once

#include <cmath>
#include <cstdint>
#include <optional>
#include <span>
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

/// A kind of file that a file dialog offers: what the user reads, and a pattern such as "*.step".
struct FileFilter {
  std::u16string_view text;
  std::u16string_view pattern;
};

/// What a file dialog is opened with; the first filter is chosen.
struct FileDialog {
  std::u16string_view title;
  std::span<const FileFilter> filters;
  std::u16string name;                     ///< proposed file name, without folder
  std::u16string folder;                   ///< where the dialog begins
  std::u16string_view defaultExtension{};  ///< added to a name that has none; without full stop
};

enum class SoundMode : std::uint8_t {
  Replace,  ///< ends a sound that is playing
  GiveWay,  ///< is not played while another one plays
};

/// Everything that a user sees or hears. A front end implements it and decides nothing. All calls
/// come from the thread that shows the dialog.
class Toolkit {
 public:
  virtual ~Toolkit() = default;

  /// Shows a loaded window, in front of the one that is open if there is one, and returns when it
  /// has been unloaded.
  virtual void runModal(Window& window) = 0;
  /// Shows what is open in front of other windows, and gives it the keyboard.
  virtual void bringToFront() = 0;
  virtual void showMessage(const Message& message) = 0;
  /// Nothing when the question was cancelled.
  virtual std::optional<std::u16string> ask(const Question& question) = 0;
  /// The full path of a file that is there; nothing when the dialog was cancelled.
  virtual std::optional<std::u16string> ShowOpenDialog(const FileDialog& dialog) = 0;
  /// The full path of a file to be written. For an existing file the user has confirmed it. Nothing
  /// when the dialog was cancelled.
  virtual std::optional<std::u16string> ShowSaveDialog(const FileDialog& dialog) = 0;
  /// Opens a pop-up menu of the window at the mouse and returns when it has closed; an entry that
  /// was picked has then been dealt with.
  virtual void popUp(MenuEntry& menu) = 0;
  /// The size of the screen that dialogs are centred on, in twips.
  virtual Size screenSize() = 0;
  /// The size in points that a font really has, because its height is a whole number of pixels.
  virtual double fontSize(const std::u16string& /*font*/, double points) {
    return std::round(points * kPixelsPerPoint) / kPixelsPerPoint;
  }
  /// Replaces what is on the clipboard, if that is possible.
  virtual void setClipboard(const std::u16string& text) = 0;
  /// Sends a text to the default printer as one job; without a printer nothing happens.
  virtual void print(const std::u16string& text) = 0;
  /// Shows that the user has to wait, or that the wait is over.
  virtual void setBusy(bool busy) = 0;
  /// Starts a sound and returns at once; what cannot be played is silent.
  virtual void playSound(const std::u16string& file, SoundMode mode) = 0;
};

inline constexpr const char* kFrontEndSymbol = "kvrnstepFrontEnd";

}  // namespace kvrnstep::forms

/// What a front-end module exports under that name: a toolkit for the calling thread, which lives
/// as long as the module is loaded. Null where that thread can show no window; `problem` then says
/// why, in one line.
extern "C" using KvrnstepFrontEnd = kvrnstep::forms::Toolkit * (std::string * problem);
