#include "plugin/front_end.h"

extern "C" KvrnstepFrontEnd kvrnstepFrontEnd;

// The front end for people is part of the module, so that it needs nothing but the system.
namespace kvrnstep::plugin {

forms::Toolkit* toolkitForPeople(std::string& problem) {
  return kvrnstepFrontEnd(&problem);
}

}  // namespace kvrnstep::plugin
