#include "qt_driver.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QCompleter>
#include <QLineEdit>
#include <QPushButton>
#include <QStyle>
#include <QStyleOptionComboBox>
#include <QTest>
#include <QTimer>
#include <utility>

#include "menu_view.h"
#include "spinner_view.h"
#include "text.h"

namespace kvrnstep::qt {

using driving::Gesture;
using forms::Kind;
using forms::MouseButton;
using What = Gesture::What;

namespace {

constexpr int kPatience = 5000;  // milliseconds
constexpr int kShortPatience = 500;

/// Waits until the window is on the screen and has the keyboard.
void waitForUser(QWidget& window) {
  if (!QTest::qWaitForWindowExposed(&window, kPatience) || window.isActiveWindow()) return;
  window.activateWindow();
  if (QTest::qWaitForWindowActive(&window, kShortPatience)) return;
  // Without a window manager no window is made the active one.
  QApplication::setActiveWindow(&window);
}

/// The middle of what can be seen of a widget.
QPoint middleOf(const QWidget& widget) {
  return widget.visibleRegion().boundingRect().center();
}

/// Whether a click at this point of the window hits the widget or a part of it.
bool meets(const QWidget& widget, QPoint point) {
  const QWidget& window = *widget.window();
  const QPoint inWindow = widget.mapTo(&window, point);
  if (!widget.isVisible() || !widget.isEnabled() || !window.rect().contains(inWindow)) return false;
  const QWidget* hit = window.childAt(inWindow);
  return hit == nullptr ? &window == &widget : &widget == hit || widget.isAncestorOf(hit);
}

/// The window that gets the keys; null while there is none.
QWindow* keyWindow() {
  QWidget* top = QApplication::activePopupWidget();
  if (top == nullptr) top = QApplication::activeModalWidget();
  return top == nullptr ? nullptr : top->windowHandle();
}

/// A person is slow: the key is released when all that its press causes is shown, in the window
/// that has the keyboard by then.
void press(Qt::Key key, Qt::KeyboardModifiers modifiers, const QString& text = {}) {
  const auto send = [=](QTest::KeyAction action) {
    if (QWindow* window = keyWindow()) QTest::sendKeyEvent(action, window, key, text, modifiers);
  };
  QMetaObject::invokeMethod(
      QCoreApplication::instance(), [=] { send(QTest::Release); }, Qt::QueuedConnection);
  send(QTest::Press);
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

}  // namespace

void QtDriver::callAct(bool on) {
  looking_ = on;
  if (on) look();
}

/// Qt does not call a timer again before its slot has returned, so each look has its own timer; one
/// of them runs.
void QtDriver::look() {
  if (std::exchange(lookIsDue_, true)) return;
  QTimer::singleShot(1, QCoreApplication::instance(), [this] {
    lookIsDue_ = false;
    if (!looking_) return;
    look();
    act();
  });
}

void QtDriver::settle() {
  QCoreApplication::sendPostedEvents();
  QCoreApplication::processEvents();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

bool QtDriver::waits(const forms::Window& window) {
  settle();
  WindowView* view = WindowView::of(window);
  if (view == nullptr || !view->open()) return false;
  view->topLevel().repaint();
  return true;
}

void QtDriver::bringToFront(const forms::Window& window) {
  waitForUser(WindowView::of(window)->topLevel());
}

std::optional<QtDriver::Spot> QtDriver::spotOf(const forms::Control& control, Part part,
                                               int entry) {
  if (control.kind() == Kind::Menu) return spotOfEntry(control);
  QWidget* widget = viewOf(control).widget();
  auto* combo = qobject_cast<QComboBox*>(widget);
  if (part == Part::DropDown) {
    QStyleOptionComboBox option;
    option.initFrom(combo);
    option.editable = true;
    const QRect arrow = combo->style()->subControlRect(QStyle::CC_ComboBox, &option,
                                                       QStyle::SC_ComboBoxArrow, combo);
    return spotIn(combo, arrow.center());
  }
  if (part == Part::UpArrow || part == Part::DownArrow) {
    widget = &static_cast<SpinnerView&>(viewOf(control)).arrow(part == Part::UpArrow);
  }
  auto* area = qobject_cast<QAbstractScrollArea*>(
      combo != nullptr && part == Part::Entry ? combo->view() : widget);
  if (area != nullptr) widget = area->viewport();
  QPoint middle = middleOf(*widget);
  if (part == Part::Entry && area != nullptr) {
    if (combo != nullptr && !QTest::qWaitForWindowExposed(area->window())) return std::nullopt;
    auto& list = static_cast<QAbstractItemView&>(*area);
    const QModelIndex index = list.model()->index(entry, 0);
    list.scrollTo(index);
    middle = (list.visualRect(index) & widget->rect()).center();
  }
  return spotIn(widget, middle);
}

std::optional<QtDriver::Spot> QtDriver::spotOfEntry(const forms::Control& entry) {
  const auto& item = static_cast<MenuView&>(viewOf(entry));
  QPoint middle;
  QWidget* in = WindowView::of(entry.window())->menuBar();
  if (const MenuView* above = item.parent()) {
    in = above->menu();
    middle = above->menu()->actionGeometry(&item.action()).center();
  } else if (in != nullptr) {
    middle = static_cast<QMenuBar*>(in)->actionGeometry(&item.action()).center();
  }
  if (in == nullptr || !in->isVisible() || !in->actions().contains(&item.action())) {
    return std::nullopt;
  }
  return spotIn(in, middle);
}

bool QtDriver::clickAt(const Spot& spot, MouseButton button, bool twice) {
  const auto& widget = *static_cast<QWidget*>(spot.widget);
  const QPoint point(spot.x, spot.y);
  if (!meets(widget, point)) return false;
  QWindow* window = widget.window()->windowHandle();
  if (window == nullptr || !QTest::qWaitForWindowExposed(window, kPatience)) return false;
  // Long enough after the click before it, so that the two are no double click.
  constexpr int kPause = 2 * QTest::mouseDoubleClickInterval;
  const auto pressed = button == MouseButton::Right ? Qt::RightButton : Qt::LeftButton;
  const QPoint inWindow = widget.mapTo(widget.window(), point);
  if (twice) {
    QTest::mouseDClick(window, pressed, {}, inWindow, kPause);
  } else {
    QTest::mouseClick(window, pressed, {}, inWindow, kPause);
  }
  return true;
}

bool QtDriver::drag(const Spot& from, const Spot& to) {
  const auto& source = *static_cast<QWidget*>(from.widget);
  const auto& target = *static_cast<QWidget*>(to.widget);
  if (!meets(source, {from.x, from.y}) || !meets(target, {to.x, to.y})) return false;
  QWindow* window = source.window()->windowHandle();
  const QPoint start = source.mapTo(source.window(), QPoint(from.x, from.y));
  const QPoint end = target.mapTo(target.window(), QPoint(to.x, to.y));
  QTest::mousePress(window, Qt::LeftButton, {}, start);
  for (const QPoint& point : {start, (start + end) / 2, end}) QTest::mouseMove(window, point);
  QTest::mouseRelease(window, Qt::LeftButton, {}, end);
  return true;
}

void QtDriver::strike(std::u16string_view character) {
  const char16_t first = character[0];
  const bool control = first < u' ' && keyOf(first) == static_cast<Qt::Key>(first);
  press(control ? static_cast<Qt::Key>(first + u'@') : keyOf(first),
        control ? Qt::ControlModifier : Qt::NoModifier, toQt(character));
}

void QtDriver::move(const forms::Window& window, forms::PixelPoint place) {
  WindowView::of(window)->topLevel().move(place.left, place.top);
}

void QtDriver::resize(const forms::Window& window, forms::PixelSize inner) {
  WindowView::of(window)->topLevel().resize(inner.width, inner.height);
}

void QtDriver::useFrame(const forms::Window& window, What what) {
  QWidget& shown = WindowView::of(window)->topLevel();
  if (what == What::Close) {
    shown.close();
    return;
  }
  const bool minimized = what == What::Minimize;
  shown.setWindowState(shown.windowState().setFlag(Qt::WindowMinimized, minimized));
  // A window manager may take a while, and may still be busy with showing the window.
  [[maybe_unused]] const bool done =
      QTest::qWaitFor([&] { return window.minimized() == minimized; });
}

void* QtDriver::openBox() {
  auto* box = qobject_cast<QDialog*>(QApplication::activeModalWidget());
  if (box != nullptr) waitForUser(*box);
  return box;
}

void QtDriver::enterLine(void* box) {
  auto& line = *static_cast<QDialog*>(box)->findChild<QLineEdit*>();
  // Otherwise the list of the completer would get the key that closes the box.
  line.setCompleter(nullptr);
  line.setFocus();
  line.selectAll();
}

void QtDriver::agree(void* box) {
  const auto& message = *qobject_cast<QMessageBox*>(static_cast<QDialog*>(box));
  QAbstractButton* button = message.button(QMessageBox::Yes);
  if (button == nullptr) button = message.buttons().first();
  clickAt(spotIn(button, middleOf(*button)), MouseButton::Left, false);
}

}  // namespace kvrnstep::qt
