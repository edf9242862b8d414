#pragma once

#include <memory>
#include <mutex>
#include <vector>

namespace kvrnstep::platform {

/// The calling thread's own T, made by the first call. It stays until the module is unloaded: if
/// the end of a thread had to destroy it, the module could not be unloaded.
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
