#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace kvrnstep::forms {

class Window;

/// What a front end shows of a control or a window, and is told of when it changes.
enum class Property : std::uint8_t {
  Text,
  Value,
  Caption,
  Enabled,
  Visible,
  Place,  ///< of a window: the position alone
  Size,   ///< of a window
  Index,
  Items,
  TopIndex,
  Selection,
  Font,
  Colors,
  Cursor,
  Picture,
};

template <class Unit>
struct SizeIn {
  Unit width = 0;
  Unit height = 0;

  bool operator==(const SizeIn&) const = default;
};
template <class Unit>
struct RectIn {
  Unit left = 0;
  Unit top = 0;
  Unit width = 0;
  Unit height = 0;

  [[nodiscard]] Unit right() const { return left + width; }
  [[nodiscard]] Unit bottom() const { return top + height; }
  [[nodiscard]] Unit area() const { return width * height; }
  bool operator==(const RectIn&) const = default;
};

using Size = SizeIn<double>;
/// Of a control: in the scale of its window, relative to its container.
using Rect = RectIn<double>;
/// The part that is inside of both; its size is 0 if there is none.
Rect common(const Rect& one, const Rect& other);

enum class Kind : std::uint8_t {
  Frame,
  Panel,
  Button,
  CheckBox,
  OptionButton,
  ComboBox,
  TextBox,
  Spinner,
  ListBox,
  Label,
  Image,
  StatusBar,  ///< fills the window's bottom edge; a resizable window has a grip there
  Menu,
};
inline constexpr std::size_t kKinds = static_cast<std::size_t>(Kind::Menu) + 1;

enum class MouseButton : std::uint8_t { Left, Middle, Right };

/// The name of the picture that an image or a button shows; empty: none. A front end keeps the
/// artwork.
using Picture = std::string_view;

// Mouse cursors, by their resource ids.
inline constexpr int kLinkCursor = 104;   ///< over what can be clicked
inline constexpr int kDragCursor = 106;   ///< while something is dragged
inline constexpr int kHoverCursor = 107;  ///< over what can be dragged

/// One row of a window's declaration table. It names only what differs from the defaults.
struct ControlRow {
  Kind kind;
  std::string_view name;
  int index = -1;                 ///< place in the control array; -1 for a single control
  std::string_view in;            ///< name of the container; empty: the window, or the menu bar
  Rect place;                     ///< in the window's scale, relative to the container
  std::u16string_view caption{};  ///< "&" marks the mnemonic; a menu entry "-" is a separator
  std::u16string_view toolTip{};
  bool enabled = true;
  bool visible = true;
  bool checked = false;
  bool multiLine = false;         ///< text boxes
  bool horizontalScroll = false;  ///< multi-line text boxes: lines are not wrapped
  bool clickable = false;         ///< labels and images: react to mouse and keyboard
  bool draggable = false;         ///< labels: a drag begins as soon as they are pressed
  bool readOnly = false;          ///< text boxes: the user reads and copies only
  bool markedByClick = false;     ///< text boxes: a click marks the text as Tab does
  int maxLength = 0;              ///< text boxes: most characters a user can type; 0 is no limit
  std::u16string_view text{};     ///< text boxes: first text
  std::string_view buddy{};       ///< spinners: the text box that shows the value; labels: what
                                  ///< the mnemonic and a screen reader lead to
  int buddyIndex = -1;            ///< … and its index
  int minimum = 0;                ///< spinners
  int maximum = 0;                ///< spinners
  int value = 0;                  ///< spinners: first value
  std::u16string_view font{};     ///< empty: the window's
  Picture picture{};              ///< images and buttons: first picture
  int tab = 0;                    ///< turn when Tab is pressed; 0: after those that have one, as
                                  ///< the eye reads
  std::string_view shortcut{};    ///< menu entries: "Ctrl+O"
  char16_t accessKey = 0;         ///< labels: letter that activates them with Alt, in upper case
  /// List boxes: where an entry that is too long begins to be shown whole again, behind what is
  /// left out; npos: half of what can be shown.
  std::size_t (*keptFrom)(std::u16string_view entry) = nullptr;
  bool prominent = false;        ///< buttons: drawn as what the window is for, whatever Enter does
  std::u16string_view hint{};    ///< combo boxes: shown in place of an empty text, and no text
  bool clickedByEnter = false;   ///< buttons: Enter in a box of one line clicks them
  bool clickedByEscape = false;  ///< buttons: Escape clicks them, wherever the keyboard is
  std::u16string_view accessibleName{};  ///< for screen readers, where no label and no caption is
                                         ///< the name; "#" is the element's number, from 1
};

