#pragma once

#include <memory>
#include <vector>

#include "driving/driven_over.h"
#include "ticker.h"
#include "windows_toolkit.h"

namespace kvrnstep::windows {

/// The toolkit that people use, with a player in the place of its user.
class DrivenWindowsToolkit final : public driving::DrivenOver<WindowsToolkit>, private Attendant {
 public:
  DrivenWindowsToolkit() : DrivenOver(static_cast<Attendant*>(this)) {}

  bool carryOut(const driving::Gesture& gesture) override;
  std::optional<driving::Value> shown(const forms::Control& control,
                                      std::string_view property) override;

 private:
  void windowIdle(WindowView& view) override;
  void messageOpens() override;
  void questionOpens() override;
  void fileBoxOpens() override;
  void popUpOpens(WindowView& view, const forms::MenuEntry& menu) override;
  void boxClosed() override;

  void actInPopUp();
  bool leavePopUp(const driving::Gesture& gesture);

  /// The pop-up menu that is open.
  struct PopUp {
    WindowView* view;
    const forms::MenuEntry* menu;
    bool leaving;
  };

  std::vector<std::unique_ptr<Ticker>> tickers_;  ///< of the boxes that are open
  std::optional<PopUp> popUp_;
};

}  // namespace kvrnstep::windows
