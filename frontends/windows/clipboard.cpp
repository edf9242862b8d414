#include "clipboard.h"

#include <cstring>

namespace kvrnstep::windows {

namespace {

/// Movable memory with the text and the NUL that ends it, as the clipboard wants it.
HGLOBAL memoryWith(const std::u16string& text) {
  const std::size_t bytes = (text.size() + 1) * sizeof(char16_t);
  const HGLOBAL memory = ::GlobalAlloc(GMEM_MOVEABLE, bytes);
  if (memory == nullptr) return nullptr;
  std::memcpy(::GlobalLock(memory), text.c_str(), bytes);
  ::GlobalUnlock(memory);
  return memory;
}

/// Another program may hold the clipboard for a moment.
bool openClipboard(HWND owner) {
  constexpr int kAttempts = 20;
  constexpr DWORD kPause = 10;
  for (int attempt = 0; attempt < kAttempts; ++attempt) {
    if (::OpenClipboard(owner) != FALSE) return true;
    ::Sleep(kPause);
  }
  return false;
}

}  // namespace

bool putOnClipboard(const std::u16string& text, HWND owner) {
  if (!openClipboard(owner)) return false;
  ::EmptyClipboard();
  const HGLOBAL memory = memoryWith(text);
  const bool put = memory != nullptr && ::SetClipboardData(CF_UNICODETEXT, memory) != nullptr;
  if (!put && memory != nullptr) ::GlobalFree(memory);
  ::CloseClipboard();
  return put;
}

}  // namespace kvrnstep::windows
