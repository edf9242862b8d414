#include "plugin/front_end.h"

namespace kvrnstep::plugin {

forms::Toolkit* toolkitForPeople(std::string& problem) {
  auto* function = reinterpret_cast<KvrnstepFrontEnd*>(
      loadedSymbol("kvrnstep-qt", forms::kFrontEndSymbol, problem));
  return function == nullptr ? nullptr : function(&problem);
}

}  // namespace kvrnstep::plugin
