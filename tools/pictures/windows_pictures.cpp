/// Draws every window, layout, menu and box of the plug-in with the controls of Windows:
///
///     pictures FOLDER SUFFIX     writes FOLDER/NAME-SUFFIX.png for each of them
///
/// Scale and colours are the system's. The pictures are of the screen, as people see it.
#include <windows.h>
// After the other one.
#include <objidl.h>
#include <propidl.h>
// After those.
#include <gdiplus.h>

#include <cstdio>
#include <functional>
#include <utility>

#include "driven/ticker.h"
#include "forms/user_actions.h"
#include "scenes.h"
#include "windows_toolkit.h"

using namespace kvrnstep;
using windows::WindowView;

namespace {

/// What is done with the topmost window before the picture is taken, one after the other.
using Step = std::function<void(WindowView&)>;
using Steps = std::vector<Step>;

RECT placeOf(HWND window) {
  RECT place{};
  ::GetWindowRect(window, &place);
  return place;
}

/// A window of that class which can be seen, or null.
HWND shownWindow(const wchar_t* className) {
  const HWND window = ::FindWindowW(className, nullptr);
  return window != nullptr && ::IsWindowVisible(window) != FALSE ? window : nullptr;
}

bool writePng(HBITMAP picture, const std::wstring& file) {
  constexpr CLSID kEncoder{
      0x557cf406, 0x1a04, 0x11d3, {0x9a, 0x73, 0x00, 0x00, 0xf8, 0x1e, 0xf3, 0x2e}};
  return Gdiplus::Bitmap(picture, nullptr).Save(file.c_str(), &kEncoder, nullptr) == Gdiplus::Ok;
}

bool photograph(const RECT& area, const std::wstring& file) {
  const int width = static_cast<int>(area.right - area.left);
  const int height = static_cast<int>(area.bottom - area.top);
  const HDC screen = ::GetDC(nullptr);
  const HDC memory = ::CreateCompatibleDC(screen);
  const HBITMAP picture = ::CreateCompatibleBitmap(screen, width, height);
  const HGDIOBJ before = ::SelectObject(memory, picture);
  ::BitBlt(memory, 0, 0, width, height, screen, area.left, area.top, SRCCOPY);
  ::SelectObject(memory, before);
  const bool written = writePng(picture, file);
  ::DeleteObject(picture);
  ::DeleteDC(memory);
  ::ReleaseDC(nullptr, screen);
  return written;
}

/// Takes a picture of what opens last and closes everything again.
class Photographer final : public windows::Attendant {
 public:
  Photographer(std::wstring file, const Steps& steps)
      : file_(std::move(file)), steps_(steps), ticker_([this] { lookForOpened(); }) {}

