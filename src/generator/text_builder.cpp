#include "generator/text_builder.h"

namespace kvrnstep::generator {

// Pieces are too short for what the libraries have: those call a function for each.
void TextBuilder::append(std::u16string_view piece) {
  constexpr std::size_t kBlock = 4;
  char16_t* to = room(piece.size());
  std::size_t at = 0;
  for (; at + kBlock <= piece.size(); at += kBlock) {
    std::copy_n(piece.data() + at, kBlock, to + at);
  }
  for (; at < piece.size(); ++at) to[at] = piece[at];
}

// Out of the way of the many that need not wait for it.
[[gnu::noinline]] void TextBuilder::grow() {
  text_.resize(size_ * 2);
}

}  // namespace kvrnstep::generator
