#pragma once

#include <windows.h>
// After the other one.
#include <commctrl.h>

namespace kvrnstep::windows {

/// The name of the class of our windows and of containers. It is registered while the module is
/// loaded.
const wchar_t* ownClass();

/// Gets the messages of a window before the system deals with them.
class Receiver {
 public:
  virtual ~Receiver() { release(); }
  Receiver(const Receiver&) = delete;
  Receiver& operator=(const Receiver&) = delete;

  /// Null before `adopt` and after `release`.
  [[nodiscard]] HWND handle() const { return handle_; }

 protected:
  Receiver() = default;

  /// To be called once.
  void adopt(HWND handle);
  /// Gives the window up and returns it.
  HWND release();
  /// An override calls this for what it does not deal with.
  virtual LRESULT received(UINT message, WPARAM wide, LPARAM longer);

 private:
  static LRESULT CALLBACK procedure(HWND handle, UINT message, WPARAM wide, LPARAM longer,
                                    UINT_PTR id, DWORD_PTR receiver);

  HWND handle_ = nullptr;
};

}  // namespace kvrnstep::windows
