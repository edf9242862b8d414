#include "services.h"

#include <dlfcn.h>

#include <QByteArray>

#include "module_folder.h"
#include "text.h"

namespace kvrnstep::qt {

namespace {

/// A function of a module that lies beside this one; null where the module is not installed.
template <class Function>
Function* serviceOf(const char* module, const char* name) {
  const std::string path = besideThisModule(module);
  void* library = path.empty() ? nullptr : dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
  return library == nullptr ? nullptr : reinterpret_cast<Function*>(dlsym(library, name));
}

}  // namespace

bool printText(const std::u16string& text) {
  using Print = bool(const char* text, std::size_t length);
  auto* print = serviceOf<Print>("kvrnstep-cups.so", "kvrnstepPrint");
  const QByteArray bytes = toQt(text).toUtf8();
  return print != nullptr && print(bytes.constData(), static_cast<std::size_t>(bytes.size()));
}

void startSound(const std::u16string& file, bool giveWay) {
  using PlaySound = void(const char* path, int giveWay);
  auto* play = serviceOf<PlaySound>("kvrnstep-sound.so", "kvrnstepPlaySound");
  if (play != nullptr) play(toQt(file).toUtf8().constData(), giveWay ? 1 : 0);
}

}  // namespace kvrnstep::qt
