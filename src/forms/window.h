#pragma once

#include <algorithm>
#include <array>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "forms/control.h"

namespace kvrnstep::forms {

class Toolkit;
class ViewSync;

inline constexpr double kTwipsPerPixel = 15;
inline constexpr double kPixelsPerPoint = 96.0 / 72.0;

/// The room that title bar, borders and menu bar take of a window's outside, in twips. It is the
/// same on every platform: a front end makes the inside as large as what remains, and the platform
/// adds the borders that it really has.
struct Chrome {
  static constexpr double kSides = 6 * kTwipsPerPixel;
  static constexpr double kTitleAndBorders = 31 * kTwipsPerPixel;
  static constexpr double kMenuBar = 20 * kTwipsPerPixel;
};

/// The declaration of a window without its controls.
struct WindowDesign {
  std::string_view name;  ///< the name of the class
  std::u16string_view caption;
  Rect place;               ///< of the outside, in twips
  double twipsPerUnit = 1;  ///< scale of the controls' places: 15 for pixels, 1 for twips
  bool resizable = false;
  double minimumWidth = 0;  ///< of the outside of a resizable window, in twips
  double minimumHeight = 0;
  std::span<const ControlRow> controls;  ///< containers before their contents; later rows are in
                                         ///< front of earlier ones
};

/// The number of a key of the keyboard; each front end may have numbers of its own.
using KeyCode = std::uint32_t;

/// A window as a plain object that owns its controls. Sizes and places are of its outside, in
/// twips, as the settings file keeps them.
class Window {
 public:
  explicit Window(const WindowDesign& design);
  virtual ~Window() = default;
  Window(const Window&) = delete;
  Window& operator=(const Window&) = delete;

  [[nodiscard]] const WindowDesign& design() const { return design_; }
  [[nodiscard]] const std::vector<std::unique_ptr<Control>>& controls() const { return controls_; }
  /// The first control for which the condition holds, or null.
  template <class Condition>
  [[nodiscard]] Control* findIf(Condition condition) const {
    const auto found =
        std::ranges::find_if(controls_, [&](const auto& each) { return condition(*each); });
    return found == controls_.end() ? nullptr : found->get();
  }
  /// The control of that name and index (−1 for a single control), or null.
  [[nodiscard]] Control* find(std::string_view name, int index) const;

  [[nodiscard]] const std::u16string& caption() const { return caption_; }
  void setCaption(std::u16string_view caption) { assign(caption_, caption, Property::Caption); }
  [[nodiscard]] const Rect& place() const { return place_; }
  void setLeft(double twips) { assign(place_.left, twips, Property::Place); }
  void setTop(double twips) { assign(place_.top, twips, Property::Place); }
  /// A new size, even one that equals the old one, raises onResize.
  void setWidth(double twips);
  void setHeight(double twips);
  [[nodiscard]] bool minimized() const { return minimized_; }
  /// What the borders and the menu bar leave for the controls, in the window's scale.
  [[nodiscard]] double innerWidth() const;
  [[nodiscard]] double innerHeight() const;
  /// What title bar, borders and menu bar take, in twips.
  [[nodiscard]] Size chrome() const;
  [[nodiscard]] bool hasMenuBar() const;

  /// Loads the window, shows it modally and returns when it has been unloaded.
  void showModal(Toolkit& toolkit);
  /// Closes the window: calls onQueryUnload once, and then removes the window from the screen.
  void unload();
  [[nodiscard]] bool unloaded() const { return unloaded_; }
  void setFocus(Control& control);
  /// As ViewSync::findEntry; nothing while no front end draws the window.
  [[nodiscard]] std::optional<int> findEntry(const ListBox& list, const std::u16string& text) const;

  /// What draws the window; null for nothing.
  void attach(ViewSync* view) { view_ = view; }
  [[nodiscard]] ViewSync* view() const { return view_; }
  void update();

  std::function<void()> onLoad;
  std::function<void()> onQueryUnload;
  std::function<void()> onResize;

  template <class T>
  [[nodiscard]] T& control(std::string_view name, int index = -1) const {
    return static_cast<T&>(*find(name, index));
  }
  /// Gives all controls of that name a handler.
  void onClick(std::string_view name, const std::function<void(int index)>& handler);

 private:
  friend class Control;
  friend class UserAction;

  void resized();
  template <class Held, class Value>
  void assign(Held& held, const Value& value, Property property) {
    if (held == value) return;
    held = value;
    changed(property);
  }
  void changed(Property property);

  const WindowDesign& design_;
  std::vector<std::unique_ptr<Control>> controls_;
  std::u16string caption_;
  Rect place_;
  ViewSync* view_ = nullptr;
  std::map<KeyCode, TextControl*> heldKeys_;  ///< with the boxes where they were pressed
  int actionDepth_ = 0;
  bool minimized_ = false;
  bool unloading_ = false;
  bool unloaded_ = false;
};

/// The elements of a control array, by their index.
template <class T, std::size_t Count>
class ControlArray {
 public:
  ControlArray(const Window& window, std::string_view name) {
    for (int i = 0; i < size(); ++i)
      elements_.at(static_cast<std::size_t>(i)) = &window.control<T>(name, i);
  }

  T& operator()(int index) const { return *elements_.at(static_cast<std::size_t>(index)); }
  [[nodiscard]] const std::array<T*, Count>& all() const { return elements_; }
  [[nodiscard]] static constexpr int size() { return static_cast<int>(Count); }

 private:
  std::array<T*, Count> elements_{};
};

}  // namespace kvrnstep::forms
