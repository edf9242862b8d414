#include <atomic>

#include "plugin/front_end.h"

namespace kvrnstep::plugin {

forms::Toolkit* toolkitForPeople(std::string& problem) {
  // The module stays loaded once it is.
  static std::atomic<KvrnstepFrontEnd*> function = nullptr;
  if (function == nullptr) {
    function = reinterpret_cast<KvrnstepFrontEnd*>(
        loadedSymbol("kvrnstep-qt", forms::kFrontEndSymbol, problem));
  }
  return function == nullptr ? nullptr : function.load()(&problem);
}

}  // namespace kvrnstep::plugin
