#pragma once

#include <windows.h>

namespace kvrnstep::windows {

/// Gets the messages of windows of our own.
class Receiver {
 public:
  virtual LRESULT received(HWND window, UINT message, WPARAM wide, LPARAM longer) = 0;

 protected:
  ~Receiver() = default;
};

/// The name of the class of our windows and of the grounds in them; a Receiver has to be handed
/// over when one is made. The class lasts as long as the module is loaded.
const wchar_t* ownClass();

}  // namespace kvrnstep::windows
