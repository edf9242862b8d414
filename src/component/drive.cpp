// The exported way in for programs that play the user.

#include "driving/driven_module.h"
#include "kvrnstep/kvrnstep.h"
#include "plugin/front_end.h"
#include "plugin/host_context.h"

using namespace kvrnstep;  // NOLINT(google-build-using-namespace)

extern "C" KVRNSTEP_API driving::Stage* kvrnstepDrive(const char* frontEnd, driving::Player* player,
                                                      std::string* problem) {
  auto* function = reinterpret_cast<KvrnstepDrivenFrontEnd*>(plugin::loadedSymbol(
      "kvrnstep-" + std::string(frontEnd) + "-driven", driving::kDrivenFrontEndSymbol, *problem));
  auto* stage = function == nullptr ? nullptr : function(player, plugin::hostContext, problem);
  if (stage != nullptr) plugin::useFrontEnd(*stage);
  return stage;
}
