#pragma once

#include "kvrnstep/component.hpp"

/// The component in the system's registry, by which hosts find it.
namespace kvrnstep::component {

/// Writes the classes, their names and the type library with this module's path, for all users if
/// that is allowed, otherwise for the current one. A failure leaves nothing behind. Where it is
/// there for all users, what the current one had goes.
HRESULT registerComponent();
/// The same for the current user alone.
HRESULT registerForUser();

/// Deletes what `registerComponent` wrote, for all users and for the current one. What the build
/// for the other number of bits shares with this one stays as long as that one is registered.
HRESULT unregisterComponent();
/// The same for the current user alone.
HRESULT unregisterForUser();

}  // namespace kvrnstep::component
