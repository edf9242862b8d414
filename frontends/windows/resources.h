#pragma once

#include "forms/control.h"
#include "handle.h"
#include "platform/windows/this_module.h"

/// What the module that this code is part of carries with it.
namespace kvrnstep::windows {

using platform::thisModule;

/// The picture in the best size that is there for a square of so many pixels; null for none.
Icon loadPicture(forms::Picture picture, int pixels);
/// The icon of the windows; shared, never to be freed.
HICON windowIcon(int pixels);
/// The mouse cursor of that resource; null for 0 or one that is not there. Shared.
HCURSOR cursorOf(int resourceId);

}  // namespace kvrnstep::windows
