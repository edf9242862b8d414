#include "output.h"

// After the other one.
#include <mmsystem.h>
#include <winspool.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <string_view>

#include "handle.h"
#include "text/windows/ansi.h"
#include "text/windows/wide.h"

namespace kvrnstep::windows {

namespace {

/// The text and a NUL in movable memory, which is what the clipboard takes.
HGLOBAL memoryWith(const std::u16string& text) {
  const std::size_t bytes = (text.size() + 1) * sizeof(char16_t);
  const HGLOBAL memory = ::GlobalAlloc(GMEM_MOVEABLE, bytes);
  if (memory == nullptr) return nullptr;
  std::memcpy(::GlobalLock(memory), text.c_str(), bytes);
  ::GlobalUnlock(memory);
  return memory;
}

/// Tries for a while, because another program may have the clipboard open.
bool openClipboard(HWND owner) {
  constexpr int kAttempts = 20;
  constexpr DWORD kPause = 10;
  for (int attempt = 0; attempt < kAttempts; ++attempt) {
    if (::OpenClipboard(owner) != FALSE) return true;
    ::Sleep(kPause);
  }
  return false;
}

using Printer = std::unique_ptr<std::remove_pointer_t<HDC>, Freed<::DeleteDC>>;

Printer defaultPrinter() {
  DWORD size = 0;
  ::GetDefaultPrinterW(nullptr, &size);
  std::u16string name(size, u'\0');
  if (size == 0 || ::GetDefaultPrinterW(text::wide(name.data()), &size) == FALSE) return nullptr;
  return Printer(::CreateDCW(L"WINSPOOL", text::wide(name), nullptr, nullptr));
}

/// Prints lines from the top of a page down and begins another page when it is full.
class Pages {
 public:
  explicit Pages(HDC printer) : printer_(printer), height_(::GetDeviceCaps(printer, VERTRES)) {
    TEXTMETRICW metrics{};
    ::GetTextMetricsW(printer, &metrics);
    lineHeight_ = static_cast<int>(metrics.tmHeight + metrics.tmExternalLeading);
    ::StartPage(printer_);
  }
  ~Pages() { ::EndPage(printer_); }
  Pages(const Pages&) = delete;
  Pages& operator=(const Pages&) = delete;

  void print(std::u16string_view line) {
    if (top_ > 0 && top_ + lineHeight_ > height_) turn();
    ::TabbedTextOutW(printer_, 0, top_, reinterpret_cast<const wchar_t*>(line.data()),
                     static_cast<int>(line.size()), 0, nullptr, 0);
    top_ += lineHeight_;
  }

 private:
  void turn() {
    ::EndPage(printer_);
    ::StartPage(printer_);
    top_ = 0;
  }

  HDC printer_;
  int height_;
  int lineHeight_ = 0;
  int top_ = 0;
};

void printLines(HDC printer, std::u16string_view text) {
  Pages pages(printer);
  while (!text.empty()) {
    const std::size_t end = std::min(text.find(u"\r\n"), text.size());
    pages.print(text.substr(0, end));
    text.remove_prefix(std::min(end + 2, text.size()));
  }
}

}  // namespace

void putOnClipboard(const std::u16string& text, HWND owner) {
  if (!openClipboard(owner)) return;
  ::EmptyClipboard();
  const HGLOBAL memory = memoryWith(text);
  const bool put = memory != nullptr && ::SetClipboardData(CF_UNICODETEXT, memory) != nullptr;
  if (!put && memory != nullptr) ::GlobalFree(memory);
  ::CloseClipboard();
}

void printText(const std::u16string& text) {
  const Printer printer = defaultPrinter();
  DOCINFOW document{};
  document.cbSize = sizeof document;
  document.lpszDocName = L"Listwright";
  if (printer == nullptr || ::StartDocW(printer.get(), &document) <= 0) return;
  printLines(printer.get(), text);
  ::EndDoc(printer.get());
}

void playSound(const std::u16string& file, forms::SoundMode mode) {
  const UINT giveWay = mode == forms::SoundMode::GiveWay ? SND_NOSTOP : 0;
  const UINT how = SND_ASYNC | SND_NODEFAULT | giveWay;
  if (const auto name = text::toAnsi(file)) {
    ::sndPlaySoundA(name->c_str(), how);
  } else {
    ::sndPlaySoundW(text::wide(file), how);
  }
}

}  // namespace kvrnstep::windows
