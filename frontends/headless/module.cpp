#include "forms/front_end_module.h"
#include "headless_toolkit.h"

extern "C" [[gnu::visibility("default")]] kvrnstep::forms::DrivenToolkit* kvrnstepDrivenFrontEnd(
    std::string* /*problem*/) {
  static kvrnstep::headless::HeadlessToolkit toolkit;
  return &toolkit;
}
