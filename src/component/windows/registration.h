#pragma once

#include "kvrnstep/component.hpp"

/// The component in the system's registry, by which hosts find it.
namespace kvrnstep::component {

/// Enters the classes, their names and the type library, with this module's path: for all users
/// where that is allowed, otherwise for the current one. Where it fails nothing is left.
HRESULT registerComponent();

/// Takes out what `registerComponent` entered, for all users and for the current one. What the
/// other build of this component, of 32 or 64 bits, shares with it stays as long as that one is
/// registered.
HRESULT unregisterComponent();

}  // namespace kvrnstep::component
