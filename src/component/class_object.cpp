// The class objects and the function that returns them.

#include "component/icon_object.h"
#include "component/listwright_object.h"
#include "kvrnstep/kvrnstep.h"

namespace kvrnstep::component {

namespace {

/// Creates objects of one class. It exists as long as the module, so references to it count as
/// references to the module.
template <class Class>
// NOLINTNEXTLINE(cppcoreguidelines-virtual-class-destructor): nobody deletes it
class ClassObject final : public IClassFactory {
 public:
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** object) override {
    if (object == nullptr) return E_POINTER;
    const bool known = riid == kIidUnknown || riid == kIidClassFactory;
    *object = known ? static_cast<IClassFactory*>(this) : nullptr;
    if (!known) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++held(); }
  ULONG STDMETHODCALLTYPE Release() override { return --held(); }

  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID riid, void** object) override {
    if (object == nullptr) return E_POINTER;
    *object = nullptr;
    if (outer != nullptr) return CLASS_E_NOAGGREGATION;
    return guarded([&] {
      auto* created = new Class;
      const HRESULT result = created->QueryInterface(riid, object);
      created->Release();
      return result;
    });
  }
  HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override {
    lock != 0 ? AddRef() : Release();
    return S_OK;
  }
};

HRESULT classObject(const CLSID& classId, const IID& interfaceId, void** object) {
  static ClassObject<ListwrightObject> listwright;
  static ClassObject<IconObject> icon;
  if (object == nullptr) return E_POINTER;
  *object = nullptr;
  if (classId == kClassListwright) return listwright.QueryInterface(interfaceId, object);
  if (classId == kClassIcon) return icon.QueryInterface(interfaceId, object);
  return CLASS_E_CLASSNOTAVAILABLE;
}

}  // namespace

}  // namespace kvrnstep::component

extern "C" KVRNSTEP_API kvrnstep::HRESULT kvrnstepGetClassObject(const kvrnstep::CLSID& classId,
                                                                 const kvrnstep::IID& interfaceId,
                                                                 void** object) {
  return kvrnstep::component::classObject(classId, interfaceId, object);
}
