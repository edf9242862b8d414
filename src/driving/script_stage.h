#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "driving/driver.h"
#include "plugin/host_context.h"

namespace kvrnstep::driving {

/// The calling thread's host context.
using ContextFunction = plugin::HostContext&();

/// A toolkit whose windows a driver uses. It carries out the commands of a script for the topmost
/// window, and reports what a user would notice.
class ScriptStage final : public forms::Toolkit, public Stage {
 public:
  /// All must outlive the stage. Without a context its fields cannot be read.
  ScriptStage(Driver& driver, Player& player, ContextFunction* context = nullptr);

  Outcome perform(std::string_view name, const std::vector<std::u16string>& words,
                  std::string& reason) override;
  Outcome read(std::string_view target, Value& value, std::string& reason) override;
  Outcome assign(std::string_view target, const std::u16string& value,
                 std::string& reason) override;
  void closeTopmost() override;
  std::optional<Value> contextField(std::string_view name) override;

  void runModal(forms::Window& window) override;
  void bringToFront() override { toolkit_.bringToFront(); }
  void showMessage(const forms::Message& message) override;
  std::optional<std::u16string> ask(const forms::Question& question) override;
  std::optional<std::u16string> ShowOpenDialog(const forms::FileDialog& dialog) override;
  std::optional<std::u16string> ShowSaveDialog(const forms::FileDialog& dialog) override;
  void popUp(forms::MenuEntry& menu) override;
  void print(const std::u16string& text) override;
  void setBusy(bool busy) override { toolkit_.setBusy(busy); }
  forms::Size screenSize() override { return toolkit_.screenSize(); }
  double fontSize(const std::u16string& font, double points) override {
    return toolkit_.fontSize(font, points);
  }
  void setClipboard(const std::u16string& text) override;
  void playSound(const std::u16string& file, forms::SoundMode mode) override;

 private:
  struct Target {
    forms::Control* control;  ///< null: the window itself
    std::string_view property;
  };

  // These throw WrongScript if a script names something that does not exist.
  [[nodiscard]] forms::Window& topmost() const;
  /// The control of a name such as "chkLWO(3)".
  [[nodiscard]] forms::Control& named(std::string_view name) const;
  [[nodiscard]] Target targetOf(std::string_view text) const;
  void addWord(Gesture& gesture, char sort, const std::u16string& word) const;
  [[nodiscard]] bool inReach(const Gesture& gesture) const;
  [[nodiscard]] bool isOffered(const forms::MenuEntry& entry) const;

  /// Calls `show` between the driver's opens() and closed().
  template <class Show>
  auto attended(Opened what, const forms::Window* window, const forms::MenuEntry* menu, Show show);

  Driver& driver_;
  forms::Toolkit& toolkit_;
  Player& player_;
  ContextFunction* context_;
  std::vector<forms::Window*> windows_;
  const forms::MenuEntry* popUp_ = nullptr;  ///< the pop-up menu that is open
};

}  // namespace kvrnstep::driving
