#include "window_view.h"

#include <QApplication>
#include <QCursor>
#include <QScreen>
#include <algorithm>

#include "artwork.h"
#include "button_views.h"
#include "combo_view.h"
#include "compact_style.h"
#include "forms/user_actions.h"
#include "forms/view_sync.h"
#include "list_view.h"
#include "menu_view.h"
#include "picture_views.h"
#include "qt_application.h"
#include "qt_fonts.h"
#include "spinner_view.h"
#include "text.h"
#include "text_views.h"

namespace kvrnstep::qt {

using forms::Control;

namespace {

constexpr int kMenuBarHeight = static_cast<int>(forms::Chrome::kMenuBar / forms::kTwipsPerPixel);

}  // namespace

WindowView::WindowView(forms::Window& window, QWidget* owner)
    : ViewSync(window),
      topLevel_(std::make_unique<TopLevel>(owner)),
      watch_(*topLevel_),
      commandKeys_(*this),
      ground_(new QWidget(topLevel_.get())) {
  topLevel_->setFont(captionFont());
  topLevel_->setWindowIcon(windowIcon());
  if (window.hasMenuBar()) makeMenuBar();
  makeViews();
  useCompactStyle(*topLevel_);
  showAll(1);

  topLevel_->onMoved = [this] { reportMove(); };
  topLevel_->onResized = [this] {
    const QSize now = topLevel_->size() - withMenuBar({});
    if (topLevel_->isVisible()) resizedTo({now.width(), now.height()});
  };
  topLevel_->onStateChanged = [this] { reportState(); };
  topLevel_->onCloseBox = [this] { forms::userClosed(this->window()); };
  topLevel_->onColorsChanged = [this] { followColors(); };
  topLevel_->onDestroyed = [this] { lose(); };
}

WindowView::~WindowView() {
  if (topLevel_ != nullptr) topLevel_->onDestroyed = nullptr;
  delete menuBar_;
  delete ground_;
}

/// Somebody else destroys the window. The controls stay as long as the view, because an event of
/// one of them may have led to this.
void WindowView::lose() {
  close();
  static_cast<void>(topLevel_.release());
  if (menuBar_ != nullptr) menuBar_->setParent(nullptr);
  ground_->setParent(nullptr);
  endLoops();
}

/// Of the window, and of a menu that has popped up in it.
void WindowView::endLoops() {
  for (QMenu* menu : ground_->findChildren<QMenu*>()) menu->close();
  loop_.quit();
}

void WindowView::makeMenuBar() {
  menuBar_ = new QMenuBar(topLevel_.get());
  // The menus belong into the window, wherever the desktop would like to put them.
  menuBar_->setNativeMenuBar(false);
  useFont(*menuBar_, captionFont());
  menuBar_->setAccessibleName(QStringLiteral("Menu"));
}

std::unique_ptr<forms::ControlSync> WindowView::makeView(Control& control) {
  return forms::makeViewOf<ContainerView, PushButtonView, CheckBoxView, OptionButtonView, ComboView,
                           TextBoxView, SpinnerView, ListView, LabelView, ImageView, StatusBarView,
                           MenuView>(*this, control);
}

ControlView& WindowView::viewOf(const Control& control) const {
  return static_cast<ControlView&>(syncOf(control));
}

QWidget* WindowView::parentFor(const Control& control) {
  return control.container() == nullptr ? ground_.data() : viewOf(*control.container()).widget();
}

MenuView* WindowView::menuAbove(const Control& entry) const {
  const Control* menu = entry.container();
  return menu == nullptr ? nullptr : &static_cast<MenuView&>(viewOf(*menu));
}

Control* WindowView::controlAt(QPoint onScreen) const {
  for (const QWidget* hit = QApplication::widgetAt(onScreen); hit != nullptr;
       hit = hit->parentWidget()) {
    if (const ControlView* view = viewOf(*hit)) return &view->control();
  }
  return nullptr;
}

ControlView* WindowView::viewOf(const QWidget& widget) const {
  const auto& all = window().controls();
  const auto found = std::ranges::find_if(
      all, [&](const auto& control) { return viewOf(*control).widget() == &widget; });
  return found == all.end() ? nullptr : &viewOf(**found);
}

bool WindowView::pressed(ControlView& view, forms::CommandKey key) {
  menuPlace_ = view.menuPlace();
  const bool dealtWith = forms::userPressedCommandKey(view.control(), key);
  menuPlace_.reset();
  return dealtWith;
}

bool WindowView::enterMenuBar() {
  if (menuBar_ == nullptr) return false;
  menuBar_->setActiveAction(menuBar_->actions().first());
  return true;
}

QPoint WindowView::menuPlace() const {
  return menuPlace_.value_or(QCursor::pos());
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
    // As high as its menus, or the line under them would break where no menu is.
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

void WindowView::reportMove() {
  // There nobody is told where windows are; Qt makes places up.
  if (isOnWayland()) return;
  if (!topLevel_->isVisible() || topLevel_->isMinimized()) return;
  movedTo({topLevel_->x(), topLevel_->y()}, placed_);
}

void WindowView::reportState() {
  placed_ = placed_ || topLevel_->isActiveWindow();
  minimizedTo(topLevel_->isMinimized());
}

/// The window hears of new colours before its controls have them.
void WindowView::followColors() {
  QMetaObject::invokeMethod(
      topLevel_.get(), [this] { recolored(); }, Qt::QueuedConnection);
}

}  // namespace kvrnstep::qt
