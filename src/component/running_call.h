#pragma once

#include <atomic>

#include "kvrnstep/component.hpp"
#include "platform/module.h"

namespace kvrnstep::component {

/// How many objects, locks and running calls there are. The module must stay loaded until it is 0.
inline std::atomic<ULONG>& held() {
  static std::atomic<ULONG> count{0};
  return count;
}

/// A call that also handles messages of the host. The host may release everything meanwhile.
class RunningCall {
 public:
  RunningCall() { ++held(); }
  ~RunningCall() {
    --held();
    platform::letModuleGo(module_);
  }
  RunningCall(const RunningCall&) = delete;
  RunningCall& operator=(const RunningCall&) = delete;

 private:
  void* module_ = platform::keepModule();
};

}  // namespace kvrnstep::component
