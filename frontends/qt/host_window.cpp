#include "host_window.h"

#include <unistd.h>
#include <xcb/xcb.h>

#include <QGuiApplication>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <optional>
#include <string_view>

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

/// The first number of a property.
std::optional<std::uint32_t> number(xcb_connection_t* x, xcb_window_t window,
                                    std::string_view property) {
  const auto cookie =
      xcb_get_property(x, 0, window, atom(x, property), XCB_GET_PROPERTY_TYPE_ANY, 0, 1);
  const auto reply = owned(xcb_get_property_reply(x, cookie, nullptr));
  if (!reply || reply->format != 32 || xcb_get_property_value_length(reply.get()) < 4) return {};
  return *static_cast<const std::uint32_t*>(xcb_get_property_value(reply.get()));
}

}  // namespace

void stayInFrontOfHost(const QWidget& window) {
  const auto* display = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
  xcb_connection_t* x = display == nullptr ? nullptr : display->connection();
  if (x == nullptr) return;
  const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(x)).data->root;
  const auto active = number(x, root, "_NET_ACTIVE_WINDOW");
  if (!active || *active == XCB_WINDOW_NONE || *active == window.winId()) return;
  if (number(x, *active, "_NET_WM_PID") != static_cast<std::uint32_t>(getpid())) return;
  xcb_change_property(x, XCB_PROP_MODE_REPLACE, static_cast<xcb_window_t>(window.winId()),
                      XCB_ATOM_WM_TRANSIENT_FOR, XCB_ATOM_WINDOW, 32, 1, &*active);
}

}  // namespace kvrnstep::qt
