#include "printing.h"

#include <windows.h>
// After the other one.
#include <winspool.h>

#include <memory>
#include <string_view>

#include "handle.h"
#include "text/windows/wide.h"

namespace kvrnstep::windows {

namespace {

using Printer = std::unique_ptr<std::remove_pointer_t<HDC>, Freed<::DeleteDC>>;

std::u16string defaultPrinter() {
  DWORD size = 0;
  ::GetDefaultPrinterW(nullptr, &size);
  std::u16string name(size, u'\0');
  if (size == 0 || ::GetDefaultPrinterW(text::wide(name.data()), &size) == FALSE) return {};
  return name.substr(0, name.find(u'\0'));
}

/// Lines go down the page; behind the last one that fits the next page begins.
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

bool printText(const std::u16string& text) {
  const std::u16string name = defaultPrinter();
  if (name.empty()) return false;
  const Printer printer(::CreateDCW(L"WINSPOOL", text::wide(name), nullptr, nullptr));
  if (printer == nullptr) return false;
  DOCINFOW document{};
  document.cbSize = sizeof document;
  document.lpszDocName = L"Listwright";
  if (::StartDocW(printer.get(), &document) <= 0) return false;
  printLines(printer.get(), text);
  return ::EndDoc(printer.get()) > 0;
}

}  // namespace kvrnstep::windows
