#pragma once

#include <memory>
#include <string>

#include "driving/script_stage.h"

/// What a module exports that scripts can drive: a stage around its front end, for one player. Null
/// where no window can be shown; `problem` then says why, in one line.
extern "C" using KvrnstepDrivenFrontEnd =
    kvrnstep::driving::ScriptStage * (kvrnstep::driving::Player * player,
                                      kvrnstep::driving::ContextFunction* context,
                                      std::string* problem);

#ifdef _WIN32
#define KVRNSTEP_DRIVEN_MODULE extern "C" __declspec(dllexport)
#else
#define KVRNSTEP_DRIVEN_MODULE extern "C" __attribute__((visibility("default")))
#endif

namespace kvrnstep::driving {

inline constexpr const char* kDrivenFrontEndSymbol = "kvrnstepDrivenFrontEnd";

/// The module's only stage, set anew for this player, around its driver.
template <class Its>
ScriptStage* stageFor(Player& player, ContextFunction& context) {
  static Its driver;
  static std::unique_ptr<ScriptStage> stage;
  stage = std::make_unique<ScriptStage>(driver, player, &context);
  return stage.get();
}

}  // namespace kvrnstep::driving
