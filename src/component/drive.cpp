// The exported way in for programs that play the user.

#include "kvrnstep/driving.hpp"
#include "kvrnstep/kvrnstep.h"
#include "plugin/front_end.h"

extern "C" KVRNSTEP_API kvrnstep::driving::Stage* kvrnstepDrive(const char* frontEnd,
                                                                kvrnstep::driving::Player* player,
                                                                std::string* problem) {
  return kvrnstep::plugin::drivenFrontEnd(frontEnd, *player, *problem);
}