/// A control as a plain object. The window's code sets properties through the functions; the
/// front end draws them and is told of every one that changes. Setting a text or a value raises
/// the control's handler at once, exactly as a user's change does.
class Control {
 public:
  Control(Window& window, const ControlRow& row, Control* container)
      : window_(window), row_(row), container_(container) {}
  virtual ~Control() = default;
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  [[nodiscard]] const ControlRow& row() const { return row_; }
  [[nodiscard]] Kind kind() const { return row_.kind; }
  [[nodiscard]] int index() const { return row_.index; }
  /// As scripts write it: "cmdOK", "chkLWO(3)".
  [[nodiscard]] std::string scriptName() const;
  [[nodiscard]] Window& window() const { return window_; }
  [[nodiscard]] Control* container() const { return container_; }
  /// The control that the row names as its buddy, or null.
  [[nodiscard]] Control* buddy() const { return buddy_; }

  [[nodiscard]] bool enabled() const { return enabled_; }
  void setEnabled(bool enabled) { assign(enabled_, enabled, Property::Enabled); }
  [[nodiscard]] bool visible() const { return visible_; }
  void setVisible(bool visible) { assign(visible_, visible, Property::Visible); }
  [[nodiscard]] const std::u16string& caption() const { return caption_; }
  void setCaption(std::u16string_view caption) { assign(caption_, caption, Property::Caption); }
  [[nodiscard]] const Rect& place() const { return place_; }
  void setLeft(double left) { assign(place_.left, left, Property::Place); }
  void setWidth(double width) { assign(place_.width, width, Property::Place); }
  void setPlace(const Rect& place) { assign(place_, place, Property::Place); }
  /// The place that is drawn: a list outside of containers ends inside the window, and a button
  /// inside its container, because its borders would be cut off there. What can be dragged has a
  /// border around the place of its text.
  [[nodiscard]] Rect shownPlace() const;
  [[nodiscard]] Picture picture() const { return picture_; }
  void setPicture(Picture picture) { assign(picture_, picture, Property::Picture); }
  /// Resource id of the mouse cursor over the control; 0 for the usual one.
  [[nodiscard]] int cursor() const { return cursor_; }
  void setCursor(int resourceId) { assign(cursor_, resourceId, Property::Cursor); }

  /// Whether a user can reach the control: it and its containers are visible and enabled, a part of
  /// it is inside the window, and no frame is in front of it. Menus need only be enabled and
  /// visible.
  [[nodiscard]] bool reachable() const;

  std::function<void(int index)> onClick;
  std::function<void(int index)> onDblClick;
  std::function<void(int index, MouseButton button)> onMouseUp;
  /// A control of this window was dropped on this one. A control with such a handler takes no
  /// other drops.
  std::function<void(int index, const Control& source)> onDragDrop;

 protected:
  void changed(Property property);
  /// Sets the value of a property, and reports it if the value changes.
  template <class Held, class Value>
  void assign(Held& held, const Value& value, Property property) {
    if (held == value) return;
    held = value;
    changed(property);
  }

 private:
  friend class Window;

  [[nodiscard]] bool covered() const;

  Window& window_;
  const ControlRow& row_;
  Control* container_;
  Control* buddy_ = nullptr;
  std::u16string caption_{row_.caption};
  Rect place_{row_.place};
  int cursor_ = row_.clickable ? kLinkCursor : row_.draggable ? kHoverCursor : 0;
  Picture picture_{row_.picture};
  bool enabled_ = row_.enabled;
  bool visible_ = row_.visible;
};

/// Where the caret or the marked part of a text is, in UTF-16 units.
struct TextSelection {
  std::size_t start = 0;
  std::size_t length = 0;

  bool operator==(const TextSelection&) const = default;
};

/// A control that holds a text a user can type into: a text box or the box of a combo box.
class TextControl : public Control {
 public:
  using Control::Control;

  [[nodiscard]] const std::u16string& text() const { return text_; }
  /// Puts the caret behind the text of a single line and before the text of several lines.
  void setText(std::u16string text);
  /// The text and the caret as the user left them. Of several lines that were pasted into a box of
  /// one line only the first stays.
  void textByUser(std::u16string text, TextSelection selection);
  [[nodiscard]] TextSelection selection() const { return selection_; }
  /// Parts outside the text are cut off; an end between CR and LF goes behind both.
  void setSelection(TextSelection selection);
  /// Replaces the marked part, or inserts at the caret, which is behind the new text afterwards.
  void replaceSelection(std::u16string_view text);

  std::function<void(int index)> onChange;
  /// Judges a typed character, control characters included; false discards it.
  std::function<bool(int index, char16_t character)> onKeyPress;
  std::function<void(int index)> onKeyUp;

 private:
  std::u16string text_{row().text};
  TextSelection selection_;
};

[[nodiscard]] inline bool holdsText(const Control& control) {
  return control.kind() == Kind::TextBox || control.kind() == Kind::ComboBox;
}

class TextBox : public TextControl {
 public:
  using TextControl::TextControl;

