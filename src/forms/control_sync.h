#pragma once

#include <bitset>
#include <optional>
#include <string>
#include <vector>

#include "forms/window.h"

namespace kvrnstep::forms {

class ViewSync;

/// Properties that have changed since they were last shown.
class Changes {
 public:
  void add(Property property) { bits_.set(static_cast<std::size_t>(property)); }
  void addAll() { bits_.set(); }
  [[nodiscard]] bool any() const { return bits_.any(); }
  /// Whether one of them has changed.
  template <class... Properties>
  [[nodiscard]] bool has(Properties... properties) const {
    return (bits_.test(static_cast<std::size_t>(properties)) || ...);
  }

 private:
  std::bitset<32> bits_;
};

/// In the pixels that a front end places its widgets by; those of the desktop for windows.
struct PixelPoint {
  int left = 0;
  int top = 0;

  bool operator==(const PixelPoint&) const = default;
};
using PixelSize = SizeIn<int>;
using PixelRect = RectIn<int>;

/// The mark of a check box or an option button.
enum class Mark : std::uint8_t { Clear, On, Mixed };

/// How far a list is scrolled: its first entry in view, and the last one that can be the first.
struct Scroll {
  int first = 0;
  int last = 0;
};

/// Keeps the text of a control and the widget that shows it alike. Events of the widget while the
/// program changes it are not actions of the user.
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
  virtual void setSelection(TextSelection selection) = 0;
  /// The user may have changed the text in the widget.
  void userChangedText();

 protected:
  [[nodiscard]] TextControl& box() const { return box_; }

  /// Whether the widget shows the control's text, as far as it can.
  [[nodiscard]] virtual bool showsText() const { return shownText() == box_.text(); }
  /// The control's text after the user has changed the text in the widget.
  [[nodiscard]] virtual std::u16string editedText() const { return shownText(); }
  /// The widget's caret or marked part, as places in that text.
  [[nodiscard]] virtual TextSelection selectionIn(const std::u16string& text) const = 0;
  virtual void setText(const std::u16string& text) = 0;

  /// The user may have moved the widget's caret or its mark.
  void userMovedCaret();

 private:
  TextControl& box_;
  bool showing_ = false;
};

/// Keeps the widget of one control up to date. Changes are marked, and shown together later. This
/// class decides what is shown of each kind of control, and in which order. A front end implements
/// the setters for what its widgets can show, and reports what the user does.
class ControlSync {
 public:
  ControlSync(ViewSync& view, Control& control) : view_(view), control_(control) {}
  virtual ~ControlSync() = default;
  ControlSync(const ControlSync&) = delete;
  ControlSync& operator=(const ControlSync&) = delete;

  [[nodiscard]] Control& control() const { return control_; }
  void mark(Property property) { changes_.add(property); }
  void markAll() { changes_.addAll(); }
  void applyChanges();

  /// Called once, with the control that the row names as its buddy.
  virtual void setBuddy(ControlSync& /*buddy*/) {}
  /// Whether Tab leads to the control.
  virtual void setTabStop(bool /*on*/) {}
  /// Of a control that holds a text.
  [[nodiscard]] virtual TextSync* text() { return nullptr; }
  /// Whether keys that are pressed now belong to the widget, whatever they mean elsewhere.
  [[nodiscard]] virtual bool usesKeys() const { return false; }
  /// The place on the desktop where a menu opens that a key has opened; nothing: at the mouse.
  [[nodiscard]] virtual std::optional<PixelPoint> menuPlace() const { return std::nullopt; }
  [[nodiscard]] virtual Scroll scroll() const { return {}; }
  /// A list is scrolled as far as it reaches, even if more was asked for.
  [[nodiscard]] bool scrolledAsAsked() const;

 protected:
  /// The place of the widget in its parent.
  [[nodiscard]] PixelRect pixelPlace() const;
  /// The entries that the widget shows.
  [[nodiscard]] const std::vector<std::u16string>& shownItems() const { return shownItems_; }
  /// While the program changes the widget, its events are not actions of the user.
  [[nodiscard]] bool applying() const { return applying_; }

  virtual void setPlace(const PixelRect& place) = 0;
  virtual void setEnabled(bool enabled) = 0;
  virtual void setVisible(bool visible) = 0;
  /// "&" is before the letter of the mnemonic, and nowhere else.
  virtual void setCaption(const std::u16string& /*caption*/) {}
  /// The caption or the room for it has changed.
  virtual void fitCaption() {}
  virtual void setMark(Mark /*mark*/) {}
  /// The picture, the room for it or the desktop's colours have changed.
  virtual void setPicture(Picture /*picture*/) {}
  virtual void setCursor(int /*resourceId*/) {}
  virtual void setFont(const std::u16string& /*font*/, float /*points*/) {}
  /// The control's colours or the desktop's have changed.
  virtual void recolor() {}
  /// Called only if they are other ones than before.
  virtual void setItems(const std::vector<std::u16string>& /*items*/) {}
  virtual void setIndex(int /*index*/) {}
  /// Scrolls so that the entry is the first visible one, as far as the list reaches.
  virtual void setTopIndex(int /*index*/) {}
  /// Shows all of a menu entry; of the other setters only recolor() is called for it.
  virtual void setEntry(const MenuEntry& /*entry*/, const std::u16string& /*caption*/) {}

  /// … or has picked a menu entry.
  void userPressedButton();
  /// Of a list box or a combo box; −1 for none.
  void userSelectedEntry(int index);
  void userMayHaveScrolled();

 private:
  void apply(const Changes& changes);
  void applyCaption(const Changes& changes);
  void applyBox(const TextBox& box, const Changes& changes);
  void applyItems(const Entries& entries);
  void applyCombo(const ComboBox& combo, const Changes& changes);
  void applyList(const ListBox& list, const Changes& changes);
  void bringIntoView(int index);
  [[nodiscard]] ListBox& list() const { return static_cast<ListBox&>(control_); }

  ViewSync& view_;
  Control& control_;
  Changes changes_;
  std::vector<std::u16string> shownItems_;
  bool applying_ = false;
};

}  // namespace kvrnstep::forms
