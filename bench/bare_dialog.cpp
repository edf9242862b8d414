#include "bare_dialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>
#include <QToolButton>
#include <algorithm>
#include <array>

namespace kvrnstep::bench {

namespace {

template <class Widget>
QWidget* make(QWidget* parent) {
  return new Widget(parent);
}

QWidget* makeComboBox(QWidget* parent) {
  auto* box = new QComboBox(parent);
  box->setEditable(true);
  return box;
}

struct Kind {
  const char* name;
  QWidget* (*make)(QWidget* parent);
};
/// What a widget inherits comes behind it.
constexpr std::array kKinds{
    Kind{"QComboBox", makeComboBox},        Kind{"QPlainTextEdit", make<QPlainTextEdit>},
    Kind{"QListView", make<QListView>},     Kind{"QLineEdit", make<QLineEdit>},
    Kind{"QCheckBox", make<QCheckBox>},     Kind{"QRadioButton", make<QRadioButton>},
    Kind{"QPushButton", make<QPushButton>}, Kind{"QToolButton", make<QToolButton>},
    Kind{"QLabel", make<QLabel>},           Kind{"QWidget", make<QWidget>},
};
/// So many of them bring their own parts with them.
constexpr int kWholeKinds = 4;

std::vector<Part> partsOf(const QWidget& widget) {
  std::vector<Part> parts;
  for (const QWidget* child : widget.findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
    if (child->isWindow() || child->inherits("QMenuBar")) continue;
    const auto* const kind =
        std::ranges::find_if(kKinds, [&](const Kind& each) { return child->inherits(each.name); });
    Part part{static_cast<int>(kind - kKinds.begin()),
              child->geometry(),
              child->isHidden(),
              child->property("text").toString(),
              {}};
    if (part.kind >= kWholeKinds) part.within = partsOf(*child);
    parts.push_back(std::move(part));
  }
  return parts;
}

void fill(QWidget& parent, const std::vector<Part>& parts) {
  for (const Part& part : parts) {
    QWidget* widget = kKinds.at(static_cast<std::size_t>(part.kind)).make(&parent);
    widget->setGeometry(part.place);
    if (!part.caption.isEmpty()) widget->setProperty("text", part.caption);
    if (part.hidden) widget->hide();
    fill(*widget, part.within);
  }
}

QDataStream& operator<<(QDataStream& stream, const std::vector<Part>& parts) {
  stream << static_cast<quint32>(parts.size());
  for (const Part& part : parts) {
    stream << part.kind << part.place << part.hidden << part.caption << part.within;
  }
  return stream;
}

QDataStream& operator>>(QDataStream& stream, std::vector<Part>& parts) {
  quint32 count = 0;
  stream >> count;
  parts.resize(count);
  for (Part& part : parts) {
    stream >> part.kind >> part.place >> part.hidden >> part.caption >> part.within;
  }
  return stream;
}

}  // namespace

Design::Design(const QWidget& window)
    : size(window.size()), menus(window.findChildren<QMenu*>().size()), parts(partsOf(window)) {}

void Design::fill(QDialog& dialog) const {
  auto* bar = new QMenuBar(&dialog);
  for (qsizetype i = 0; i < menus; ++i) bar->addMenu("Menu");
  bench::fill(dialog, parts);
  dialog.setFixedSize(size);
}

QDataStream& operator<<(QDataStream& stream, const Design& design) {
  return stream << design.size << qint64{design.menus} << design.parts;
}

QDataStream& operator>>(QDataStream& stream, Design& design) {
  qint64 menus = 0;
  stream >> design.size >> menus >> design.parts;
  design.menus = menus;
  return stream;
}

bool Opening::eventFilter(QObject* watched, QEvent* event) {
  auto* widget = qobject_cast<QWidget*>(watched);
  if (event->type() == QEvent::Paint && widget != nullptr && widget->isWindow() && !painted_) {
    painted_ = true;
    QTimer::singleShot(0, widget, [this, widget] {
      nanoseconds_ = timer_.nsecsElapsed();
      look(*widget);
      widget->close();
    });
  }
  return QObject::eventFilter(watched, event);
}

}  // namespace kvrnstep::bench
