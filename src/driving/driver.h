#pragma once

#include <optional>
#include <string_view>

#include "driving/gesture.h"
#include "forms/toolkit.h"
#include "kvrnstep/driving.hpp"

namespace kvrnstep::driving {

/// What has opened and waits for its user.
enum class Opened : std::uint8_t { Window, PopUp, Message, Question, FileBox };

/// A front end whose user is a player. Whenever a window or an open pop-up menu waits for its user,
/// and all that the last action caused is done and drawn, it lets the player act.
class Driver {
 public:
  virtual ~Driver() = default;

  /// What shows the windows.
  virtual forms::Toolkit& toolkit() = 0;
  void setPlayer(Player& player) { player_ = &player; }

  /// Carries a gesture out, by mouse and key events if there are widgets. The gesture is complete
  /// when this returns. The stage has checked that a user can reach the control. False means that
  /// the front end finds the gesture impossible nevertheless.
  virtual bool carryOut(const Gesture& gesture) = 0;

  /// What the front end really shows of a property, where it can tell.
  virtual std::optional<Value> shown(const forms::Control& /*control*/,
                                     std::string_view /*property*/) {
    return std::nullopt;
  }

  // The stage says what is about to open (for a window or a pop-up menu: which one) …
  virtual void opens(Opened /*what*/, const forms::Window* /*window*/,
                     const forms::MenuEntry* /*menu*/) {}
  // … and when it has closed.
  virtual void closed() {}

 protected:
  /// It has been set before anything opens.
  [[nodiscard]] Player& player() const { return *player_; }

 private:
  Player* player_ = nullptr;
};

}  // namespace kvrnstep::driving
