#pragma once

#include "forms/window.h"

namespace kvrnstep::forms {

/// Keeps a text control and the widget that shows its text alike: takes text and caret over to the
/// widget, and tells of what the user does there. What the widget tells while it takes over is not
/// the user's doing.
class TextSync {
 public:
  explicit TextSync(TextControl& box) : box_(box) {}
  virtual ~TextSync() = default;
  TextSync(const TextSync&) = delete;
  TextSync& operator=(const TextSync&) = delete;

  void showText();
  void showSelection();

  /// What the widget really shows, as the control would hold it.
  [[nodiscard]] virtual std::u16string shownText() const = 0;
  [[nodiscard]] TextSelection shownSelection() const { return selectionIn(shownText()); }
  /// Marks a part of the text in the widget.
  virtual void setSelection(TextSelection selection) = 0;

 protected:
  [[nodiscard]] TextControl& box() const { return box_; }
  [[nodiscard]] bool showing() const { return showing_; }

  /// Whether the widget shows the control's text, as far as it can.
  [[nodiscard]] virtual bool showsText() const { return shownText() == box_.text(); }
  /// What the control's text becomes by what the user has changed in the widget.
  [[nodiscard]] virtual std::u16string editedText() const { return shownText(); }
  /// The widget's caret or marked part, as places in that text.
  [[nodiscard]] virtual TextSelection selectionIn(const std::u16string& text) const = 0;
  virtual void setText(const std::u16string& text) = 0;

  /// The user has changed the text in the widget …
  void userChangedText();
  /// … or may have moved its caret or its mark.
  void userMovedCaret();

 private:
  TextControl& box_;
  bool showing_ = false;
};

}  // namespace kvrnstep::forms
