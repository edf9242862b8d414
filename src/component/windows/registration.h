#pragma once

#include "kvrnstep/component.hpp"

/// The component in the system's registry, by which hosts find it.
namespace kvrnstep::component {

/// Writes the classes, their names and the type library with this module's path, for all users if
/// that is allowed, otherwise for the current one. A failure leaves nothing behind. If it is
/// registered for all users, a registration for the current one is removed.
HRESULT registerComponent();
/// The same for the current user alone.
HRESULT registerForUser();

/// Deletes what `registerComponent` wrote, for all users and for the current one. Keys that the
/// builds for 32 and 64 bits share stay as long as the other build is registered.
HRESULT unregisterComponent();
/// The same for the current user alone.
HRESULT unregisterForUser();

}  // namespace kvrnstep::component
