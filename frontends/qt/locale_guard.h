#pragma once

#include <clocale>
#include <string>

namespace kvrnstep::qt {

/// Restores the host's C locale. Qt sets it from the environment at its start, and again when the
/// first key is pressed.
class LocaleGuard {
 public:
  LocaleGuard() : saved_(current()) {}
  ~LocaleGuard() {
    if (current() != saved_) std::setlocale(LC_ALL, saved_.c_str());
  }
  LocaleGuard(const LocaleGuard&) = delete;
  LocaleGuard& operator=(const LocaleGuard&) = delete;

 private:
  static std::string current() { return std::setlocale(LC_ALL, nullptr); }

  std::string saved_;
};

}  // namespace kvrnstep::qt
