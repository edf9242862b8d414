#pragma once

#include <exception>
#include <utility>

#include "platform/thread_record.h"

namespace kvrnstep::windows {

/// The exception that was thrown in a window procedure of this thread, if any. It must not pass
/// through the system, which called the procedure, so it is kept until our own code has control
/// again.
inline std::exception_ptr& keptFailure() {
  return platform::ofThisThread<std::exception_ptr>();
}

template <class Action>
auto guarded(Action action) -> decltype(action()) {
  try {
    return action();
  } catch (...) {
    keptFailure() = std::current_exception();
    return {};
  }
}

inline void raiseKeptFailure() {
  if (keptFailure() == nullptr) return;
  std::rethrow_exception(std::exchange(keptFailure(), nullptr));
}

}  // namespace kvrnstep::windows
