#include "user_input.h"

#include <QApplication>
#include <QTest>
#include <QWindow>

#include "text/characters.h"

namespace kvrnstep::qt {

namespace {

constexpr int kPatience = 5000;  // milliseconds
constexpr int kShortPatience = 500;

/// The widget, or a part of it, is what a click at this point of its window meets.
bool meets(const QWidget& widget, QPoint point) {
  const QWidget& window = *widget.window();
  const QPoint inWindow = widget.mapTo(&window, point);
  if (!window.rect().contains(inWindow)) return false;
  const QWidget* hit = window.childAt(inWindow);
  return hit == nullptr ? &window == &widget : &widget == hit || widget.isAncestorOf(hit);
}

Qt::Key keyOf(char16_t character) {
  switch (character) {
    case u'\b':
      return Qt::Key_Backspace;
    case u'\r':
    case u'\n':
      return Qt::Key_Return;
    case u'\t':
      return Qt::Key_Tab;
    case 0x1B:
      return Qt::Key_Escape;
    case 0x7F:
      return Qt::Key_Delete;
    default:
      return static_cast<Qt::Key>(QChar::toUpper(static_cast<char32_t>(character)));
  }
}

Qt::Key keyOfControlCharacter(char16_t character) {
  return static_cast<Qt::Key>(character + u'@');
}

bool typedWithControl(char16_t character) {
  return character < u' ' && keyOf(character) == static_cast<Qt::Key>(character);
}

/// A person is slow: the key comes up when all that its press leads to is there, in whatever window
/// has the keyboard by then.
void strike(QWidget& window, Qt::Key key, const QString& text, Qt::KeyboardModifiers modifiers) {
  const auto letGo = [=] {
    QWidget* top = QApplication::activePopupWidget();
    if (top == nullptr) top = QApplication::activeModalWidget();
    if (top == nullptr) return;
    QTest::sendKeyEvent(QTest::Release, top->windowHandle(), key, text, modifiers);
  };
  QMetaObject::invokeMethod(QCoreApplication::instance(), letGo, Qt::QueuedConnection);
  QTest::sendKeyEvent(QTest::Press, window.windowHandle(), key, text, modifiers);
}

/// The key that types this character.
void pressCharacter(QWidget& window, std::u16string_view character) {
  const bool control = typedWithControl(character[0]);
  strike(window, control ? keyOfControlCharacter(character[0]) : keyOf(character[0]),
         QString::fromUtf16(character.data(), static_cast<qsizetype>(character.size())),
         control ? Qt::ControlModifier : Qt::NoModifier);
  settle();
}

}  // namespace

bool waitForUser(QWidget& window) {
  if (!QTest::qWaitForWindowExposed(&window, kPatience)) return false;
  if (window.isActiveWindow()) return true;
  window.activateWindow();
  if (QTest::qWaitForWindowActive(&window, kShortPatience)) return true;
  // Without a window manager nobody hands the keyboard over.
  QApplication::setActiveWindow(&window);
  return window.isActiveWindow();
}

void settle() {
  QCoreApplication::sendPostedEvents();
  QCoreApplication::processEvents();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

bool clickAt(QWidget& widget, QPoint point, Qt::MouseButton button, Presses presses) {
  if (!widget.isVisible() || !widget.isEnabled() || !meets(widget, point)) return false;
  QWindow* window = widget.window()->windowHandle();
  if (window == nullptr || !QTest::qWaitForWindowExposed(window, kPatience)) return false;
  // Far enough from the click before it not to make a double click with it.
  constexpr int kPause = 2 * QTest::mouseDoubleClickInterval;
  const QPoint inWindow = widget.mapTo(widget.window(), point);
  if (presses == Presses::Twice) {
    QTest::mouseDClick(window, button, {}, inWindow, kPause);
  } else {
    QTest::mouseClick(window, button, {}, inWindow, kPause);
  }
  settle();
  return true;
}

bool click(QWidget& widget, Qt::MouseButton button, Presses presses) {
  const QRect visible = widget.visibleRegion().boundingRect();
  return !visible.isEmpty() && clickAt(widget, visible.center(), button, presses);
}

bool dragAndDrop(QWidget& source, QWidget& target) {
  const QPoint from = source.visibleRegion().boundingRect().center();
  const QPoint to = target.visibleRegion().boundingRect().center();
  if (!meets(source, from) || !meets(target, to)) return false;
  QWindow* window = source.window()->windowHandle();
  const QPoint start = source.mapTo(source.window(), from);
  const QPoint end = target.mapTo(target.window(), to);
  QTest::mousePress(window, Qt::LeftButton, {}, start);
  for (const QPoint& point : {start, (start + end) / 2, end}) QTest::mouseMove(window, point);
  QTest::mouseRelease(window, Qt::LeftButton, {}, end);
  settle();
  return true;
}

bool closeBox(QWidget& box, Qt::Key key) {
  waitForUser(box);
  strike(box, key, {}, Qt::NoModifier);
  return !box.isVisible();
}

void pressKey(QWidget& window, Qt::Key key, Qt::KeyboardModifiers modifiers) {
  strike(window, key, {}, modifiers);
  settle();
}

void typeText(QWidget& window, std::u16string_view text, const std::function<bool()>& more) {
  while (!text.empty() && more()) {
    const auto character = text::firstCharacter(text);
    text.remove_prefix(character.size());
    pressCharacter(window, character);
  }
}

}  // namespace kvrnstep::qt
