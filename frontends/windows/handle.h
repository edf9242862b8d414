#pragma once

#include <windows.h>

#include <memory>
#include <type_traits>

namespace kvrnstep::windows {

/// Frees what a handle stands for by the function that its kind wants.
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

}  // namespace kvrnstep::windows
