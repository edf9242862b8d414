#include "gestures.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QKeySequence>
#include <QListView>
#include <QMenu>
#include <QStyle>
#include <QStyleOptionComboBox>
#include <QTest>
#include <utility>

#include "line_edit.h"
#include "menu_view.h"
#include "spinner_view.h"
#include "text.h"
#include "text_edit.h"
#include "user_input.h"

namespace kvrnstep::qt {

using forms::Chrome;
using forms::Kind;
using forms::kTwipsPerPixel;
using forms::MouseButton;

namespace {

Qt::MouseButton qtButton(MouseButton button) {
  switch (button) {
    case MouseButton::Middle:
      return Qt::MiddleButton;
    case MouseButton::Right:
      return Qt::RightButton;
    case MouseButton::Left:
      break;
  }
  return Qt::LeftButton;
}

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
    static_cast<TextEdit*>(lines)->select(selection);
  } else {
    static_cast<LineEdit*>(widget)->select(selection);
  }
  settle();
  return true;
}

QAction* actionWith(const WindowView& view, const QKeySequence& keys) {
  for (const auto& control : view.window().controls()) {
    if (control->kind() != Kind::Menu) continue;
    QAction& action = static_cast<MenuView&>(view.viewOf(*control)).action();
    if (action.shortcut() == keys) return &action;
  }
  return nullptr;
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

}  // namespace

bool clickControl(WindowView& view, forms::Control& control, MouseButton button, bool twice,
                  std::optional<int> entry) {
  QWidget* widget = view.viewOf(control).widget();
  if (widget == nullptr) return pickEntry(view, static_cast<forms::MenuEntry&>(control));
  const Presses presses = twice ? Presses::Twice : Presses::Once;
  if (auto* list = qobject_cast<QListView*>(widget)) {
    return entry ? clickListEntry(*list, *entry, qtButton(button), presses)
                 : click(*list->viewport(), qtButton(button), presses);
  }
  if (control.kind() == Kind::Spinner && button != MouseButton::Left) {
    auto& spinner = static_cast<SpinnerView&>(view.viewOf(control));
    return click(spinner.arrow(true), qtButton(button), presses);
  }
  return click(*widget, qtButton(button), presses);
}

bool typeText(WindowView& view, forms::TextControl& box, std::u16string_view text) {
  if (!enterBox(view, box, {box.text().size(), 0})) return false;
  typeText(view.topLevel(), text, [&] { return view.open(); });
  return true;
}

bool clearText(WindowView& view, forms::TextControl& box) {
  if (!enterBox(view, box, {0, box.text().size()})) return false;
  pressKey(view.topLevel(), Qt::Key_Delete);
  return true;
}

bool selectText(WindowView& view, forms::TextControl& box, forms::TextSelection selection) {
  return enterBox(view, box, selection);
}

bool pressShortcut(WindowView& view, std::string_view keys) {
  const auto sequence = QKeySequence::fromString(toQt(keys), QKeySequence::PortableText);
  const QAction* action = sequence.isEmpty() ? nullptr : actionWith(view, sequence);
  if (action == nullptr || !action->isEnabled()) return false;
  waitForUser(view.topLevel());
  pressKey(view.topLevel(), sequence[0].key(), sequence[0].keyboardModifiers());
  return true;
}

bool chooseEntry(WindowView& view, forms::ComboBox& combo, int entry) {
  auto& box = static_cast<QComboBox&>(*view.viewOf(combo).widget());
  QStyleOptionComboBox option;
  option.initFrom(&box);
  option.editable = true;
  const QRect arrow =
      box.style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxArrow, &box);
  waitForUser(view.topLevel());
  if (!clickAt(box, arrow.center()) || !QTest::qWaitForWindowExposed(box.view()->window())) {
    return false;
  }
  return clickListEntry(*box.view(), entry, Qt::LeftButton, Presses::Once);
}

bool clickArrow(WindowView& view, forms::Spinner& spinner, bool up) {
  return click(static_cast<SpinnerView&>(view.viewOf(spinner)).arrow(up));
}

bool pickEntry(WindowView& view, forms::MenuEntry& entry) {
  auto& item = static_cast<MenuView&>(view.viewOf(entry));
  const MenuView* menu = item.parent();
  if (menu == nullptr || !item.action().isEnabled() || !item.action().isVisible()) return false;
  waitForUser(view.topLevel());
  return openMenu(view, *menu) &&
         clickAt(*menu->menu(), menu->menu()->actionGeometry(&item.action()).center());
}

bool dragOnto(WindowView& view, forms::Control& from, forms::Control& to) {
  QWidget* source = view.viewOf(from).widget();
  QWidget* target = view.viewOf(to).widget();
  if (source == nullptr || target == nullptr) return false;
  waitForUser(view.topLevel());
  return dragAndDrop(*source, *target);
}

bool moveWindow(WindowView& view, double left, double top) {
  const QPoint wanted(qRound(left / kTwipsPerPixel), qRound(top / kTwipsPerPixel));
  view.topLevel().move(wanted);
  settle();
  // The screen knows whole pixels only; the rest is told of in the same way.
  if (view.open() && view.topLevel().pos() == wanted) forms::userMoved(view.window(), left, top);
  return true;
}

bool resizeWindow(WindowView& view, double width, double height) {
  if (!view.window().design().resizable) return false;
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

bool minimizeWindow(WindowView& view, bool minimized) {
  TopLevel& window = view.topLevel();
  window.setWindowState(window.windowState().setFlag(Qt::WindowMinimized, minimized));
  // A window manager has its own time, and may still be busy with showing the window.
  return QTest::qWaitFor([&] { return view.window().minimized() == minimized; });
}

bool closeWindow(WindowView& view) {
  view.topLevel().close();
  settle();
  return true;
}

}  // namespace kvrnstep::qt
