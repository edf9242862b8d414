#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace kvrnstep::generator {

/// One to four characters, or none, that are copied at once: what differs from line to line would
/// have the processor guess wrong at every end of a loop.
class ShortPiece {
 public:
  static constexpr std::size_t kMost = 4;

  // NOLINTNEXTLINE(google-explicit-constructor) // tables of them read like texts
  consteval ShortPiece(const char16_t* text) {
    for (; text[size] != u'\0'; ++size) units.at(size) = text[size];
  }
  constexpr ShortPiece(std::size_t count, char16_t character) : size(count) {
    units.fill(character);
  }

  std::array<char16_t, kMost> units{};
  std::size_t size = 0;
};

/// Puts a text together from many short pieces. Appending them to a string one by one would take
/// several times as long, and a list is made anew with every key that the user presses.
class TextBuilder {
 public:
  /// @param expected characters that there will be, about
  explicit TextBuilder(std::size_t expected = 0)
      : text_(std::max<std::size_t>(expected, 32), u'\0') {}

  [[nodiscard]] std::size_t size() const { return size_; }

  void append(char16_t character) { *room(1) = character; }

  void append(std::u16string_view piece);

  void append(const ShortPiece& piece) {
    std::ranges::copy(piece.units, room(ShortPiece::kMost));
    size_ -= ShortPiece::kMost - piece.size;
  }

  /// Moves all from the place on to the right, behind that many blanks.
  void insertBlanks(std::size_t place, std::size_t count) {
    room(count);
    char16_t* from = text_.data() + place;
    std::copy_backward(from, text_.data() + size_ - count, text_.data() + size_);
    std::fill_n(from, count, u' ');
  }

  template <class Change>
  void changeFrom(std::size_t place, Change change) {
    char16_t* from = text_.data() + place;
    std::transform(from, text_.data() + size_, from, change);
  }

  /// The text; the builder is of no further use.
  std::u16string take() {
    text_.resize(size_);
    return std::move(text_);
  }

 private:
  /// The place behind the text, made larger by that many characters.
  char16_t* room(std::size_t count) {
    const std::size_t begin = size_;
    size_ += count;
    if (size_ > text_.size()) grow();
    return text_.data() + begin;
  }

  void grow();

  std::u16string text_;
  std::size_t size_ = 0;
};

}  // namespace kvrnstep::generator
