#pragma once

#include <algorithm>
#include <cstddef>
#include <memory>
#include <string_view>

#include "lines/lines.h"

namespace kvrnstep::lines {

/// Puts a changed text together from its beginning to its end: places are kept, left out, or get
/// something new. It goes out in large blocks.
class Rewriter {
 public:
  Rewriter(std::string_view text, const Write& write) : text_(text), write_(write) {}

  /// What follows up to the place stays as it is.
  void keepTo(std::size_t place) {
    put(text_.substr(place_, place - place_));
    place_ = place;
  }
  /// What follows up to the place is left out.
  void skipTo(std::size_t place) { place_ = place; }
  void add(std::string_view piece) { put(piece); }

  /// The rest stays as it is.
  void finish() {
    keepTo(text_.size());
    flush();
  }

 private:
  static constexpr std::size_t kBlock = std::size_t{64} * 1024;

  void put(std::string_view piece) {
    if (piece.size() > kBlock - size_) {
      flush();
      if (piece.size() > kBlock) return write_(piece);
    }
    std::copy(piece.begin(), piece.end(), block_.get() + size_);
    size_ += piece.size();
  }

  void flush() {
    if (size_ > 0) write_({block_.get(), size_});
    size_ = 0;
  }

  std::string_view text_;
  const Write& write_;
  std::size_t place_ = 0;
  std::unique_ptr<char[]> block_ = std::make_unique_for_overwrite<char[]>(kBlock);
  std::size_t size_ = 0;
};

}  // namespace kvrnstep::lines
