#pragma once

#include <QPoint>
#include <QString>
#include <QWidget>
#include <functional>
#include <string_view>

/// What comes from a mouse and a keyboard, handed to Qt as the window system does: the window
/// finds the widget, modal windows block, shortcuts are looked up.
namespace kvrnstep::qt {

/// Waits until the window is on the screen and has the keyboard; false if it never gets there.
bool waitForUser(QWidget& window);

/// Deals with all that is waiting, and draws what has changed.
void settle();

enum class Presses { Once, Twice };

/// A click at a point of the widget. False: the widget is hidden or disabled, or something else
/// would get the click there.
bool clickAt(QWidget& widget, QPoint point, Qt::MouseButton button = Qt::LeftButton,
             Presses presses = Presses::Once);
/// … at the middle of what is visible of it.
bool click(QWidget& widget, Qt::MouseButton button = Qt::LeftButton,
           Presses presses = Presses::Once);

/// Presses the left button on one widget and releases it on another one of the same window, the
/// mouse moving in between. False: either is out of the mouse's reach.
bool dragAndDrop(QWidget& source, QWidget& target);

/// A key that closes a box. It comes up when the box has gone. False: the box is still there.
bool closeBox(QWidget& box, Qt::Key key);
/// A key in the window that has the keyboard.
void pressKey(QWidget& window, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
/// The keys that type this text, as long as somebody wants more.
void typeText(QWidget& window, std::u16string_view text, const std::function<bool()>& more);

}  // namespace kvrnstep::qt
