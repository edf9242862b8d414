#pragma once

#include <windows.h>

#include <optional>

#include "forms/control.h"

/// Input from a mouse and a keyboard, passed to the system as their drivers do: the system finds
/// the window, and disabled windows get nothing. The input is queued, and the next loop that runs
/// handles it.
namespace kvrnstep::windows {

/// A click at a point of the window. False: the window is hidden or disabled, or something else
/// would get the click there; nothing was done.
bool clickAt(HWND window, POINT inside, forms::MouseButton button = forms::MouseButton::Left,
             bool twice = false);
/// … at the middle of it, or of what is visible of it.
bool clickOn(HWND window);

/// Whether a click at this point of the screen hits the window or a part of it.
bool meets(HWND window, POINT onScreen);
void moveMouse(POINT onScreen);
/// Presses or releases a button: MOUSEEVENTF_LEFTDOWN …
void useMouse(DWORD flags);
/// A point of the window's inside that the mouse can reach; nothing where its parents leave nothing
/// of it to be seen.
std::optional<POINT> reachablePoint(HWND window);

/// A key, with another one held down meanwhile or with none.
void pressKey(WORD code, WORD held = 0);
/// The key that types this character.
void pressCharacter(char16_t code);

}  // namespace kvrnstep::windows
