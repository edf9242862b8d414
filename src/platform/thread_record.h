#pragma once

#include <memory>
#include <mutex>
#include <vector>

namespace kvrnstep::platform {

/// The calling thread's own T, made when it first asks. It lives as long as the module, because one
/// that the end of its thread had to destroy would keep the module from being unloaded.
template <class T>
T& ofThisThread() {
  static std::mutex mutex;
  static std::vector<std::unique_ptr<T>> all;
  static thread_local T* own = nullptr;
  if (own == nullptr) {
    const std::lock_guard lock(mutex);
    own = all.emplace_back(std::make_unique<T>()).get();
  }
  return *own;
}

}  // namespace kvrnstep::platform
