#pragma once

#include <memory>
#include <optional>
#include <string>

struct xcb_connection_t;

namespace kvrnstep::qt {

/// A display that answers.
struct Display {
  std::string platform;  ///< name of the platform plug-in to ask for; empty leaves it to Qt
  /// A connection to the X server, where there is one. It is held until Qt has its own, because a
  /// server that loses its only client starts anew and refuses others meanwhile.
  std::shared_ptr<xcb_connection_t> connection;
};

/// Finds a display before Qt is started, because Qt ends the process where it finds none. Nothing,
/// and one line in `problem`, where no display answers.
std::optional<Display> findDisplay(std::string& problem);

}  // namespace kvrnstep::qt
