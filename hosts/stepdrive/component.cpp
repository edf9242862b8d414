#include "component.h"

#include <dlfcn.h>

#include <stdexcept>

namespace stepdrive {

Component::Component(const std::string& path)
    : library_(dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL)) {
  if (library_ == nullptr) throw std::runtime_error(dlerror());
  getClassObject_ =
      reinterpret_cast<kvrnstep::GetClassObjectFunction>(symbol(kvrnstep::kGetClassObject));
  if (getClassObject_ == nullptr) throw std::runtime_error(path + " is no component");
}

void* Component::symbol(const char* name) const {
  return dlsym(library_, name);
}

void Component::create(const kvrnstep::CLSID& classId, const kvrnstep::IID& interfaceId,
                       void** object) const {
  Reference<kvrnstep::IClassFactory> factory;
  const bool found =
      kvrnstep::SUCCEEDED(getClassObject_(classId, kvrnstep::kIidClassFactory, factory.place()));
  if (!found || kvrnstep::FAILED(factory->CreateInstance(nullptr, interfaceId, object))) {
    throw std::runtime_error("the plug-in does not create its object");
  }
}

}  // namespace stepdrive
