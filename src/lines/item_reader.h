#pragma once

#include <cstddef>
#include <functional>
#include <string_view>

#include "lines/item.h"
#include "lines/outline.h"
#include "lines/text_lines.h"

namespace kvrnstep::lines {

/// Code between fences: lines of at least three ` or ~.
class CodeFence {
 public:
  /// Takes the next line, from behind its blanks on.
  void take(std::string_view line) {
    if (!line.empty() && (line.front() == '`' || line.front() == '~')) takeFence(line);
  }
  /// Whether the line behind it is code, or the fence at its end.
  [[nodiscard]] bool isOpen() const { return length_ > 0; }

 private:
  void takeFence(std::string_view line);

  char character_ = '\0';
  std::size_t length_ = 0;  ///< 0 outside of code
};

/// The items of a text, one after the other.
class ItemReader {
 public:
  /// @param description of labels, or null, as `findItem` takes it
  /// @param ended is told of every list when it ends
  ItemReader(std::string_view text, const LineLabel* description, const OutlineRules& rules,
             std::function<void(const List&)> ended);

  /// Goes on to the next item. False where there is none; then all lists have ended.
  bool next();

  [[nodiscard]] const Item& item() const { return item_; }
  [[nodiscard]] const List& list() const { return *list_; }
  [[nodiscard]] const Outline& outline() const { return outline_; }
  /// From 1 on.
  [[nodiscard]] std::size_t lineNumber() const { return lineNumber_; }

 private:
  bool isItem(const TextLine& line);
  void takeOther(const TextLine& line);

  std::string_view text_;
  const LineLabel* description_;
  Outline outline_;
  CodeFence fence_;
  std::size_t place_;
  std::size_t lineNumber_ = 0;
  Item item_;
  const List* list_ = nullptr;
};

}  // namespace kvrnstep::lines
