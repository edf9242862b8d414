#include "control_view.h"

#include <QStatusBar>
#include <QStringListModel>

#include "active_label.h"
#include "forms/keyboard.h"
#include "looks.h"
#include "text.h"
#include "text/text.h"
#include "window_view.h"

namespace kvrnstep::qt {

ControlView::ControlView(WindowView& window, forms::Control& control, QWidget* widget)
    : ControlSync(window, control), widget_(widget) {
  if (widget == nullptr) return;
  focusPolicy_ = widget->focusPolicy();
  widget->setObjectName(QString::fromStdString(control.scriptName()));
  widget->setAccessibleName(toQt(forms::accessibleName(control)));
  widget->setToolTip(toQt(control.row().toolTip));
  widget->installEventFilter(&window);
}

void ControlView::setPlace(const forms::PixelRect& place) {
  widget_->setGeometry(place.left, place.top, place.width, place.height);
}

void ControlView::setTabStop(bool on) {
  // Qt itself moves the turn of Tab within a group of option buttons.
  if (control().kind() == forms::Kind::OptionButton) return;
  widget_->setFocusPolicy(on ? focusPolicy_ : Qt::NoFocus);
}

void ControlView::fitCaption() {
  QFont font = fittedCaptionFont(toQt(text::withoutMnemonic(control().caption())), captionWidth());
  font.setUnderline(forms::isLink(control()));
  useFont(*widget_, font);
}

forms::TextSync* ControlView::text() {
  return dynamic_cast<forms::TextSync*>(widget_);
}

void showEntries(QAbstractItemModel* model, const std::vector<std::u16string>& entries) {
  QStringList texts;
  for (const std::u16string& entry : entries) texts << toQt(entry);
  static_cast<QStringListModel&>(*model).setStringList(texts);
}

GroundView::GroundView(WindowView& window, forms::Control& control)
    : ControlView(window, control,
                  control.kind() == forms::Kind::StatusBar
                      ? new QStatusBar(window.parentFor(control))
                      : makeGroup(window.parentFor(control))) {}

}  // namespace kvrnstep::qt
