#pragma once

#include <windows.h>

#include <memory>
#include <type_traits>

namespace kvrnstep::windows {

/// Frees a handle with the function for its kind.
template <auto Free>
struct Freed {
  template <class T>
  void operator()(T* handle) const {
    Free(handle);
  }
};

using Font = std::unique_ptr<std::remove_pointer_t<HFONT>, Freed<::DeleteObject>>;
using Brush = std::unique_ptr<std::remove_pointer_t<HBRUSH>, Freed<::DeleteObject>>;
using Icon = std::unique_ptr<std::remove_pointer_t<HICON>, Freed<::DestroyIcon>>;
using Menu = std::unique_ptr<std::remove_pointer_t<HMENU>, Freed<::DestroyMenu>>;
using Accelerators =
    std::unique_ptr<std::remove_pointer_t<HACCEL>, Freed<::DestroyAcceleratorTable>>;
using WindowHandle = std::unique_ptr<std::remove_pointer_t<HWND>, Freed<::DestroyWindow>>;

/// A device context of a window, or of the screen for null, with a font selected.
class Drawing {
 public:
  Drawing(HWND window, HFONT font)
      : window_(window), context_(::GetDC(window)), before_(::SelectObject(context_, font)) {}
  ~Drawing() {
    ::SelectObject(context_, before_);
    ::ReleaseDC(window_, context_);
  }
  Drawing(const Drawing&) = delete;
  Drawing& operator=(const Drawing&) = delete;

  operator HDC() const { return context_; }  // NOLINT(google-explicit-constructor)
  [[nodiscard]] TEXTMETRICW metrics() const {
    TEXTMETRICW metrics{};
    ::GetTextMetricsW(context_, &metrics);
    return metrics;
  }

 private:
  HWND window_;
  HDC context_;
  HGDIOBJ before_;
};

}  // namespace kvrnstep::windows
