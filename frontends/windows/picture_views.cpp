#include "picture_views.h"

#include <algorithm>

#include "resources.h"
#include "window_view.h"

namespace kvrnstep::windows {

namespace {

/// Two solid lines, because a dotted one could not be seen on the picture.
void drawFocus(HDC context, RECT room) {
  ::FrameRect(context, &room, ::GetSysColorBrush(COLOR_WINDOWTEXT));
  ::InflateRect(&room, -1, -1);
  ::FrameRect(context, &room, ::GetSysColorBrush(COLOR_WINDOW));
}

}  // namespace

ImageView::ImageView(WindowView& window, forms::Control& image) : MouseView(window, image) {
  create(WC_STATICW, SS_OWNERDRAW | SS_NOTIFY);
}

int ImageView::size() const {
  const forms::PixelRect room = pixelPlace();
  return std::min(room.width, room.height);
}

void ImageView::setPicture(forms::Picture picture) {
  picture_ = loadPicture(picture, size());
  ::InvalidateRect(handle(), nullptr, TRUE);
}

std::optional<LRESULT> ImageView::told(UINT message, WPARAM wide, LPARAM longer) {
  if (message != WM_DRAWITEM) return MouseView::told(message, wide, longer);
  draw(*reinterpret_cast<const DRAWITEMSTRUCT*>(longer));
  return TRUE;
}

void ImageView::draw(const DRAWITEMSTRUCT& request) const {
  const RECT& room = request.rcItem;
  ::FillRect(request.hDC, &room, ::GetSysColorBrush(COLOR_BTNFACE));
  if (picture_ == nullptr) return;
  const int left = static_cast<int>(room.left + (room.right - room.left - size()) / 2);
  const int top = static_cast<int>(room.top + (room.bottom - room.top - size()) / 2);
  ::DrawIconEx(request.hDC, left, top, picture_.get(), size(), size(), 0, nullptr, DI_NORMAL);
  if (hasFocus()) drawFocus(request.hDC, room);
}

StatusBarView::StatusBarView(WindowView& window, forms::Control& bar) : ControlView(window, bar) {
  create(STATUSCLASSNAMEW, SBARS_SIZEGRIP | CCS_NOPARENTALIGN | CCS_NORESIZE | CCS_NODIVIDER);
  // It never has a text, and a button is in front of it, so the frame around the text is left out.
  ::SendMessageW(handle(), SB_SETTEXTW, SBT_NOBORDERS, reinterpret_cast<LPARAM>(L""));
}

ContainerView::ContainerView(WindowView& window, forms::Control& container)
    : ControlView(window, container) {
  create(ownClass(), WS_CLIPCHILDREN, WS_EX_CONTROLPARENT);
}

LRESULT ContainerView::received(UINT message, WPARAM wide, LPARAM longer) {
  const auto answer = window().reflected(message, wide, longer);
  return answer ? *answer : ControlView::received(message, wide, longer);
}

}  // namespace kvrnstep::windows
