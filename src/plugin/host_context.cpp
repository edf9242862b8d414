#include "plugin/host_context.h"

#include "platform/thread_record.h"

namespace kvrnstep::plugin {

HostContext& hostContext() {
  return platform::ofThisThread<HostContext>();
}

}  // namespace kvrnstep::plugin
