#pragma once

#include <sys/wait.h>
#include <unistd.h>

#include <functional>

namespace kvrnstep::tests {

/// Runs the work in a process of its own and returns how that ended; the work's result is its
/// exit status.
inline int inOtherProcess(const std::function<bool()>& work) {
  const pid_t child = ::fork();
  if (child == 0) ::_exit(work() ? 0 : 1);
  int status = -1;
  ::waitpid(child, &status, 0);
  return status;
}

/// What the work gives when it is done by somebody whom permissions stop.
inline bool asOrdinaryUser(const std::function<bool()>& work) {
  constexpr uid_t kNobody = 65534;
  return inOtherProcess([&] {
           const bool ordinary =
               ::geteuid() != 0 || (::setgid(kNobody) == 0 && ::setuid(kNobody) == 0);
           return ordinary && work();
         }) == 0;
}

}  // namespace kvrnstep::tests
