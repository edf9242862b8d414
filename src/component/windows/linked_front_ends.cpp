#include "plugin/front_end.h"

extern "C" KvrnstepFrontEnd kvrnstepFrontEnd;

// The front end for people is linked in, so that hosts need one file only.
namespace kvrnstep::plugin {

forms::Toolkit* toolkitForPeople(std::string& problem) {
  return kvrnstepFrontEnd(&problem);
}

}  // namespace kvrnstep::plugin
