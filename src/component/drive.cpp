// The exported way in for programs that play the user.

#include <array>
#include <memory>
#include <utility>

#include "kvrnstep/driving.hpp"
#include "kvrnstep/kvrnstep.h"
#include "plugin/front_end.h"
#include "plugin/host_context.h"

namespace kvrnstep::component {

namespace {

/// Stands between the program's player and the front end's stage.
class DrivenStage final : public driving::Stage, private forms::Pilot, private forms::Audience {
 public:
  bool open(const char* frontEnd, driving::Player& player, std::string& problem) {
    player_ = &player;
    stage_ = plugin::stageFrontEnd(frontEnd, *this, *this, problem);
    return stage_ != nullptr;
  }

  driving::Outcome perform(std::string_view verb, const std::vector<std::u16string>& words,
                           std::string& reason) override {
    return outcome(stage_->perform(verb, words), reason);
  }

  driving::Outcome read(std::string_view target, driving::Value& value,
                        std::string& reason) override {
    return outcome(stage_->read(target, value), reason);
  }

  driving::Outcome assign(std::string_view target, const std::u16string& value,
                          std::string& reason) override {
    return outcome(stage_->assign(target, value), reason);
  }

  void closeTopmost() override { stage_->closeTopmost(); }

  std::optional<driving::Value> contextField(std::string_view name) override {
    const plugin::HostContext& context = plugin::hostContext();
    const std::array<std::pair<std::string_view, driving::Value>, 12> fields{{
        {"SEC_APP_NAME", context.SEC_APP_NAME},
        {"SEC_APP_LWDR", context.SEC_APP_LWDR},
        {"swavAlertQ", context.swavAlertQ},
        {"swavFinishQ", context.swavFinishQ},
        {"sPthStepFolder", context.sPthStepFolder},
        {"s_IniPathAndName", context.s_IniPathAndName},
        {"s_EditorFont", context.s_EditorFont},
        {"i_EditorSize", static_cast<double>(context.i_EditorSize)},
        {"bolIsSoundAvailable", context.bolIsSoundAvailable},
        {"l_EditorBColor", static_cast<double>(context.l_EditorBColor)},
        {"l_EditorFColor", static_cast<double>(context.l_EditorFColor)},
        {"bytSpcCount", static_cast<double>(context.bytSpcCount)},
    }};
    for (const auto& [field, value] : fields) {
      if (field == name) return value;
    }
    return std::nullopt;
  }

 private:
  static driving::Outcome outcome(forms::Stage::Reply reply, std::string& reason) {
    reason = std::move(reply.reason);
    switch (reply.outcome) {
      case forms::Stage::Outcome::Done:
        return driving::Outcome::Done;
      case forms::Stage::Outcome::Impossible:
        return driving::Outcome::Impossible;
      case forms::Stage::Outcome::Wrong:
        break;
    }
    return driving::Outcome::Wrong;
  }

  void act() override { player_->act(); }
  std::optional<std::u16string> answer() override { return player_->answer(); }
  void happened(std::string_view what, const std::vector<forms::Detail>& details) override {
    player_->happened(what, details);
  }

  driving::Player* player_ = nullptr;
  forms::Stage* stage_ = nullptr;
};

}  // namespace

}  // namespace kvrnstep::component

extern "C" KVRNSTEP_API kvrnstep::driving::Stage* kvrnstepDrive(const char* frontEnd,
                                                                kvrnstep::driving::Player* player,
                                                                std::string* problem) {
  static kvrnstep::component::DrivenStage stage;
  return stage.open(frontEnd, *player, *problem) ? &stage : nullptr;
}
