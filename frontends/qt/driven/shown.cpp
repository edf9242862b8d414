#include "shown.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QListView>
#include <QScrollBar>
#include <algorithm>

#include "line_edit.h"
#include "menu_view.h"
#include "text.h"
#include "text/text.h"
#include "text_edit.h"

namespace kvrnstep::qt {

using driving::Value;
using forms::Kind;

namespace {

std::optional<Value> ofEntry(const QAction& action, std::string_view property) {
  if (property == "caption") return action.isSeparator() ? u"-" : fromQt(action.text());
  if (property == "visible") return action.isVisible();
  if (property == "checked") return action.isChecked();
  // What cannot be seen counts as disabled, whatever it was set to.
  if (property == "enabled" && action.isVisible()) return action.isEnabled();
  return std::nullopt;
}

std::optional<Value> ofAny(const QWidget& widget, std::string_view property) {
  // isEnabled() would tell of the containers too.
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

std::optional<Value> ofText(const forms::TextSync& box, std::string_view property) {
  if (property == "text") return box.shownText();
  if (property == "selstart") return static_cast<double>(box.shownSelection().start);
  if (property == "sellength") return static_cast<double>(box.shownSelection().length);
  return std::nullopt;
}

std::u16string entriesOf(const QAbstractItemModel& model) {
  std::vector<std::u16string> entries;
  for (int row = 0; row < model.rowCount(); ++row) {
    entries.push_back(fromQt(model.index(row, 0).data().toString()));
  }
  return text::joined(entries);
}

std::optional<Value> ofList(const QListView& view, const forms::ListBox& list,
                            std::string_view property) {
  if (property == "items") return entriesOf(*view.model());
  if (property == "index") {
    const auto rows = view.selectionModel()->selectedRows();
    return rows.isEmpty() ? -1.0 : static_cast<double>(rows.front().row());
  }
  if (property == "topindex") {
    // Scrolled as far as the list reaches is as good as scrolled further.
    const QScrollBar& bar = *view.verticalScrollBar();
    const bool asFarAsItGoes = bar.value() == std::min(list.topIndex(), bar.maximum());
    return static_cast<double>(asFarAsItGoes ? list.topIndex() : bar.value());
  }
  return std::nullopt;
}

std::optional<Value> ofKind(const QWidget& widget, const forms::Control& control,
                            std::string_view property) {
  if (const auto* box = qobject_cast<const QCheckBox*>(&widget)) {
    if (const auto value = ofCheckBox(*box, property)) return value;
  }
  if (const auto* button = qobject_cast<const QAbstractButton*>(&widget)) {
    if (property == "caption") return fromQt(button->text());
    if (property == "value" || property == "checked") return button->isChecked();
  }
  if (const auto* label = qobject_cast<const QLabel*>(&widget)) {
    if (property == "caption" && control.kind() == Kind::Label) return fromQt(label->text());
  }
  if (const auto* line = qobject_cast<const QLineEdit*>(&widget)) {
    return ofText(static_cast<const LineEdit&>(*line), property);
  }
  if (const auto* lines = qobject_cast<const QPlainTextEdit*>(&widget)) {
    return ofText(static_cast<const TextEdit&>(*lines), property);
  }
  if (const auto* combo = qobject_cast<const QComboBox*>(&widget)) {
    if (property == "items") return entriesOf(*combo->model());
    if (property == "index") return static_cast<double>(combo->currentIndex());
    return ofKind(*combo->lineEdit(), control, property);
  }
  if (const auto* list = qobject_cast<const QListView*>(&widget)) {
    return ofList(*list, static_cast<const forms::ListBox&>(control), property);
  }
  return std::nullopt;
}

}  // namespace

std::optional<Value> shown(const WindowView& view, const forms::Control& control,
                           std::string_view property) {
  const ControlView& drawn = view.viewOf(control);
  if (control.kind() == Kind::Menu) {
    return ofEntry(static_cast<const MenuView&>(drawn).action(), property);
  }
  const auto value = ofAny(*drawn.widget(), property);
  return value ? value : ofKind(*drawn.widget(), control, property);
}

}  // namespace kvrnstep::qt
