#pragma once

#include "forms/contrast.h"
#include "forms/control.h"
#include "handle.h"
#include "platform/windows/this_module.h"

/// The resources of the module that this code is part of.
namespace kvrnstep::windows {

using platform::thisModule;

/// One of the system's colours, by its number.
forms::Rgb systemColor(int number);
/// The picture at that size, scaled from the nearest one that there is, for dark windows where they
/// are and it has such a drawing; null for no picture.
Icon loadPicture(forms::Picture picture, int pixels);
/// The icon of the windows. The system owns it.
HICON windowIcon(int pixels);
/// The mouse cursor of that resource; null where there is none. The system owns it.
HCURSOR cursorOf(int resourceId);

}  // namespace kvrnstep::windows
