#include "resources.h"

#include "resource_ids.h"

// The linker puts it where the module begins.
extern "C" IMAGE_DOS_HEADER __ImageBase;  // NOLINT(bugprone-reserved-identifier)

namespace kvrnstep::windows {

namespace {

int iconId(forms::Picture picture) {
  using forms::Picture;
  switch (picture) {
    case Picture::Numbered:
      return IDI_NUMBERED;
    case Picture::Alphabetical:
      return IDI_ALPHABETICAL;
    case Picture::Roman:
      return IDI_ROMAN;
    case Picture::PrefixSuffix:
      return IDI_PREFIX_SUFFIX;
    case Picture::ApplyActive:
      return IDI_APPLY_ACTIVE;
    case Picture::ApplyInactive:
      return IDI_APPLY_INACTIVE;
    case Picture::ArrowUp:
      return IDI_ARROW_UP;
    case Picture::ArrowDown:
      return IDI_ARROW_DOWN;
    case Picture::None:
      break;
  }
  return 0;
}

HANDLE load(int id, UINT kind, int pixels, UINT flags) {
  return ::LoadImageW(thisModule(), MAKEINTRESOURCEW(id), kind, pixels, pixels, flags);
}

}  // namespace

HINSTANCE thisModule() {
  return reinterpret_cast<HINSTANCE>(&__ImageBase);
}

Icon loadPicture(forms::Picture picture, int pixels) {
  const int id = iconId(picture);
  return Icon(id == 0 ? nullptr : static_cast<HICON>(load(id, IMAGE_ICON, pixels, 0)));
}

HICON windowIcon(int pixels) {
  return static_cast<HICON>(load(IDI_WINDOW, IMAGE_ICON, pixels, LR_SHARED));
}

HCURSOR cursorOf(int resourceId) {
  if (resourceId == 0) return nullptr;
  return static_cast<HCURSOR>(load(resourceId, IMAGE_CURSOR, 0, LR_SHARED | LR_DEFAULTSIZE));
}

}  // namespace kvrnstep::windows
