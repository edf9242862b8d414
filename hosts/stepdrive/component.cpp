#include "component.h"

#include <stdexcept>

#include "kvrnstep/library.hpp"

namespace stepdrive {

Component::Component(const std::string& path)
    : library_(kvrnstep::openLibrary(path)),
      getClassObject_(
          reinterpret_cast<kvrnstep::GetClassObjectFunction>(symbol(kvrnstep::kGetClassObject))) {
  if (getClassObject_ == nullptr) throw std::runtime_error(path + " is no component");
}

void* Component::symbol(const char* name) const {
  return kvrnstep::symbolIn(library_, name);
}

void Component::create(const kvrnstep::CLSID& classId, const kvrnstep::IID& interfaceId,
                       void** object) const {
  Reference<kvrnstep::IClassFactory> factory;
  // On Windows some of these names are macros.
  using namespace kvrnstep;  // NOLINT(google-build-using-namespace)
  const bool found = SUCCEEDED(getClassObject_(classId, kIidClassFactory, factory.place()));
  if (!found || FAILED(factory->CreateInstance(nullptr, interfaceId, object))) {
    throw std::runtime_error("the plug-in does not create its object");
  }
}

}  // namespace stepdrive
