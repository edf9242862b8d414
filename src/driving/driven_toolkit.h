#pragma once

#include <optional>
#include <string_view>

#include "driving/gesture.h"
#include "forms/toolkit.h"
#include "kvrnstep/driving.hpp"

namespace kvrnstep::driving {

/// A front end that a script can use as a person would. It has its player act whenever a window or
/// an open pop-up menu waits for its user, each time when all that the last action led to is done
/// and drawn.
class DrivenToolkit : public forms::Toolkit {
 public:
  virtual void setPlayer(Player& player) = 0;

  /// Carries a gesture out on the real thing: where there are widgets, by mouse and key events on
  /// them. It is complete when this returns. The stage has checked that the control is in reach;
  /// false means that the front end finds the gesture impossible all the same.
  virtual bool carryOut(const Gesture& gesture) = 0;

  /// What the front end really shows of a property, where it can tell.
  virtual std::optional<Value> shown(const forms::Control& control, std::string_view property) = 0;
};

}  // namespace kvrnstep::driving
