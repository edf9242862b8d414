#include "gestures.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QKeySequence>
#include <QListView>
#include <QMenu>
#include <QStyle>
#include <QStyleOptionComboBox>
#include <QTest>

#include "forms/user_actions.h"
#include "line_edit.h"
#include "menu_view.h"
#include "spinner_view.h"
#include "text.h"
#include "text_edit.h"
#include "user_input.h"

namespace kvrnstep::qt {

using driving::Gesture;
using forms::Chrome;
using forms::Kind;
using forms::kTwipsPerPixel;
using What = Gesture::What;

namespace {

/// Scrolls to the entry first, as the user has to.
bool clickListEntry(QAbstractItemView& list, int entry, Qt::MouseButton button, Presses presses) {
  const QModelIndex index = list.model()->index(entry, 0);
  if (!index.isValid()) return false;
  list.scrollTo(index);
  const QRect inView = list.visualRect(index) & list.viewport()->rect();
  return clickAt(*list.viewport(), inView.center(), button, presses);
}

/// Puts the keyboard into the box with a click, and the caret or the mark where it is wanted.
bool enterBox(WindowView& view, forms::TextControl& box, forms::TextSelection selection) {
  QWidget* widget = view.viewOf(box).widget();
  if (auto* combo = qobject_cast<QComboBox*>(widget)) widget = combo->lineEdit();
  waitForUser(view.topLevel());
  auto* lines = qobject_cast<QPlainTextEdit*>(widget);
  if (!click(lines != nullptr ? *lines->viewport() : *widget)) return false;
  if (lines != nullptr) {
    static_cast<TextEdit*>(lines)->setSelection(selection);
  } else {
    static_cast<LineEdit*>(widget)->setSelection(selection);
  }
  settle();
  return true;
}

/// Opens the menu by the way that leads to it: the menu bar, then each menu on the way down.
bool openMenu(WindowView& view, const MenuView& menu) {
  if (menu.menu()->isVisible()) return true;
  const MenuView* outer = menu.parent();
  if (outer == nullptr) {
    QMenuBar* bar = view.menuBar();
    if (bar == nullptr || !bar->actions().contains(&menu.action())) return false;
    if (!clickAt(*bar, bar->actionGeometry(&menu.action()).center())) return false;
  } else {
    if (!openMenu(view, *outer)) return false;
    if (!clickAt(*outer->menu(), outer->menu()->actionGeometry(&menu.action()).center())) {
      return false;
    }
  }
  return QTest::qWaitForWindowExposed(menu.menu());
}

bool pickEntry(WindowView& view, const forms::Control& entry) {
  auto& item = static_cast<MenuView&>(view.viewOf(entry));
  const MenuView* menu = item.parent();
  if (menu == nullptr || !item.action().isEnabled() || !item.action().isVisible()) return false;
  waitForUser(view.topLevel());
  return openMenu(view, *menu) &&
         clickAt(*menu->menu(), menu->menu()->actionGeometry(&item.action()).center());
}

bool clickControl(WindowView& view, const Gesture& gesture) {
  ControlView& clicked = view.viewOf(*gesture.control);
  QWidget* widget = clicked.widget();
  if (widget == nullptr) return pickEntry(view, *gesture.control);
  const Presses presses = gesture.what == What::DoubleClick ? Presses::Twice : Presses::Once;
  const auto button = gesture.what == What::RightClick ? Qt::RightButton : Qt::LeftButton;
  if (auto* list = qobject_cast<QListView*>(widget)) {
    return gesture.entry ? clickListEntry(*list, *gesture.entry, button, presses)
                         : click(*list->viewport(), button, presses);
  }
  if (gesture.control->kind() == Kind::Spinner && button != Qt::LeftButton) {
    widget = &static_cast<SpinnerView&>(clicked).arrow(true);
  }
  return click(*widget, button, presses);
}

bool type(WindowView& view, const Gesture& gesture) {
  auto& box = gesture.on<forms::TextControl>();
  if (!enterBox(view, box, {box.text().size(), 0})) return false;
  typeText(view.topLevel(), gesture.text, [&] { return view.open(); });
  return true;
}

bool clear(WindowView& view, forms::TextControl& box) {
  if (!enterBox(view, box, {0, box.text().size()})) return false;
  pressKey(view.topLevel(), Qt::Key_Delete);
  return true;
}

bool pressShortcut(WindowView& view, const forms::Control& entry) {
  const QAction& action = static_cast<MenuView&>(view.viewOf(entry)).action();
  if (!action.isEnabled()) return false;
  const QKeyCombination keys = action.shortcut()[0];
  waitForUser(view.topLevel());
  pressKey(view.topLevel(), keys.key(), keys.keyboardModifiers());
  return true;
}

bool chooseEntry(WindowView& view, const Gesture& gesture) {
  auto& box = static_cast<QComboBox&>(*view.viewOf(*gesture.control).widget());
  QStyleOptionComboBox option;
  option.initFrom(&box);
  option.editable = true;
  const QRect arrow =
      box.style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxArrow, &box);
  waitForUser(view.topLevel());
  if (!clickAt(box, arrow.center()) || !QTest::qWaitForWindowExposed(box.view()->window())) {
    return false;
  }
  return clickListEntry(*box.view(), *gesture.entry, Qt::LeftButton, Presses::Once);
}

bool drag(WindowView& view, const Gesture& gesture) {
  QWidget* source = view.viewOf(*gesture.control).widget();
  QWidget* target = view.viewOf(*gesture.target).widget();
  if (source == nullptr || target == nullptr) return false;
  waitForUser(view.topLevel());
  return dragAndDrop(*source, *target);
}

bool move(WindowView& view, double left, double top) {
  const QPoint wanted(qRound(left / kTwipsPerPixel), qRound(top / kTwipsPerPixel));
  view.topLevel().move(wanted);
  settle();
  // The screen knows whole pixels only; the rest is told of in the same way.
  if (view.open() && view.topLevel().pos() == wanted) forms::userMoved(view.window(), left, top);
  return true;
}

bool resize(WindowView& view, double width, double height) {
  const QSize wanted(qRound((width - Chrome::kSides) / kTwipsPerPixel),
                     qRound((height - Chrome::kTitleAndBorders) / kTwipsPerPixel));
  view.topLevel().resize(wanted);
  settle();
  // The screen knows whole pixels only; the rest is told of in the same way.
  if (view.open() && view.topLevel().size() == wanted) {
    forms::userResized(view.window(), width, height);
  }
  return true;
}

bool minimize(WindowView& view, bool minimized) {
  QWidget& window = view.topLevel();
  window.setWindowState(window.windowState().setFlag(Qt::WindowMinimized, minimized));
  // A window manager has its own time, and may still be busy with showing the window.
  return QTest::qWaitFor([&] { return view.window().minimized() == minimized; });
}

bool close(WindowView& view) {
  view.topLevel().close();
  settle();
  return true;
}

}  // namespace

