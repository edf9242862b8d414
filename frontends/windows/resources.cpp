#include "resources.h"

#include <string>

#include "resource_ids.h"

namespace kvrnstep::windows {

namespace {

HANDLE load(LPCWSTR name, UINT kind, int pixels, UINT flags) {
  return ::LoadImageW(thisModule(), name, kind, pixels, pixels, flags);
}

}  // namespace

Icon loadPicture(forms::Picture picture, int pixels) {
  if (picture.empty()) return Icon(nullptr);
  const std::wstring name(picture.begin(), picture.end());
  return Icon(static_cast<HICON>(load(name.c_str(), IMAGE_ICON, pixels, 0)));
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