  [[nodiscard]] const std::u16string& font() const { return font_; }
  void setFont(std::u16string_view font) { assign(font_, font, Property::Font); }
  /// In points; 0 is the window's own size.
  [[nodiscard]] float fontSize() const { return fontSize_; }
  void setFontSize(float points) { assign(fontSize_, points, Property::Font); }
  /// Colours are 0x00BBGGRR, or 0x80000000 + n for the system's colour n.
  [[nodiscard]] std::int32_t backColor() const { return backColor_; }
  void setBackColor(std::int32_t color) { assign(backColor_, color, Property::Colors); }
  [[nodiscard]] std::int32_t foreColor() const { return foreColor_; }
  void setForeColor(std::int32_t color) { assign(foreColor_, color, Property::Colors); }

 private:
  std::u16string font_{row().font};
  float fontSize_ = 0;
  std::int32_t backColor_ = static_cast<std::int32_t>(0x80000005);
  std::int32_t foreColor_ = static_cast<std::int32_t>(0x80000008);
};

/// The entries of a list box or a combo box.
struct Entries {
  std::vector<std::u16string> items;
  int selected = -1;
  int top = 0;  ///< of a list box: the first one in view, as far as was asked for
};

template <class Base>
class WithEntries : public Base {
 public:
  using Base::Base;

  [[nodiscard]] const Entries& entries() const { return entries_; }
  [[nodiscard]] int ListCount() const { return static_cast<int>(entries_.items.size()); }
  [[nodiscard]] const std::u16string& List(int index) const {
    return entries_.items.at(static_cast<std::size_t>(index));
  }
  /// Puts these in the place of all entries; the text of a combo box stays.
  void setItems(std::vector<std::u16string> items) {
    entries_ = {.items = std::move(items)};
    this->changed(Property::Items);
  }
  void Clear() { setItems({}); }
  void AddItem(std::u16string text) {
    entries_.items.push_back(std::move(text));
    this->changed(Property::Items);
  }

 protected:
  Entries entries_;
};

/// An editable text with a drop-down list. Choosing an entry raises onClick.
class ComboBox : public WithEntries<TextControl> {
 public:
  using WithEntries::WithEntries;

  /// As the user's choice: the entry's text goes into the box and onClick is raised.
  void choose(int index);
};

class ListBox : public WithEntries<Control> {
 public:
  using WithEntries::WithEntries;

  /// Inserts an entry before the one at `index`, or adds it at the end. The selected entry stays
  /// selected.
  void InsertItem(int index, std::u16string text);
  /// If it was the selected entry, none is selected afterwards.
  void RemoveItem(int index);
  /// Selects an entry, −1 for none. If that changes the selection the entry comes into view and
  /// onClick is raised.
  void setIndex(int index);
  [[nodiscard]] int topIndex() const { return entries_.top; }
  /// Scrolls so that the entry is the first visible one, as far as the list reaches. Where there
  /// is no such entry the list stays where it is.
  void setTopIndex(int index);
  /// The entry that is really the first visible one, however far was asked for.
  [[nodiscard]] int firstInView() const;
  /// The top index that brings the entry into view with the least scrolling; the present one if
  /// the entry is in view.
  [[nodiscard]] int topShowing(int index) const;

 private:
  /// How many entries are in view at once.
  [[nodiscard]] int lines() const;
};

/// Value 1 is checked, 0 is clear; only 1 counts as on.
class CheckBox : public Control {
 public:
  using Control::Control;

  [[nodiscard]] int value() const { return value_; }
  [[nodiscard]] bool checked() const { return value_ == 1; }
  /// Raises onClick.
  void setValue(int value);

 private:
  int value_ = row().checked ? 1 : 0;
};

/// One of the option buttons of a container; selecting one clears the others.
class OptionButton : public Control {
 public:
  using Control::Control;

  [[nodiscard]] bool value() const { return value_; }
  /// True raises onClick; the button that it clears raises nothing.
  void setValue(bool value);

 private:
  bool value_ = row().checked;
};

/// Up and down arrows bound to a text box. A changed value goes into the box as plain decimal
/// digits, which raises the box's handler; an equal value changes nothing.
class Spinner : public Control {
 public:
  using Control::Control;

  [[nodiscard]] std::int32_t value() const { return value_; }
  /// A value outside the range becomes the nearest end of it, and goes into the box even if the
  /// spinner held it before.
  void setValue(std::int32_t value);
  /// Writes the value into the box even if the spinner holds it, because the box may be empty.
  void putValue(std::int32_t value);

  /// An arrow was clicked. Raised after the value has changed, also if it could not change any
  /// further.
  std::function<void(int index)> onUpClick;
  std::function<void(int index)> onDownClick;

 private:
  std::int32_t value_ = row().value;
};

/// A menu of the menu bar, an entry of a menu, or a pop-up menu.
class MenuEntry : public Control {
 public:
  using Control::Control;

  [[nodiscard]] bool separator() const { return caption() == u"-"; }
  /// Whether it has entries, or is a pop-up menu.
  [[nodiscard]] bool opensMenu() const;
  [[nodiscard]] bool checked() const { return checked_; }
  void setChecked(bool checked) { assign(checked_, checked, Property::Value); }

 private:
  bool checked_ = row().checked;
};

}  // namespace kvrnstep::forms
