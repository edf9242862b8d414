#include "window_view.h"

#include <QApplication>
#include <QCursor>
#include <QScreen>
#include <algorithm>
#include <utility>

#include "artwork.h"
#include "button_views.h"
#include "combo_view.h"
#include "compact_style.h"
#include "forms/reading_order.h"
#include "forms/screen_place.h"
#include "forms/user_actions.h"
#include "host_window.h"
#include "list_view.h"
#include "menu_view.h"
#include "picture_views.h"
#include "qt_application.h"
#include "qt_fonts.h"
#include "spinner_view.h"
#include "text.h"
#include "text_views.h"

namespace kvrnstep::qt {

using forms::Chrome;
using forms::Control;
using forms::Kind;
using forms::kTwipsPerPixel;
using forms::Property;

namespace {

constexpr int kMenuBarHeight = static_cast<int>(Chrome::kMenuBar / kTwipsPerPixel);

double toPixels(double twips) {
  return qRound(twips / kTwipsPerPixel);
}

/// What the desktop's panels leave of each screen.
std::vector<forms::Rect> screens() {
  std::vector<forms::Rect> all;
  for (const QScreen* screen : QGuiApplication::screens()) {
    const QRectF area = screen->availableGeometry();
    all.push_back({area.left(), area.top(), area.width(), area.height()});
  }
  return all;
}

}  // namespace

WindowView::WindowView(forms::Window& window, QWidget* owner)
    : window_(window),
      topLevel_(std::make_unique<TopLevel>(owner)),
      commandKeys_(*this),
      ground_(new QWidget(topLevel_.get())),
      focus_(forms::firstFocus(window)) {
  topLevel_->setFont(captionFont());
  topLevel_->setWindowIcon(windowIcon());
  build();
  useCompactStyle(*topLevel_);
  changes_.addAll();
  for (const auto& view : views_) view->markAll();
  update();

  topLevel_->onMoved = [this] { reportMove(); };
  topLevel_->onResized = [this] { reportResize(); };
  topLevel_->onStateChanged = [this] { reportState(); };
  topLevel_->onCloseBox = [this] { forms::userClosed(window_); };
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

void WindowView::build() {
  if (window_.hasMenuBar()) {
    menuBar_ = new QMenuBar(topLevel_.get());
    // The menus belong into the window, wherever the desktop would like to put them.
    menuBar_->setNativeMenuBar(false);
    useFont(*menuBar_, captionFont());
    menuBar_->setAccessibleName(QStringLiteral("Menu"));
  }
  for (const auto& control : window_.controls()) {
    views_.push_back(makeView(*control));
    byControl_.emplace(control.get(), views_.back().get());
  }
  joinLabels();
}

std::unique_ptr<ControlView> WindowView::makeView(Control& control) {
  switch (control.kind()) {
    case Kind::Frame:
    case Kind::Panel:
      return std::make_unique<ContainerView>(*this, control);
    case Kind::Button:
      return std::make_unique<PushButtonView>(*this, control);
    case Kind::CheckBox:
      return std::make_unique<CheckBoxView>(*this, static_cast<forms::CheckBox&>(control));
    case Kind::OptionButton:
      return std::make_unique<OptionButtonView>(*this, static_cast<forms::OptionButton&>(control));
    case Kind::ComboBox:
      return std::make_unique<ComboView>(*this, static_cast<forms::ComboBox&>(control));
    case Kind::TextBox: {
      auto& box = static_cast<forms::TextBox&>(control);
      if (box.row().multiLine) return std::make_unique<MultiLineView>(*this, box);
      return std::make_unique<SingleLineView>(*this, box);
    }
    case Kind::Spinner:
      return std::make_unique<SpinnerView>(*this, static_cast<forms::Spinner&>(control));
    case Kind::ListBox:
      return std::make_unique<ListView>(*this, static_cast<forms::ListBox&>(control));
    case Kind::Label:
      return std::make_unique<LabelView>(*this, control);
    case Kind::Image:
      return std::make_unique<ImageView>(*this, control);
    case Kind::StatusBar:
      return std::make_unique<StatusBarView>(*this, control);
    case Kind::Menu:
      break;
  }
  auto* menu = control.container() == nullptr
                   ? nullptr
                   : static_cast<MenuView*>(&viewOf(*control.container()));
  return std::make_unique<MenuView>(*this, static_cast<forms::MenuEntry&>(control), menu);
}

void WindowView::joinLabels() {
  for (const auto& view : views_) {
    if (view->control().kind() != Kind::Label) continue;
    const forms::ControlRow& row = view->control().row();
    const Control* box = window_.find(row.buddy, row.buddyIndex);
    if (box != nullptr) static_cast<LabelView&>(*view).setBuddy(viewOf(*box).widget());
  }
}

ControlView& WindowView::viewOf(const Control& control) const {
  return *byControl_.at(&control);
}

QWidget* WindowView::parentFor(const Control& control) {
  return control.container() == nullptr ? ground_.data() : viewOf(*control.container()).widget();
}

int WindowView::pixels(double units) const {
  return qRound(units * window_.design().twipsPerUnit / kTwipsPerPixel);
}

QRect WindowView::pixelPlace(const Control& control) const {
  const forms::Rect place = control.shownPlace();
  const int left = pixels(place.left);
  const int top = pixels(place.top);
  return {left, top, pixels(place.left + place.width) - left,
          pixels(place.top + place.height) - top};
}

Control* WindowView::controlAt(QPoint onScreen) const {
  for (const QWidget* hit = QApplication::widgetAt(onScreen); hit != nullptr;
       hit = hit->parentWidget()) {
    const auto view = std::ranges::find(views_, hit, [](const auto& v) { return v->widget(); });
    if (view != views_.end()) return &(*view)->control();
  }
  return nullptr;
}

ControlView* WindowView::viewOf(const QWidget& widget) const {
  const auto found =
      std::ranges::find_if(views_, [&](const auto& view) { return view->widget() == &widget; });
  return found == views_.end() ? nullptr : found->get();
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
  if (applicationIsOurs()) stayInFrontOfHost(*topLevel_);
  topLevel_->activateWindow();
}

void WindowView::waitUntilUnloaded() {
  if (open()) loop_.exec();
  // The loop ends with the application, too, and with a widget that somebody has destroyed.
  forms::userClosed(window_);
}

void WindowView::changed(Control& control, Property property) {
  viewOf(control).mark(property);
  arrangementChanged_ = arrangementChanged_ || property == Property::Left ||
                        property == Property::Width || property == Property::Visible ||
                        property == Property::Enabled;
}

void WindowView::changed(Property property) {
  changes_.add(property);
  arrangementChanged_ = true;
}

void WindowView::markKind(Kind kind, Property property) {
  for (const auto& view : views_) {
    if (view->control().kind() == kind) view->mark(property);
  }
}

void WindowView::update() {
  if (!open() || updating_) return;
  updating_ = true;
  for (const auto& view : views_) view->applyChanges();
  applyWindow(std::exchange(changes_, Changes()));
  if (std::exchange(arrangementChanged_, false)) arrangeFocus();
  giveFocus();
  updating_ = false;
}

void WindowView::applyWindow(const Changes& changes) {
  if (changes.has(Property::Caption)) topLevel_->setWindowTitle(toQt(window_.caption()));
  if (changes.has(Property::Width) || changes.has(Property::Height)) applySize();
  if (changes.has(Property::Left) || changes.has(Property::Top)) applyPosition();
}

QSize WindowView::frameless() const {
  const int menuBar = menuBar_ == nullptr ? 0 : kMenuBarHeight;
  return {pixels(window_.innerWidth()), pixels(window_.innerHeight()) + menuBar};
}

QSize WindowView::smallest() const {
  const forms::WindowDesign& design = window_.design();
  return {qRound((design.minimumWidth - Chrome::kSides) / kTwipsPerPixel),
          qRound((design.minimumHeight - Chrome::kTitleAndBorders) / kTwipsPerPixel)};
}

void WindowView::applySize() {
  const QSize size = frameless();
  const int menuBar = menuBar_ == nullptr ? 0 : kMenuBarHeight;
  if (menuBar_ != nullptr) {
    // As high as its menus, or the line under them would break where no menu is.
    menuBar_->setGeometry(0, 0, size.width(), std::min(menuBar, menuBar_->sizeHint().height()));
  }
  ground_->setGeometry(0, menuBar, size.width(), size.height() - menuBar);
  if (window_.design().resizable) {
    topLevel_->setMinimumSize(smallest());
    topLevel_->resize(size);
  } else {
    topLevel_->setFixedSize(size);
  }
}

void WindowView::applyPosition() {
  const forms::Rect& place = window_.place();
  const forms::Rect shown = forms::placeOnScreen(
      {toPixels(place.left), toPixels(place.top), toPixels(place.width), toPixels(place.height)},
      screens());
  position_ = QPointF(shown.left, shown.top).toPoint();
  topLevel_->move(position_);
}

void WindowView::arrangeFocus() {
  QWidget* previous = nullptr;
  for (Control* control : forms::tabOrder(window_)) {
    ControlView& view = viewOf(*control);
    view.allowFocus(control->reachable());
    QWidget* widget = view.widget();
    if (widget->focusPolicy() == Qt::NoFocus) continue;
    if (previous != nullptr) QWidget::setTabOrder(previous, widget);
    previous = widget;
  }
}

void WindowView::setFocus(Control& control) {
  focus_ = &control;
}

void WindowView::giveFocus() {
  if (const Control* control = std::exchange(focus_, nullptr)) {
    if (QWidget* widget = viewOf(*control).widget()) widget->setFocus(Qt::OtherFocusReason);
  }
}

void WindowView::unloaded() {
  unloaded_ = true;
  if (topLevel_ == nullptr) return;
  topLevel_->hide();
  endLoops();
}

void WindowView::reportMove() {
  // There nobody is told where windows are; Qt makes places up.
  if (isOnWayland()) return;
  if (updating_ || unloaded_ || !topLevel_->isVisible() || topLevel_->isMinimized()) return;
  const QPoint now = topLevel_->pos();
  if (std::exchange(position_, now) == now || !placed_) return;
  forms::userMoved(window_, now.x() * kTwipsPerPixel, now.y() * kTwipsPerPixel);
}

void WindowView::reportResize() {
  if (updating_ || unloaded_ || !window_.design().resizable || !topLevel_->isVisible()) return;
  const QSize now = topLevel_->size();
  if (now == frameless()) return;
  forms::userResized(window_, now.width() * kTwipsPerPixel + Chrome::kSides,
                     now.height() * kTwipsPerPixel + Chrome::kTitleAndBorders);
  applySize();
}

void WindowView::reportState() {
  placed_ = placed_ || topLevel_->isActiveWindow();
  const bool minimized = topLevel_->isMinimized();
  if (!unloaded_ && minimized != window_.minimized()) forms::userMinimized(window_, minimized);
}

/// What is computed from the desktop's colours is computed anew. The window hears of new colours
/// before its controls have them.
void WindowView::followColors() {
  const auto recolor = [this] {
    for (const auto& view : views_) view->mark(Property::ForeColor);
    update();
  };
  QMetaObject::invokeMethod(topLevel_.get(), recolor, Qt::QueuedConnection);
}

}  // namespace kvrnstep::qt
