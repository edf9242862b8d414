#include "plugin/host_context.h"

namespace kvrnstep::plugin {

HostContext& hostContext() {
  thread_local HostContext context;
  return context;
}

}  // namespace kvrnstep::plugin
