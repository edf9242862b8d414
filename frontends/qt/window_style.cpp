#include "window_style.h"

#include <QApplication>
#include <QCheckBox>
#include <QFocusFrame>
#include <QLabel>
#include <QPainter>
#include <QPointer>
#include <QRadioButton>
#include <QStyleOption>
#include <algorithm>

#include "looks.h"
#include "shapes.h"

namespace kvrnstep::qt {

namespace {

constexpr int kRing = 2;
constexpr int kBesideRing = 3;
constexpr int kScrollBar = 9;
constexpr int kRound = 3;

bool has(const QStyleOption& option, QStyle::StateFlag state) {
  return option.state.testFlag(state);
}

bool isHovered(const QStyleOption& option) {
  return has(option, QStyle::State_MouseOver) && has(option, QStyle::State_Enabled);
}

QColor outlineOf(const QStyleOption& option) {
  if (isHovered(option)) return option.palette.color(QPalette::WindowText);
  const Shades& shades = shadesOf(option.palette);
  return has(option, QStyle::State_Enabled) ? shades.outline : shades.disabledOutline;
}

/// The ground of controls that hold a text or a mark.
Box fieldOf(const QStyleOption& option) {
  const auto ground = has(option, QStyle::State_Enabled) ? QPalette::Base : QPalette::Window;
  return {option.palette.color(ground), outlineOf(option), 1, kSquare};
}

/// The box of a check mark or of an option. What is chosen has the accent colour.
Box indicatorOf(const QStyleOption& option) {
  Box box = fieldOf(option);
  const bool marked = has(option, QStyle::State_On) || has(option, QStyle::State_NoChange);
  if (!has(option, QStyle::State_Enabled) || !marked) return box;
  const Shades& shades = shadesOf(option.palette);
  box.ground = shades.accent;
  if (!isHovered(option)) box.outline = shades.accentOutline;
  return box;
}

QColor markColorOf(const QStyleOption& option) {
  return has(option, QStyle::State_Enabled) ? shadesOf(option.palette).onAccent
                                            : option.palette.color(QPalette::Text);
}

bool isMain(const QStyleOptionButton& button) {
  return button.features.testFlag(QStyleOptionButton::DefaultButton) &&
         has(button, QStyle::State_Enabled);
}

Box buttonOf(const QStyleOption& option, bool main) {
  constexpr int kHover = 8;
  constexpr int kPressed = 20;
  constexpr int kSmall = 14;
  const int round = option.rect.height() < kSmall ? kSquare : kRound;
  const Shades& shades = shadesOf(option.palette);
  const QColor ground = main ? shades.accent : shades.button;
  // Away from the text, which stays as easy to read.
  const QColor towards = main ? shades.onAccent.lightness() > 127 ? Qt::black : Qt::white
                              : option.palette.color(QPalette::WindowText);
  if (!has(option, QStyle::State_Enabled)) {
    return {option.palette.color(QPalette::Window), outlineOf(option), 1, round};
  }
  const bool down = has(option, QStyle::State_Sunken) || has(option, QStyle::State_On);
  return {mixed(ground, towards,
                down                ? kPressed
                : isHovered(option) ? kHover
                                    : 0),
          main ? shades.accentOutline : outlineOf(option), 1, round};
}

void drawCheckBox(QPainter& painter, const QStyleOption& option) {
  drawBox(painter, option.rect, indicatorOf(option));
  const bool partly = has(option, QStyle::State_NoChange);
  if (!partly && !has(option, QStyle::State_On)) return;
  drawMark(painter, option.rect, partly ? Mark::Dash : Mark::Check, markColorOf(option));
}

void drawOption(QPainter& painter, const QStyleOption& option) {
  const bool chosen = has(option, QStyle::State_On);
  drawCircle(painter, option.rect, indicatorOf(option),
             chosen ? markColorOf(option) : Qt::transparent);
}

bool isLink(const QLabel& label) {
  return label.font().underline();
}

/// The part that the ring is drawn around. Of check boxes, options and links it is the caption, so
/// that the ring does not touch the mark or the rows above and below.
QRect ringedPart(const QWidget& widget) {
  const QStyle& style = *widget.style();
  QStyleOptionButton option;
  option.initFrom(&widget);
  if (const auto* box = qobject_cast<const QCheckBox*>(&widget)) {
    option.text = box->text();
    return style.subElementRect(QStyle::SE_CheckBoxFocusRect, &option, box);
  }
  if (const auto* button = qobject_cast<const QRadioButton*>(&widget)) {
    option.text = button->text();
    return style.subElementRect(QStyle::SE_RadioButtonFocusRect, &option, button);
  }
  const auto* label = qobject_cast<const QLabel*>(&widget);
  if (label == nullptr || !isLink(*label)) return widget.rect();
  return style.itemTextRect(label->fontMetrics(), label->rect(),
                            static_cast<int>(label->alignment()) | Qt::TextShowMnemonic, true,
                            label->text());
}

/// How far the ring is from what it is around. Boxes and buttons have it on their own outlines.
QSize ringMargin(const QWidget& widget) {
  if (widget.inherits("QCheckBox") || widget.inherits("QRadioButton")) return {1, 0};
  const auto* label = qobject_cast<const QLabel*>(&widget);
  const bool beside = label != nullptr && (isLink(*label) || label->text().isEmpty());
  return beside ? QSize(kRing, kRing) : QSize(0, 0);
}

bool isField(const QWidget& widget) {
  return widget.inherits("QLineEdit") || widget.inherits("QComboBox") ||
         widget.inherits("QAbstractScrollArea");
}

/// Buttons and pictures have a gap within the ring, because they may be as dark.
void drawRing(QPainter& painter, const QStyleOption& option, const QWidget& ringed) {
  const QSize margin = ringMargin(ringed);
  const QRect part = ringedPart(ringed).translated(kBesideRing, kBesideRing);
  const QRect around =
      part.adjusted(-margin.width(), -margin.height(), margin.width(), margin.height()) &
      option.rect;
  drawBox(painter, around,
          {.outline = shadesOf(option.palette).focus,
           .width = kRing,
           .round = isField(ringed) ? kSquare : kRound});
  const auto* label = qobject_cast<const QLabel*>(&ringed);
  if (label == nullptr ? !ringed.inherits("QPushButton") : !label->text().isEmpty()) return;
  drawBox(painter, around.adjusted(kRing, kRing, -kRing, -kRing),
          {.outline = option.palette.color(QPalette::Window), .round = 1});
}

QRect scrollBarPart(const QStyleOptionSlider& bar, QStyle::SubControl part) {
  constexpr int kShortest = 16;
  const bool lying = bar.orientation == Qt::Horizontal;
  const int length = lying ? bar.rect.width() : bar.rect.height();
  const int range = bar.maximum - bar.minimum;
  const int slider = range <= 0 ? length
                                : std::clamp(static_cast<int>(qint64{length} * bar.pageStep /
                                                              (qint64{range} + bar.pageStep)),
                                             std::min(kShortest, length), length);
  const int start = QStyle::sliderPositionFromValue(bar.minimum, bar.maximum, bar.sliderPosition,
                                                    length - slider, bar.upsideDown);
  const auto piece = [&](int from, int to) {
    const QRect place = lying ? QRect(from, 0, to - from, bar.rect.height())
                              : QRect(0, from, bar.rect.width(), to - from);
    return QStyle::visualRect(bar.direction, bar.rect, place.translated(bar.rect.topLeft()));
  };
  switch (part) {
    case QStyle::SC_ScrollBarSlider:
      return piece(start, start + slider);
    case QStyle::SC_ScrollBarSubPage:
      return piece(0, start);
    case QStyle::SC_ScrollBarAddPage:
      return piece(start + slider, length);
    case QStyle::SC_ScrollBarGroove:
      return bar.rect;
    default:
      return {};  // there are no arrows
  }
}

void drawScrollBar(QPainter& painter, const QStyleOptionSlider& bar) {
  constexpr int kBeside = 2;
  const QColor ground = bar.palette.color(QPalette::Base);
  painter.fillRect(bar.rect, ground);
  if (bar.maximum <= bar.minimum) return;
  const bool held = bar.activeSubControls.testFlag(QStyle::SC_ScrollBarSlider) &&
                    (has(bar, QStyle::State_Sunken) || isHovered(bar));
  const QColor color =
      held ? bar.palette.color(QPalette::Text) : visibleOn(ground, shadesOf(bar.palette).outline);
  const QRect handle =
      scrollBarPart(bar, QStyle::SC_ScrollBarSlider).adjusted(kBeside, kBeside, -kBeside, -kBeside);
  drawBox(painter, handle, {color, color});
}

void drawComboBox(QPainter& painter, const QStyleOptionComboBox& box, const QStyle& style,
                  const QWidget* widget) {
  if (box.subControls.testFlag(QStyle::SC_ComboBoxFrame)) {
    drawBox(painter, box.rect, box.editable ? fieldOf(box) : buttonOf(box, false));
  }
  if (!box.subControls.testFlag(QStyle::SC_ComboBoxArrow)) return;
  const QRect arrow =
      style.subControlRect(QStyle::CC_ComboBox, &box, QStyle::SC_ComboBoxArrow, widget);
  drawArrowHead(painter, arrow, false, box.palette.color(QPalette::ButtonText));
}

/// A sign on a button, in the colour of its text.
void drawSign(QPainter& painter, const QStyleOptionButton& button) {
  const QPixmap sign = button.icon.pixmap(button.iconSize, painter.device()->devicePixelRatioF());
  const QColor text = button.palette.color(QPalette::ButtonText);
  const QRect place =
      QStyle::alignedRect(button.direction, Qt::AlignCenter, button.iconSize, button.rect);
  painter.drawPixmap(place.topLeft(), inColors(sign, text, text));
}

/// Three short rows of squares in the corner by which a window is sized.
void drawGrip(QPainter& painter, const QStyleOption& option) {
  constexpr int kRows = 3;
  constexpr int kSquareSize = 2;
  constexpr int kStep = 4;
  const QColor color = shadesOf(option.palette).outline;
  for (int row = 0; row < kRows; ++row) {
    for (int column = 0; column < kRows - row; ++column) {
      const QPoint corner = option.rect.bottomRight() - QPoint(column + 1, row + 1) * kStep;
      painter.fillRect(QRect(corner, QSize(kSquareSize, kSquareSize)), color);
    }
  }
}

/// Not for plain grounds and menus, nor for widgets that ask the window's style or draw nothing
/// themselves.
bool needsOurStyle(const QWidget& part) {
  const QMetaObject* kind = part.metaObject();
  return kind != &QWidget::staticMetaObject && kind != &QAbstractButton::staticMetaObject &&
         !part.inherits("QMenu") && !part.inherits("QLabel") &&
         !part.parentWidget()->inherits("QComboBox");
}

}  // namespace

void WindowStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                                QPainter* painter, const QWidget* widget) const {
  switch (element) {
    case PE_IndicatorCheckBox:
      return drawCheckBox(*painter, *option);
    case PE_IndicatorRadioButton:
      return drawOption(*painter, *option);
    case PE_PanelButtonCommand: {
      const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option);
      return drawBox(*painter, option->rect,
                     buttonOf(*option, button != nullptr && isMain(*button)));
    }
    case PE_PanelLineEdit: {
      const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(option);
      if (frame != nullptr && frame->lineWidth > 0) {
        return drawBox(*painter, option->rect, fieldOf(*option));
      }
      break;
    }
    case PE_Frame:
      return drawBox(*painter, option->rect, {.outline = outlineOf(*option), .round = kSquare});
    case PE_PanelMenu:
      return drawBox(
          *painter, option->rect,
          {option->palette.color(QPalette::Base), shadesOf(option->palette).outline, 1, kSquare});
    case PE_PanelScrollAreaCorner:
      return painter->fillRect(option->rect, option->palette.color(QPalette::Base));
    case PE_FrameFocusRect:
      return;  // the ring shows it
    default:
      break;
  }
  QProxyStyle::drawPrimitive(element, option, painter, widget);
}

void WindowStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                              const QWidget* widget) const {
  if (element == CE_FocusFrame) {
    const auto* frame = qobject_cast<const QFocusFrame*>(widget);
    if (frame != nullptr && frame->widget() != nullptr) {
      drawRing(*painter, *option, *frame->widget());
    }
    return;
  }
  if (element == CE_MenuBarItem || element == CE_MenuBarEmptyArea) {
    QProxyStyle::drawControl(element, option, painter, widget);
    // Fusion has a line there, which has a gap below each menu.
    if (has(*option, State_Selected)) return;
    return painter->fillRect(option->rect.adjusted(0, option->rect.height() - 2, 0, 0),
                             option->palette.color(QPalette::Window));
  }
  if (element == CE_SizeGrip) return drawGrip(*painter, *option);
  const auto* entry = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
  if (element == CE_MenuItem && entry != nullptr &&
      entry->menuItemType == QStyleOptionMenuItem::Separator) {
    constexpr int kBeside = 5;
    const QRect line(option->rect.left() + kBeside, option->rect.center().y(),
                     option->rect.width() - 2 * kBeside, 1);
    return painter->fillRect(line, shadesOf(option->palette).disabledOutline);
  }
  const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option);
  if (element == CE_PushButtonLabel && button != nullptr && !button->icon.isNull()) {
    return drawSign(*painter, *button);
  }
  if (element == CE_PushButtonLabel && button != nullptr && isMain(*button)) {
    QStyleOptionButton main(*button);
    main.palette.setColor(QPalette::ButtonText, shadesOf(option->palette).onAccent);
    return QProxyStyle::drawControl(element, &main, painter, widget);
  }
  QProxyStyle::drawControl(element, option, painter, widget);
}

void WindowStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                     QPainter* painter, const QWidget* widget) const {
  if (const auto* bar = qstyleoption_cast<const QStyleOptionSlider*>(option);
      control == CC_ScrollBar && bar != nullptr) {
    return drawScrollBar(*painter, *bar);
  }
  if (const auto* box = qstyleoption_cast<const QStyleOptionComboBox*>(option);
      control == CC_ComboBox && box != nullptr) {
    return drawComboBox(*painter, *box, *this, widget);
  }
  QProxyStyle::drawComplexControl(control, option, painter, widget);
}

QRect WindowStyle::subControlRect(ComplexControl control, const QStyleOptionComplex* option,
                                  SubControl part, const QWidget* widget) const {
  if (const auto* bar = qstyleoption_cast<const QStyleOptionSlider*>(option);
      control == CC_ScrollBar && bar != nullptr) {
    return scrollBarPart(*bar, part);
  }
  return QProxyStyle::subControlRect(control, option, part, widget);
}

QRect WindowStyle::subElementRect(SubElement element, const QStyleOption* option,
                                  const QWidget* widget) const {
  const QRect rect = QProxyStyle::subElementRect(element, option, widget);
  // Boxes for a number have no room for more.
  constexpr int kWide = 60;
  constexpr int kBesideText = 2;
  const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(option);
  const bool roomy = element == SE_LineEditContents && frame != nullptr && frame->lineWidth > 0 &&
                     frame->rect.width() >= kWide;
  return roomy ? rect.adjusted(kBesideText, 0, -kBesideText, 0) : rect;
}

