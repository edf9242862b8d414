#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QListView>

#include "menu_view.h"
#include "qt_driver.h"
#include "text.h"
#include "text/text.h"

namespace kvrnstep::qt {

using driving::Value;
using forms::Kind;

namespace {

std::optional<Value> ofEntry(const QAction& action, std::string_view property) {
  if (property == "caption") return action.isSeparator() ? u"-" : fromQt(action.text());
  if (property == "visible") return action.isVisible();
  if (property == "checked") return action.isChecked();
  // Qt disables an action that is not visible.
  if (property == "enabled" && action.isVisible()) return action.isEnabled();
  return std::nullopt;
}

std::optional<Value> ofAny(const QWidget& widget, std::string_view property) {
  // isEnabled() would also be false where only a container is disabled.
  if (property == "enabled") return !widget.testAttribute(Qt::WA_ForceDisabled);
  if (property == "visible") return !widget.isHidden();
  if (property == "tooltip") return fromQt(widget.toolTip());
  return std::nullopt;
}

std::optional<Value> ofCheckBox(const QCheckBox& box, std::string_view property) {
  const Qt::CheckState state = box.checkState();
  if (property == "checked") return state == Qt::Checked;
  if (property == "value") return state == Qt::Checked ? 1.0 : state == Qt::Unchecked ? 0.0 : 2.0;
  return std::nullopt;
}

std::u16string entriesOf(const QAbstractItemModel& model) {
  std::vector<std::u16string> entries;
  for (int row = 0; row < model.rowCount(); ++row) {
    entries.push_back(fromQt(model.index(row, 0).data().toString()));
  }
  return text::joined(entries);
}

std::optional<Value> ofEntries(const QWidget& widget, std::string_view property) {
  if (const auto* combo = qobject_cast<const QComboBox*>(&widget)) {
    if (property == "items") return entriesOf(*combo->model());
    if (property == "index") return static_cast<double>(combo->currentIndex());
  }
  if (const auto* list = qobject_cast<const QListView*>(&widget)) {
    if (property == "items") return entriesOf(*list->model());
    const auto rows = list->selectionModel()->selectedRows();
    if (property == "index") return rows.isEmpty() ? -1.0 : static_cast<double>(rows[0].row());
  }
  return std::nullopt;
}

std::optional<Value> ofKind(const QWidget& widget, Kind kind, std::string_view property) {
  if (const auto* box = qobject_cast<const QCheckBox*>(&widget)) {
    if (auto value = ofCheckBox(*box, property)) return value;
  }
  if (const auto* button = qobject_cast<const QAbstractButton*>(&widget)) {
    if (property == "caption") return fromQt(button->text());
    if (property == "value" || property == "checked") return button->isChecked();
  }
  const auto* label = qobject_cast<const QLabel*>(&widget);
  if (label != nullptr && property == "caption" && kind == Kind::Label)
    return fromQt(label->text());
  return ofEntries(widget, property);
}

}  // namespace

std::optional<Value> QtDriver::seen(const forms::Control& control,
                                    std::string_view property) const {
  const ControlView& view = viewOf(control);
  if (control.kind() == Kind::Menu) {
    return ofEntry(static_cast<const MenuView&>(view).action(), property);
  }
  const auto value = ofAny(*view.widget(), property);
  return value ? value : ofKind(*view.widget(), control.kind(), property);
}

}  // namespace kvrnstep::qt
