#pragma once

#include "kvrnstep/component.hpp"

/// The component in the system's registry, by which hosts find it.
namespace kvrnstep::component {

/// Writes the classes, their names and the type library with this module's path, for all users if
/// that is allowed, otherwise for the current one. A failure leaves nothing behind.
HRESULT registerComponent();

/// Deletes what `registerComponent` wrote, for all users and for the current one. What the build
/// for the other number of bits shares with this one stays as long as that one is registered.
HRESULT unregisterComponent();

}  // namespace kvrnstep::component