  void windowIdle(WindowView& view) override {
    window_ = view.handle();
    if (next_ < steps_.size()) return steps_[next_++](view);
    // Drawing is asked for in the end, when nothing else is to be done.
    if (!std::exchange(drawn_, true)) {
      ::RedrawWindow(window_, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
      return;
    }
    take(shownWindow(L"ComboLBox"));
    view.window().unload();
  }

  [[nodiscard]] bool succeeded() const { return succeeded_; }

 private:
  /// Boxes and menus wait in loops of the system's. What was there a tick ago has been drawn.
  void lookForOpened() {
    const HWND menu = shownWindow(L"#32768");
    const HWND box = shownWindow(L"#32770");
    const HWND opened = menu != nullptr ? menu : box;
    if (opened == nullptr || std::exchange(seen_, opened) != opened) return;
    if (menu != nullptr) {
      take(menu);
      ::EndMenu();
    } else {
      window_ = box;
      take(nullptr);
      ::PostMessageW(box, WM_COMMAND, IDCANCEL, 0);
    }
  }

  /// Only the first one: what is closed uncovers what lies below.
  void take(HWND above) {
    if (std::exchange(taken_, true)) return;
    RECT area = placeOf(window_);
    if (above != nullptr) {
      const RECT other = placeOf(above);
      ::UnionRect(&area, &area, &other);
    }
    succeeded_ = photograph(area, file_);
  }

  std::wstring file_;
  const Steps& steps_;
  std::size_t next_ = 0;
  windows::Ticker ticker_;
  HWND window_ = nullptr;
  HWND seen_ = nullptr;
  bool drawn_ = false;
  bool taken_ = false;
  bool succeeded_ = false;
};

struct Shown {
  std::string name;
  Steps steps;
};

/// The menu with that letter, as Alt opens it.
Step openMenu(char letter) {
  return [=](WindowView& view) {
    ::PostMessageW(view.handle(), WM_SYSCOMMAND, SC_KEYMENU, static_cast<LPARAM>(letter));
  };
}

Step change(std::function<void(forms::Window&)> window) {
  return [=](WindowView& view) {
    window(view.window());
    view.update();
  };
}

Step click(const char* name, int index) {
  return change([=](forms::Window& window) { pictures::click(window, name, index); });
}

Step focus(const char* name, int index) {
  return change([=](forms::Window& window) { window.setFocus(*window.find(name, index)); });
}

void selectSecond(forms::Window& window) {
  forms::userClickedEntry(static_cast<forms::ListBox&>(*window.find("lstEdit", -1)), 1);
}

void dropDown(WindowView& view) {
  const auto& combo = view.viewOf(*view.window().find("cboPreSuf", 1));
  ::SendMessageW(combo.handle(), CB_SHOWDROPDOWN, TRUE, 0);
}

constexpr const char* kHostColors = "host-colours";

/// What only this front end draws in its own way.
std::vector<Shown> ownScenes() {
  return {
      {"file-menu", {openMenu('f')}},
      {"edit-menu", {openMenu('e')}},
      {"options-menu", {openMenu('o')}},
      {"actions-menu", {openMenu('a')}},
      {"file-to-open", {click("mnuFiles", 0)}},
      {"suffixes", {dropDown}},
      {"link-focus", {focus("lblD", 1)}},
      {"prefix-selected", {click("mnuEdits", 0), change(selectSecond)}},
      {"beginning-focus", {click("mnuEdits", 3), focus("imgBE", 0)}},
      {kHostColors, {change(pictures::writeList), click("mnuOptions", 5)}},
  };
}

std::vector<Shown> allScenes() {
  std::vector<Shown> all;
  for (const pictures::Scene& scene : pictures::scenes()) {
    all.push_back({scene.name, {change(scene.prepare)}});
  }
  for (Shown& scene : ownScenes()) all.push_back(std::move(scene));
  return all;
}

bool draw(const Shown& scene, const std::wstring& file) {
  const pictures::Folder folder;
  Photographer photographer(file, scene.steps);
  windows::WindowsToolkit toolkit(&photographer);
  plugin::HostContext host = pictures::hostOf(folder);
  if (scene.name == kHostColors) {
    host.l_EditorBColor = 0x00D0F0FF;
    host.l_EditorFColor = 0x00602000;
  }
  dialogs::frmListwright dialog(toolkit, host);
  dialog.showModal(toolkit);
  return photographer.succeeded();
}

}  // namespace

int wmain(int count, wchar_t** words) {
  if (count != 3) return 2;
  const Gdiplus::GdiplusStartupInput input;
  ULONG_PTR token = 0;
  Gdiplus::GdiplusStartup(&token, &input, nullptr);
  int status = 0;
  for (const Shown& scene : allScenes()) {
    const std::filesystem::path folder(words[1]);
    const std::wstring name(scene.name.begin(), scene.name.end());
    if (draw(scene, (folder / (name + L'-' + words[2] + L".png")).wstring())) continue;
    std::fprintf(stderr, "%s: no picture\n", scene.name.c_str());
    status = 1;
  }
  Gdiplus::GdiplusShutdown(token);
  return status;
}
