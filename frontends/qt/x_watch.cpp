#include "x_watch.h"

#include <unistd.h>
#include <xcb/xcb.h>

#include <QApplication>
#include <algorithm>
#include <cstdlib>
#include <memory>
#include <string_view>

#include "qt_application.h"

namespace kvrnstep::qt {

namespace {

template <class Reply>
std::unique_ptr<Reply, decltype(&std::free)> owned(Reply* reply) {
  return {reply, &std::free};
}

xcb_atom_t atom(xcb_connection_t* x, std::string_view name) {
  const auto cookie = xcb_intern_atom(x, 1, static_cast<std::uint16_t>(name.size()), name.data());
  const auto reply = owned(xcb_intern_atom_reply(x, cookie, nullptr));
  return reply ? reply->atom : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
}

/// The numbers of a property.
std::vector<std::uint32_t> numbers(xcb_connection_t* x, xcb_window_t window, xcb_atom_t property) {
  constexpr std::uint32_t kMost = 0x10000;
  const auto cookie = xcb_get_property(x, 0, window, property, XCB_GET_PROPERTY_TYPE_ANY, 0, kMost);
  const auto reply = owned(xcb_get_property_reply(x, cookie, nullptr));
  if (!reply || reply->format != 32) return {};
  const auto* first = static_cast<const std::uint32_t*>(xcb_get_property_value(reply.get()));
  return {first, first + reply->value_len};
}

xcb_window_t rootOf(xcb_connection_t* x) {
  return xcb_setup_roots_iterator(xcb_get_setup(x)).data->root;
}

}  // namespace

XWatch::XWatch(QWidget& window) : window_(&window) {
  const auto* display = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
  x_ = display == nullptr ? nullptr : display->connection();
  if (x_ == nullptr) return;
  qApp->installNativeEventFilter(this);
  if (const QWidget* owner = window.parentWidget()) {
    behind_ = static_cast<std::uint32_t>(owner->winId());
  } else if (applicationIsOurs()) {
    findHost();
  }
}

void XWatch::findHost() {
  activeWindow_ = atom(x_, "_NET_ACTIVE_WINDOW");
  const xcb_atom_t process = atom(x_, "_NET_WM_PID");
  const std::vector<std::uint32_t> self{static_cast<std::uint32_t>(getpid())};
  hostWindows_ = numbers(x_, rootOf(x_), atom(x_, "_NET_CLIENT_LIST_STACKING"));
  std::erase_if(hostWindows_,
                [&](xcb_window_t window) { return numbers(x_, window, process) != self; });
  if (hostWindows_.empty()) return;
  const auto active = numbers(x_, rootOf(x_), activeWindow_);
  const auto found = std::ranges::find_first_of(hostWindows_, active);
  behind_ = found == hostWindows_.end() ? hostWindows_.back() : *found;
}

void XWatch::shown() {
  if (behind_ == XCB_WINDOW_NONE) return;
  // Qt sets this for its dialogs only.
  xcb_change_property(x_, XCB_PROP_MODE_REPLACE, static_cast<xcb_window_t>(window_->winId()),
                      XCB_ATOM_WM_TRANSIENT_FOR, XCB_ATOM_WINDOW, 32, 1, &behind_);
}

bool XWatch::nativeEventFilter(const QByteArray& /*type*/, void* message, qintptr* /*result*/) {
  constexpr int kSentByProgram = 0x80;
  const auto* event = static_cast<const xcb_generic_event_t*>(message);
  switch (event->response_type & ~kSentByProgram) {
    case XCB_DESTROY_NOTIFY:
      destroyed(reinterpret_cast<const xcb_destroy_notify_event_t*>(event)->window);
      break;
    case XCB_PROPERTY_NOTIFY:
      if (reinterpret_cast<const xcb_property_notify_event_t*>(event)->atom == activeWindow_) {
        activeWindowChanged();
      }
      break;
    default:
      break;
  }
  return false;
}

/// A window that Qt has destroyed itself is no widget any more.
void XWatch::destroyed(xcb_window_t window) const {
  QWidget* widget = QWidget::find(window);
  if (widget == nullptr || window_ == nullptr) return;
  if (widget == window_ || widget->parentWidget() == window_) {
    QMetaObject::invokeMethod(widget, &QWidget::close, Qt::QueuedConnection);
  }
}

void XWatch::activeWindowChanged() const {
  if (behind_ == XCB_WINDOW_NONE || window_ == nullptr || window_->isMinimized()) return;
  const auto active = numbers(x_, rootOf(x_), activeWindow_);
  if (std::ranges::find_first_of(hostWindows_, active) == hostWindows_.end()) return;
  QMetaObject::invokeMethod(window_, bringModalWindowToFront, Qt::QueuedConnection);
}

void bringModalWindowToFront() {
  QWidget* front = QApplication::activeModalWidget();
  if (front == nullptr) return;
  front->raise();
  front->activateWindow();
}

}  // namespace kvrnstep::qt
