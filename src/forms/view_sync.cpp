#include "forms/view_sync.h"

#include <cmath>
#include <utility>

#include "forms/guard.h"
#include "forms/user_actions.h"

namespace kvrnstep::forms {

namespace {

int rounded(double value) {
  return static_cast<int>(std::lround(value));
}

/// Whether the change may change the order of Tab.
bool rearranges(const Control& control, Property property) {
  return property == Property::Place || property == Property::Visible ||
         property == Property::Enabled ||
         (property == Property::Value && control.kind() == Kind::OptionButton);
}

}  // namespace

void ViewSync::makeViews() {
  for (const auto& control : window_.controls()) views_.emplace(control.get(), makeView(*control));
  for (const auto& [control, view] : views_) {
    if (control->buddy() != nullptr) view->setBuddy(syncOf(*control->buddy()));
  }
}

void ViewSync::showAll(double scale) {
  changes_.addAll();
  rescaledTo(scale);
  update();
}

void ViewSync::rescaledTo(double scale) {
  scale_ = scale;
  changes_.add(Property::Size);
  if (updating_) changes_.add(Property::Place);
  for (const auto& [control, view] : views_) view->markAll();
  rescaled_ = true;
}

int ViewSync::pixels(double twips) const {
  return rounded(twips / kTwipsPerPixel * scale_);
}

PixelSize ViewSync::innerSize(double width, double height) const {
  return {pixels(width - window_.chrome().width), pixels(height - window_.chrome().height)};
}

PixelPoint ViewSync::onDesktop(double left, double top) const {
  const double scale = desktopScale() / kTwipsPerPixel;
  return {rounded(left * scale), rounded(top * scale)};
}

PixelSize ViewSync::frameSize() const {
  return {rounded(window_.place().width / kTwipsPerPixel),
          rounded(window_.place().height / kTwipsPerPixel)};
}

void ViewSync::markKind(Kind kind, Property property) {
  for (const auto& [control, view] : views_) {
    if (control->kind() == kind) view->mark(property);
  }
}

void ViewSync::changed(Control& control, Property property) {
  syncOf(control).mark(property);
  arrangementChanged_ = arrangementChanged_ || rearranges(control, property);
}

void ViewSync::changed(Property property) {
  changes_.add(property);
  arrangementChanged_ = true;
}

void ViewSync::update() {
  if (!open_ || updating_) return;
  const Meanwhile updating(updating_);
  updateBegins();
  // While a window is placed on a monitor of another density, it is told the new density and gets
  // another size. This is repeated a few times only, because two monitors could send the window to
  // and fro for ever.
  constexpr int kMostTimes = 3;
  for (int time = 1; time == 1 || (rescaled_ && time <= kMostTimes); ++time) applyAll();
  giveKeyboard(std::exchange(focus_, nullptr));
}

void ViewSync::applyAll() {
  rescaled_ = false;
  for (const auto& control : window_.controls()) syncOf(*control).applyChanges();
  applyWindow();
  if (std::exchange(arrangementChanged_, false)) arrange();
}

void ViewSync::applyWindow() {
  if (changes_.has(Property::Caption)) setTitle(window_.caption());
  // A window that is minimized takes its new place when it comes back.
  if (window_.minimized()) return;
  const Changes changes = std::exchange(changes_, Changes());
  if (changes.has(Property::Size)) setInnerSize(innerSize());
  if (changes.has(Property::Place)) applyPosition();
}

void ViewSync::applyPosition() {
  const PixelSize frame = frameSize();
  const PixelPoint wanted = onDesktop(window_.place().left, window_.place().top);
  const Rect shown =
      placeOnScreen({static_cast<double>(wanted.left), static_cast<double>(wanted.top),
                     static_cast<double>(frame.width), static_cast<double>(frame.height)},
                    screens());
  position_ = {rounded(shown.left), rounded(shown.top)};
  setPosition(position_);
}

void ViewSync::arrange() {
  const std::vector<Control*> order = tabOrder(window_);
  if (std::exchange(opening_, false)) focus_ = firstFocus(order);
  for (const Control* control : order) {
    syncOf(*control).setTabStop(takesFocus(*control) && control->reachable());
  }
  setTabOrder(order);
}

void ViewSync::unloaded() {
  close();
  vanish();
}

bool ViewSync::pressed(const ControlSync& focus, std::optional<CommandKey> key) {
  if (!key || focus.usesKeys()) return false;
  menuPlace_ = focus.menuPlace();
  const bool handled = userPressedCommandKey(focus.control(), *key);
  menuPlace_.reset();
  return handled;
}

void ViewSync::movedTo(PixelPoint position, bool byUser) {
  if (updating_ || !open_ || std::exchange(position_, position) == position || !byUser) return;
  const auto twips = [&](int pixels) { return pixels / desktopScale() * kTwipsPerPixel; };
  userMoved(window_, twips(position.left), twips(position.top));
}

void ViewSync::resizedTo(PixelSize inner) {
  if (updating_ || !open_ || !window_.design().resizable || inner == innerSize()) return;
  const auto twips = [&](int pixels) { return pixels / scale_ * kTwipsPerPixel; };
  userResized(window_, twips(inner.width) + window_.chrome().width,
              twips(inner.height) + window_.chrome().height);
  // The handler may have made the window larger than the user did.
  if (open_) setInnerSize(innerSize());
}

void ViewSync::minimizedTo(bool minimized) {
  if (open_ && minimized != window_.minimized()) userMinimized(window_, minimized);
}

void ViewSync::recolored() {
  for (const auto& [control, view] : views_) view->mark(Property::Colors);
  guarded([this] { update(); });
}

}  // namespace kvrnstep::forms
