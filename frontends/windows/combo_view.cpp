#include "combo_view.h"

#include <utility>

#include "entries.h"
#include "forms/user_actions.h"
#include "window_view.h"

namespace kvrnstep::windows {

using forms::Property;

ComboView::ComboView(WindowView& window, forms::ComboBox& combo)
    : ControlView(window, combo), edit_(combo) {
  create(WC_COMBOBOXW, WS_TABSTOP | WS_VSCROLL | CBS_DROPDOWN | CBS_AUTOHSCROLL);
  COMBOBOXINFO parts{};
  parts.cbSize = sizeof parts;
  ::GetComboBoxInfo(handle(), &parts);
  edit_.adopt(parts.hwndItem);
}

void ComboView::commanded(int notification) {
  if (applying()) return;
  switch (notification) {
    case CBN_EDITCHANGE:
      return edit_.changed();
    case CBN_SELENDOK:
    case CBN_SELCHANGE:
      // The box gets the text of the entry only after it has told of it.
      chosen_ = true;
      return putOff();
    case CBN_CLOSEUP:
      // A list that drops down may have changed the text on its own.
      return putOff();
    default:
      return;
  }
}

void ComboView::putOff() {
  if (!std::exchange(waiting_, true)) window().later(*this);
}

void ComboView::afterwards() {
  waiting_ = false;
  mark(Property::Text);
  mark(Property::Index);
  if (std::exchange(chosen_, false) && selected() >= 0) {
    forms::userChose(combo(), selected());
  } else {
    window().update();
  }
}

int ComboView::selected() const {
  return static_cast<int>(::SendMessageW(handle(), CB_GETCURSEL, 0, 0));
}

bool ComboView::usesKeys() const {
  return ::SendMessageW(handle(), CB_GETDROPPEDSTATE, 0, 0) != FALSE;
}

void ComboView::setPlace(const forms::PixelRect& place) {
  // The system counts the list that drops down.
  constexpr int kWithList = 13;
  ControlView::setPlace({place.left, place.top, place.width, kWithList * place.height});
  setHeight(place.height);
}

void ComboView::setHeight(int height) {
  RECT now{};
  ::GetWindowRect(handle(), &now);
  const auto field = ::SendMessageW(handle(), CB_GETITEMHEIGHT, static_cast<WPARAM>(-1), 0);
  const LRESULT wanted = height - (now.bottom - now.top - field);
  if (wanted > 0 && wanted != field) {
    ::SendMessageW(handle(), CB_SETITEMHEIGHT, static_cast<WPARAM>(-1), wanted);
  }
}

void ComboView::setItems(const std::vector<std::u16string>& items) {
  if (entries_ == items) return;
  entries_ = items;
  const Undrawn undrawn(handle());
  ::SendMessageW(handle(), CB_RESETCONTENT, 0, 0);
  reserve(handle(), CB_INITSTORAGE, entries_);
  for (const std::u16string& entry : entries_) add(handle(), CB_ADDSTRING, entry);
}

void ComboView::setIndex(int index) {
  if (selected() != index) ::SendMessageW(handle(), CB_SETCURSEL, static_cast<WPARAM>(index), 0);
}

}  // namespace kvrnstep::windows
