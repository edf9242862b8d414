#pragma once

#include <QWidget>
#include <bitset>
#include <optional>

#include "forms/control.h"

namespace kvrnstep::qt {

class WindowView;

/// Properties that have changed since they were last drawn.
class Changes {
 public:
  void add(forms::Property property) { bits_.set(static_cast<std::size_t>(property)); }
  void addAll() { bits_.set(); }
  [[nodiscard]] bool any() const { return bits_.any(); }
  [[nodiscard]] bool has(forms::Property property) const {
    return bits_.test(static_cast<std::size_t>(property));
  }

 private:
  std::bitset<32> bits_;
};

/// Draws one control with a widget and passes the user's actions on it on. The widget belongs to
/// its parent widget.
class ControlView {
 public:
  ControlView(WindowView& window, forms::Control& control) : window_(window), control_(control) {}
  virtual ~ControlView() = default;
  ControlView(const ControlView&) = delete;
  ControlView& operator=(const ControlView&) = delete;

  [[nodiscard]] forms::Control& control() const { return control_; }
  /// What stands at the control's place; null for entries of menus.
  [[nodiscard]] QWidget* widget() const { return widget_; }
  void mark(forms::Property property) { changes_.add(property); }
  void markAll() { changes_.addAll(); }
  /// Brings the widget in line with what has changed.
  void applyChanges();

  /// Takes a control that nobody can see, or gives it back, its turn when Tab is pressed.
  void allowFocus(bool allowed);

  /// Where on the screen a menu opens that the keyboard asked for.
  [[nodiscard]] virtual QPoint menuPlace() const;

  /// What the widget really shows of a property; nothing where it does not tell.
  [[nodiscard]] virtual std::optional<forms::PropertyValue> shown(forms::Property property) const;

 protected:
  /// To be called by the constructor of each kind.
  void adopt(QWidget* widget);
  /// Draws what is of this kind of control; the base draws what all kinds have.
  virtual void apply(const Changes& changes);
  /// The place of the widget in its parent, in pixels.
  [[nodiscard]] virtual QRect place() const;

  /// While the program changes the widget, its signals are not the user's doing.
  [[nodiscard]] bool applying() const { return applying_; }
  [[nodiscard]] WindowView& window() const { return window_; }

 private:
  WindowView& window_;
  forms::Control& control_;
  QWidget* widget_ = nullptr;
  Changes changes_;
  Qt::FocusPolicy focusPolicy_ = Qt::NoFocus;
  bool applying_ = false;
};

}  // namespace kvrnstep::qt
