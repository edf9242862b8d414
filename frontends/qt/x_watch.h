#pragma once

#include <QAbstractNativeEventFilter>
#include <QPointer>
#include <QWidget>
#include <cstdint>
#include <vector>

struct xcb_connection_t;

namespace kvrnstep::qt {

/// Handles messages of the X server and the window manager that Qt ignores. On other displays it
/// does nothing.
///
/// - A window stays in front of its owner.
/// - A window that somebody else destroys on the screen is closed, as are the boxes over it.
/// - In a process with another toolkit the window stays in front of that toolkit's windows, which
///   take no input while it is open. When the user goes to one of them, our frontmost window gets
///   the keyboard again, unless the user has minimized it.
class XWatch final : public QAbstractNativeEventFilter {
 public:
  /// To be constructed before the window is shown.
  explicit XWatch(QWidget& window);
  ~XWatch() override = default;
  XWatch(const XWatch&) = delete;
  XWatch& operator=(const XWatch&) = delete;

  /// To be called when the window is shown.
  void shown();

  bool nativeEventFilter(const QByteArray& type, void* message, qintptr* result) override;

 private:
  void findHost();
  void destroyed(std::uint32_t window) const;
  void activeWindowChanged() const;

  QPointer<QWidget> window_;
  xcb_connection_t* x_ = nullptr;
  std::vector<std::uint32_t> hostWindows_;  ///< the topmost one is the last one
  std::uint32_t behind_ = 0;                ///< the owner, or the host's window that was active
  std::uint32_t activeWindow_ = 0;
};

/// Brings the window that takes the user's input to the front and gives it the keyboard.
void bringModalWindowToFront();

}  // namespace kvrnstep::qt