int WindowStyle::pixelMetric(PixelMetric metric, const QStyleOption* option,
                             const QWidget* widget) const {
  switch (metric) {
    case PM_ScrollBarExtent:
      return kScrollBar;
    case PM_FocusFrameHMargin:
    case PM_FocusFrameVMargin:
      // Lists ask for the same metric, as the margin of their entries.
      if (widget == nullptr) return kBesideRing;
      break;
    default:
      break;
  }
  return QProxyStyle::pixelMetric(metric, option, widget);
}

QIcon WindowStyle::standardIcon(StandardPixmap picture, const QStyleOption* option,
                                const QWidget* widget) const {
  if (picture != SP_MessageBoxInformation && picture != SP_MessageBoxWarning) {
    return QProxyStyle::standardIcon(picture, option, widget);
  }
  const forms::Picture name = picture == SP_MessageBoxWarning ? "exclamation" : "information";
  if (widget == nullptr || !isHighContrast(widget->palette())) return pictureIcon(name);
  constexpr QSize kSize(32, 32);
  return qt::picture(name, kSize, widget->devicePixelRatioF(), widget->palette());
}

int WindowStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                           QStyleHintReturn* more) const {
  if (hint == SH_FocusFrame_AboveWidget) return 1;
  // The ring may be drawn over the edge of the widget.
  if (hint == SH_FocusFrame_Mask) return 0;
  return QProxyStyle::styleHint(hint, option, widget, more);
}

void useWindowStyle(QWidget& window) {
  if (dynamic_cast<WindowStyle*>(QApplication::style()) != nullptr) return;
  // One for all windows; it ends with the application.
  static QPointer<WindowStyle> style;
  if (style.isNull()) {
    style = new WindowStyle;
    style->setParent(QCoreApplication::instance());
  }
  window.setStyle(style);
  // Setting a style takes its time, and some parts are as Fusion draws them.
  const bool fusion = QApplication::style()->name() == QLatin1String("fusion");
  for (QWidget* part : window.findChildren<QWidget*>()) {
    if (!fusion || needsOurStyle(*part)) part->setStyle(style);
  }
}

}  // namespace kvrnstep::qt
