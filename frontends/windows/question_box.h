#pragma once

#include <windows.h>

#include <optional>
#include <string>

#include "edit.h"
#include "forms/toolkit.h"
#include "handle.h"

namespace kvrnstep::windows {

/// A small dialog that asks for one line of text.
class QuestionBox {
 public:
  explicit QuestionBox(const forms::Question& question) : question_(question) {}

  /// Nothing when the question was cancelled.
  std::optional<std::u16string> ask(HWND owner);

 private:
  static INT_PTR CALLBACK procedure(HWND box, UINT message, WPARAM wide, LPARAM longer);
  void build(HWND box);
  HWND add(HWND box, const wchar_t* className, const std::u16string& text, DWORD style, RECT place,
           int id) const;
  [[nodiscard]] int promptHeight(HWND box, int width) const;

  const forms::Question& question_;
  std::u16string answer_;
  Font font_;
  CentredLine line_;
};

}  // namespace kvrnstep::windows
