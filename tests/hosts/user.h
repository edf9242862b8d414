#pragma once

#include <functional>
#include <stdexcept>

#include "kvrnstep/driving.hpp"
#include "kvrnstep/library.hpp"

namespace kvrnstep::tests {

/// Uses the windows of a plug-in that a test has loaded, and counts them.
class User : public driving::Player {
 public:
  /// @param turn what the user does each time the topmost window waits
  explicit User(std::function<void(User&)> turn) : turn_(std::move(turn)) {}

  /// @throws std::runtime_error with the reason why the front end cannot be driven
  void use(void* library, const char* frontEnd) {
    std::string problem;
    const auto drive = reinterpret_cast<driving::DriveFunction>(symbolIn(library, "kvrnstepDrive"));
    stage = drive(frontEnd, this, &problem);
    if (stage == nullptr) throw std::runtime_error(problem);
  }
  bool perform(std::string_view verb, std::u16string_view word) const {
    std::string reason;
    return stage->perform(verb, {std::u16string(word)}, reason) == driving::Outcome::Done;
  }

  void happened(std::string_view what, const std::vector<driving::Value>& /*details*/) override {
    if (what == "opened") ++opened;
  }
  void act() override { turn_(*this); }
  std::optional<std::u16string> answer() override { return std::nullopt; }

  driving::Stage* stage = nullptr;
  int opened = 0;  ///< windows

 private:
  std::function<void(User&)> turn_;
};

inline void insertAtOnce(User& user) {
  user.perform("click", u"cmdCIC(0)");
}

}  // namespace kvrnstep::tests
