#include "window_view.h"

#include <QApplication>
#include <QScreen>
#include <algorithm>

#include "button_views.h"
#include "combo_view.h"
#include "command_keys.h"
#include "focus_ring.h"
#include "forms/guard.h"
#include "forms/user_actions.h"
#include "label_view.h"
#include "list_view.h"
#include "looks.h"
#include "menu_view.h"
#include "qt_application.h"
#include "spinner_view.h"
#include "text.h"
#include "text_views.h"

namespace kvrnstep::qt {

using forms::Control;

namespace {

constexpr int kMenuBarHeight = static_cast<int>(forms::Chrome::kMenuBar / forms::kTwipsPerPixel);

/// The window has lost the keyboard, not only one of its controls to another one.
bool leavesWindow(const QFocusEvent& event) {
  return event.reason() == Qt::ActiveWindowFocusReason || event.reason() == Qt::PopupFocusReason ||
         event.reason() == Qt::MenuBarFocusReason;
}

}  // namespace

WindowView::WindowView(forms::Window& window, QWidget* owner)
    : ViewSync(window),
      topLevel_(std::make_unique<QWidget>(
          owner, Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                     Qt::WindowSystemMenuHint | Qt::WindowMinimizeButtonHint |
                     Qt::WindowCloseButtonHint)),
      watch_(*topLevel_),
      ground_(new QWidget(topLevel_.get())) {
  topLevel_->setWindowModality(Qt::ApplicationModal);
  // Closing a dialog must not end a host whose own windows happen to be closed.
  topLevel_->setAttribute(Qt::WA_QuitOnClose, false);
  topLevel_->setFont(captionFont());
  topLevel_->setWindowIcon(windowIcon());
  if (window.hasMenuBar()) makeMenuBar();
  makeViews();
  new FocusRing(*topLevel_);
  useWindowStyle(*topLevel_);
  showAll(1);
  topLevel_->installEventFilter(this);
  QObject::connect(topLevel_.get(), &QObject::destroyed, this, [this] { lose(); });
}

WindowView::~WindowView() {
  if (topLevel_ != nullptr) topLevel_->disconnect(this);
  delete menuBar_;
  delete ground_;
}

/// Something else destroys the window. The controls live as long as the view, because an event of
/// one of them may have caused this.
void WindowView::lose() {
  close();
  static_cast<void>(topLevel_.release());
  if (menuBar_ != nullptr) menuBar_->setParent(nullptr);
  ground_->setParent(nullptr);
  endLoops();
}

/// Ends the loop of the window and that of a menu that has popped up in it.
void WindowView::endLoops() {
  for (QMenu* menu : ground_->findChildren<QMenu*>()) menu->close();
  loop_.quit();
}

void WindowView::makeMenuBar() {
  menuBar_ = new QMenuBar(topLevel_.get());
  // Some desktops would show the menus outside of the window.
  menuBar_->setNativeMenuBar(false);
  useFont(*menuBar_, captionFont());
  menuBar_->setAccessibleName(QStringLiteral("Menu"));
}

std::unique_ptr<forms::ControlSync> WindowView::makeView(Control& control) {
  using forms::Draws;
  using forms::Kind;
  return forms::makeViewOf<
      Draws<GroundView, Control, Kind::Frame, Kind::Panel, Kind::StatusBar>,
      Draws<ButtonView, Control, Kind::Button, Kind::CheckBox, Kind::OptionButton>,
      Draws<ComboView, forms::ComboBox, Kind::ComboBox>,
      Draws<TextBoxView, forms::TextBox, Kind::TextBox>,
      Draws<SpinnerView, forms::Spinner, Kind::Spinner>,
      Draws<ListView, forms::ListBox, Kind::ListBox>,
      Draws<LabelView, Control, Kind::Label, Kind::Image>,
      Draws<MenuView, forms::MenuEntry, Kind::Menu>>(*this, control);
}

ControlView& WindowView::viewOf(const Control& control) const {
  return static_cast<ControlView&>(syncOf(control));
}

QWidget* WindowView::parentFor(const Control& control) {
  return control.container() == nullptr ? ground_.data() : viewOf(*control.container()).widget();
}

Control* WindowView::controlAt(QPoint onScreen) const {
  for (const QWidget* hit = QApplication::widgetAt(onScreen); hit != nullptr;
       hit = hit->parentWidget()) {
    if (const ControlView* view = viewOf(hit)) return &view->control();
  }
  return nullptr;
}

/// The view whose widget that is, or null.
ControlView* WindowView::viewOf(const QObject* widget) const {
  const Control* control =
      window().findIf([&](const Control& each) { return viewOf(each).widget() == widget; });
  return control == nullptr ? nullptr : &viewOf(*control);
}

bool WindowView::eventFilter(QObject* watched, QEvent* event) {
  if (!open()) return false;
  if (watched == topLevel_.get()) return frameEvent(event->type());
  if (event->type() == QEvent::FocusOut && leavesWindow(static_cast<QFocusEvent&>(*event))) {
    forms::userLeft(window());
  }
  // A key that a widget does not use comes again, to the widget that it is in.
  if (watched != topLevel_->focusWidget()) return false;
  if (event->type() == QEvent::KeyRelease) released(static_cast<const QKeyEvent&>(*event));
  ControlView* view = event->type() == QEvent::KeyPress ? viewOf(watched) : nullptr;
  if (view == nullptr) return false;
  return forms::guarded([&] { return pressed(*view, static_cast<const QKeyEvent&>(*event)); });
}

bool WindowView::frameEvent(QEvent::Type type) {
  switch (type) {
    case QEvent::Close:
      forms::userClosed(window());
      return true;
    case QEvent::Move:
      // On Wayland programs are not told where windows are, and Qt invents places.
      if (!isOnWayland() && topLevel_->isVisible() && !topLevel_->isMinimized()) {
        movedTo({topLevel_->x(), topLevel_->y()}, placed_);
      }
      return false;
    case QEvent::Resize: {
      const QSize now = topLevel_->size() - withMenuBar({});
      if (topLevel_->isVisible()) resizedTo({now.width(), now.height()});
      return false;
    }
    case QEvent::WindowStateChange:
    case QEvent::ActivationChange:
      placed_ = placed_ || topLevel_->isActiveWindow();
      minimizedTo(topLevel_->isMinimized());
      return false;
    case QEvent::PaletteChange:
      // Later, because the window is told of new colours before its controls have them.
      QMetaObject::invokeMethod(
          topLevel_.get(), [this] { recolored(); }, Qt::QueuedConnection);
      return false;
    default:
      return false;
  }
}

/// A key was pressed in a control. True: the widget must not see it.
bool WindowView::pressed(ControlView& view, const QKeyEvent& event) {
  if (!repeats(event)) forms::userPressedKey(view.control(), codeOf(event));
  if (event.key() == Qt::Key_F10 && event.modifiers() == Qt::NoModifier && menuBar_ != nullptr) {
    menuBar_->setActiveAction(menuBar_->actions().first());
    return true;
  }
  const bool letter = event.modifiers() == Qt::AltModifier && event.key() <= 0xFFFF;
  return (letter && forms::userPressedLetter(window(), static_cast<char16_t>(event.key()))) ||
         ViewSync::pressed(view, commandKey(event));
}

void WindowView::released(const QKeyEvent& event) {
  if (event.isAutoRepeat()) return;
  const bool counted = forms::userReleasedKey(window(), codeOf(event));
  lastReleased_ = {event.nativeScanCode(), event.timestamp(), counted};
}

bool WindowView::repeats(const QKeyEvent& event) const {
  if (event.isAutoRepeat()) return true;
  const Released& last = lastReleased_;
  const bool atOnce = event.timestamp() == last.time && event.nativeScanCode() == last.code;
  return atOnce && last.code != 0 && !last.counted;
}

void WindowView::show() {
  topLevel_->show();
  watch_.shown();
  topLevel_->activateWindow();
}

void WindowView::waitUntilUnloaded() {
  if (open()) loop_.exec();
  // The loop ends with the application, too, and with a widget that somebody has destroyed.
  forms::userClosed(window());
}

void WindowView::setTitle(const std::u16string& caption) {
  topLevel_->setWindowTitle(toQt(caption));
}

QSize WindowView::withMenuBar(forms::PixelSize inner) const {
  return {inner.width, inner.height + (menuBar_ == nullptr ? 0 : kMenuBarHeight)};
}

void WindowView::setInnerSize(forms::PixelSize inner) {
  const QSize size = withMenuBar(inner);
  const int menuBar = size.height() - inner.height;
  if (menuBar_ != nullptr) {
    // No higher than its menus, because the line under them ends there.
    menuBar_->setGeometry(0, 0, size.width(), std::min(menuBar, menuBar_->sizeHint().height()));
  }
  ground_->setGeometry(0, menuBar, inner.width, inner.height);
  if (window().design().resizable) {
    topLevel_->setMinimumSize(withMenuBar(smallestInnerSize()));
    topLevel_->resize(size);
  } else {
    topLevel_->setFixedSize(size);
  }
}

std::vector<forms::Rect> WindowView::screens() const {
  std::vector<forms::Rect> all;
  for (const QScreen* screen : QGuiApplication::screens()) {
    const QRectF area = screen->availableGeometry();
    all.push_back({area.left(), area.top(), area.width(), area.height()});
  }
  return all;
}

void WindowView::setPosition(forms::PixelPoint position) {
  topLevel_->move(position.left, position.top);
}

void WindowView::setTabOrder(const std::vector<Control*>& order) {
  QWidget* previous = nullptr;
  for (const Control* control : order) {
    QWidget* widget = viewOf(*control).widget();
    if (widget->focusPolicy() == Qt::NoFocus) continue;
    if (previous != nullptr) QWidget::setTabOrder(previous, widget);
    previous = widget;
  }
}

void WindowView::giveKeyboard(const Control* control) {
  if (control == nullptr) return;
  if (QWidget* widget = viewOf(*control).widget()) widget->setFocus(Qt::OtherFocusReason);
}

void WindowView::vanish() {
  if (topLevel_ == nullptr) return;
  topLevel_->hide();
  endLoops();
}

}  // namespace kvrnstep::qt
