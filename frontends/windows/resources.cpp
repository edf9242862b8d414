#include "resources.h"

#include <string>
#include <utility>

#include "resource_ids.h"

namespace kvrnstep::windows {

namespace {

HANDLE load(LPCWSTR name, UINT kind, int pixels, UINT flags) {
  return ::LoadImageW(thisModule(), name, kind, pixels, pixels, flags);
}

}  // namespace

forms::Rgb systemColor(int number) {
  const COLORREF color = ::GetSysColor(number);
  return {GetRValue(color), GetGValue(color), GetBValue(color)};
}

Icon loadPicture(forms::Picture picture, int pixels) {
  if (picture.empty()) return {};
  const auto loaded = [pixels](const std::wstring& name) {
    return Icon(static_cast<HICON>(load(name.c_str(), IMAGE_ICON, pixels, 0)));
  };
  const std::wstring name(picture.begin(), picture.end());
  Icon dark = forms::isDark(systemColor(COLOR_BTNFACE)) ? loaded(name + L"-dark") : nullptr;
  return dark != nullptr ? std::move(dark) : loaded(name);
}

HICON windowIcon(int pixels) {
  return static_cast<HICON>(load(MAKEINTRESOURCEW(IDI_WINDOW), IMAGE_ICON, pixels, LR_SHARED));
}

HCURSOR cursorOf(int resourceId) {
  if (resourceId == 0) return nullptr;
  return static_cast<HCURSOR>(
      load(MAKEINTRESOURCEW(resourceId), IMAGE_CURSOR, 0, LR_SHARED | LR_DEFAULTSIZE));
}

}  // namespace kvrnstep::windows
