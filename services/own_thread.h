#pragma once

#include <pthread.h>

#include <csignal>
#include <thread>
#include <utility>

namespace kvrnstep::services {

/// As long as it exists, neither this thread nor those that it starts get signals.
class SignalsKeptOff {
 public:
  SignalsKeptOff() {
    sigset_t all;
    sigfillset(&all);
    pthread_sigmask(SIG_SETMASK, &all, &before_);
  }
  ~SignalsKeptOff() { pthread_sigmask(SIG_SETMASK, &before_, nullptr); }
  SignalsKeptOff(const SignalsKeptOff&) = delete;
  SignalsKeptOff& operator=(const SignalsKeptOff&) = delete;

 private:
  sigset_t before_{};
};

/// Does work on a thread of its own. Neither the caller nor the end of the process waits for it,
/// because a server may never answer. The work must not throw. The thread gets no signals, because
/// the host's handlers expect the host's threads.
template <class Work>
void startOwnThread(Work work) {
  const SignalsKeptOff keptOff;
  std::thread(std::move(work)).detach();
}

}  // namespace kvrnstep::services
