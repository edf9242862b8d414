#include "platform/module.h"

#include "platform/files.h"
#include "platform/windows/native_path.h"
#include "platform/windows/this_module.h"
#include "text/windows/wide.h"

namespace kvrnstep::platform {

HMODULE thisModule() {
  constexpr DWORD kHow =
      GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
  HMODULE module = nullptr;
  ::GetModuleHandleExW(kHow, reinterpret_cast<LPCWSTR>(&thisModule), &module);
  return module;
}

std::u16string modulePath() {
  constexpr DWORD kLongestPath = 0x8000;
  for (DWORD room = MAX_PATH; room <= kLongestPath; room *= 2) {
    std::u16string path(room, u'\0');
    const DWORD length = ::GetModuleFileNameW(thisModule(), text::wide(path.data()), room);
    if (length == 0) break;
    if (length == room) continue;  // cut off
    path.resize(length);
    return path;
  }
  return {};
}

std::u16string moduleFolder() {
  return withoutTrailingSeparator(folderPart(modulePath()));
}

}  // namespace kvrnstep::platform
