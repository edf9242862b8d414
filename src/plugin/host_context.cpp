#include "plugin/host_context.h"

#include <memory>
#include <mutex>
#include <vector>

namespace kvrnstep::plugin {

namespace {

/// The records of all threads that have called. They live as long as the module: one that the end
/// of its thread had to destroy would keep the module from being unloaded.
class Records {
 public:
  HostContext& add() {
    const std::lock_guard lock(mutex_);
    return *records_.emplace_back(std::make_unique<HostContext>());
  }

 private:
  std::mutex mutex_;
  std::vector<std::unique_ptr<HostContext>> records_;
};

}  // namespace

HostContext& hostContext() {
  static Records records;
  static thread_local HostContext* own = nullptr;
  if (own == nullptr) own = &records.add();
  return *own;
}

}  // namespace kvrnstep::plugin
