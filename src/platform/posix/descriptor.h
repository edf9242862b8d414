#pragma once

#include <unistd.h>

namespace kvrnstep::platform {

/// Owns an open file of the system.
class Descriptor {
 public:
  explicit Descriptor(int number) : number_(number) {}
  ~Descriptor() { close(); }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;

  [[nodiscard]] bool open() const { return number_ >= 0; }
  [[nodiscard]] int number() const { return number_; }

  /// False when the system reports, only now, that something could not be written.
  bool close() {
    const int number = number_;
    number_ = -1;
    return number < 0 || ::close(number) == 0;
  }

 private:
  int number_;
};

}  // namespace kvrnstep::platform
