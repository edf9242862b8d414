#pragma once

#include <windows.h>

#include <functional>
#include <optional>
#include <string>

/// Answers the system's own boxes as a person would. Each is called again and again as long as the
/// box is open.
namespace kvrnstep::windows {

using Answer = std::function<std::optional<std::u16string>()>;

/// Closes a message with Enter.
class MessageReader {
 public:
  static void act();
};

/// Types the answer, or cancels.
class QuestionAnswerer {
 public:
  explicit QuestionAnswerer(Answer answer) : answer_(std::move(answer)) {}
  void act();

 private:
  Answer answer_;
  bool asked_ = false;
  bool leaves_ = false;
};

/// Types the name of a file, and deals with what the dialog asks or says before it closes: it may
/// replace the file, and a complaint is read.
class FileNamer {
 public:
  explicit FileNamer(Answer answer) : answer_(std::move(answer)) {}
  void act();

 private:
  void name(HWND box);

  Answer answer_;
  HWND box_ = nullptr;
  bool leaves_ = false;
};

}  // namespace kvrnstep::windows
