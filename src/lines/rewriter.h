#pragma once

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <vector>

#include "lines/lines.h"

namespace kvrnstep::lines {

/// Puts a changed text together from its beginning to its end: places are kept, left out, or get
/// something new. It goes out in large blocks.
class Rewriter {
 public:
  Rewriter(std::string_view text, const Write& write) : text_(text), write_(write) {}

  /// What follows up to the place stays as it is.
  void keepTo(std::size_t place) {
    add(text_.substr(place_, place - place_));
    place_ = place;
  }
  /// What follows up to the place is left out.
  void skipTo(std::size_t place) { place_ = place; }
  void add(std::string_view piece) {
    if (piece.size() > block_.size() - size_) flush();
    if (piece.size() > block_.size()) return write_(piece);
    std::copy(piece.begin(), piece.end(), block_.data() + size_);
    size_ += piece.size();
  }

  /// The rest stays as it is.
  void finish() {
    keepTo(text_.size());
    flush();
  }

 private:
  void flush() {
    if (size_ > 0) write_({block_.data(), size_});
    size_ = 0;
  }

  std::string_view text_;
  const Write& write_;
  std::size_t place_ = 0;
  std::vector<char> block_ = std::vector<char>(std::size_t{64} * 1024);
  std::size_t size_ = 0;  ///< of what is in it
};

}  // namespace kvrnstep::lines