bool carryOut(WindowView& view, const Gesture& gesture) {
  switch (gesture.what) {
    case What::Click:
    case What::DoubleClick:
    case What::RightClick:
      return clickControl(view, gesture);
    case What::Type:
      return type(view, gesture);
    case What::Clear:
      return clear(view, gesture.on<forms::TextControl>());
    case What::Select:
      return enterBox(view, gesture.on<forms::TextControl>(), gesture.selection());
    case What::Press:
      return pressShortcut(view, *gesture.control);
    case What::Choose:
      return chooseEntry(view, gesture);
    case What::SpinUp:
    case What::SpinDown: {
      auto& spinner = static_cast<SpinnerView&>(view.viewOf(*gesture.control));
      return click(spinner.arrow(gesture.what == What::SpinUp));
    }
    case What::Drag:
      return drag(view, gesture);
    case What::Pick:
      return pickEntry(view, *gesture.control);
    case What::Move:
      return move(view, gesture.numbers[0], gesture.numbers[1]);
    case What::Resize:
      return resize(view, gesture.numbers[0], gesture.numbers[1]);
    case What::Minimize:
    case What::Restore:
      return minimize(view, gesture.what == What::Minimize);
    case What::Close:
      return close(view);
    case What::Escape:
      break;
  }
  return false;
}

}  // namespace kvrnstep::qt
