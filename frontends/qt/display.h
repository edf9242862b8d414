#pragma once

#include <memory>
#include <optional>
#include <string>

struct xcb_connection_t;

namespace kvrnstep::qt {

/// A display that answers.
struct Display {
  std::string platform;  ///< name of the platform plug-in to ask for; empty leaves it to Qt
  /// A connection to the X server, where there is one. It is to be held until Qt has its own: a
  /// server that loses its only client starts anew, and turns others away meanwhile.
  std::shared_ptr<xcb_connection_t> connection;
};

/// Finds out, before Qt is started, whether it will find a display: Qt ends the process where it
/// does not. Nothing, and one line in `problem`, where no display answers.
std::optional<Display> findDisplay(std::string& problem);

}  // namespace kvrnstep::qt
