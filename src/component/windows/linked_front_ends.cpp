#include "forms/front_end_module.h"
#include "headless_toolkit.h"
#include "plugin/front_end_source.h"

#ifdef KVRNSTEP_WINDOWS_FRONT_END
extern "C" {
KvrnstepFrontEnd kvrnstepFrontEnd;
KvrnstepDrivenFrontEnd kvrnstepDrivenFrontEnd;
}
#endif

// The front ends are part of the module, so that it needs nothing but the system.
namespace kvrnstep::plugin {

forms::Toolkit* toolkitForPeople(std::string& problem) {
#ifdef KVRNSTEP_WINDOWS_FRONT_END
  return kvrnstepFrontEnd(&problem);
#else
  problem = "this build has no windows";
  return nullptr;
#endif
}

forms::DrivenToolkit* toolkitForScripts(std::string_view name, std::string& problem) {
  if (name == "headless") {
    static headless::HeadlessToolkit toolkit;
    return &toolkit;
  }
#ifdef KVRNSTEP_WINDOWS_FRONT_END
  if (name == "windows") return kvrnstepDrivenFrontEnd(&problem);
#endif
  problem = "no front end " + std::string(name);
  return nullptr;
}

}  // namespace kvrnstep::plugin
