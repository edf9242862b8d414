#pragma once

#include <algorithm>
#include <atomic>
#include <exception>
#include <new>
#include <span>

#include "component/bstr.h"
#include "component/late_binding.h"
#include "component/running_call.h"
#include "component/type_info.h"
#include "kvrnstep/component.hpp"

namespace kvrnstep::component {

/// Runs work for a host; no exception may reach the host.
template <class Work>
HRESULT guarded(Work work) noexcept {
  try {
    return work();
  } catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
  } catch (const std::exception&) {
    return E_FAIL;
  }
}

/// Gives the host the text that `work` makes.
template <class Work>
HRESULT handOut(BSTR* result, Work work) noexcept {
  if (result == nullptr) return E_POINTER;
  *result = nullptr;
  return guarded([&] {
    *result = newBstr(work());
    return S_OK;
  });
}

/// An object with a dual interface: references, and members called by names and numbers.
template <class Interface, const GUID& kInterface>
class Object : public Interface {
 public:
  Object() { ++held(); }
  virtual ~Object() { --held(); }
  Object(const Object&) = delete;
  Object& operator=(const Object&) = delete;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** object) override {
    if (object == nullptr) return E_POINTER;
    const bool known = riid == kIidUnknown || riid == kIidDispatch || riid == kInterface;
    *object = known ? static_cast<Interface*>(this) : nullptr;
    if (!known) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
  }

  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
    if (count == nullptr) return E_POINTER;
    *count = kTypeInfoCount;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID /*locale*/, ITypeInfo** info) override {
    if (info == nullptr) return E_POINTER;
    *info = nullptr;
    return index < kTypeInfoCount ? typeInfo(kInterface, info) : DISP_E_BADINDEX;
  }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count,
                                          LCID /*locale*/, DISPID* ids) override {
    if (!(reserved == kIidNull)) return DISP_E_UNKNOWNINTERFACE;
    if (names == nullptr || ids == nullptr) return E_POINTER;
    return guarded([&] { return idsOfNames(members(), names, count, ids); });
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID reserved, LCID /*locale*/, WORD way,
                                   DISPPARAMS* parameters, VARIANT* result,
                                   EXCEPINFO* /*exception*/, UINT* wrongArgument) override {
    if (!(reserved == kIidNull)) return DISP_E_UNKNOWNINTERFACE;
    if (parameters == nullptr) return E_POINTER;
    if (result != nullptr) VariantInit(result);
    return guarded([&] { return invoke(id, way, *parameters, result, wrongArgument); });
  }

 protected:
  [[nodiscard]] virtual std::span<const Member> members() const = 0;
  /// Calls the member with its arguments, which the members read; `result` may be null.
  virtual HRESULT call(const Member& member, LateArguments& arguments, VARIANT* result) = 0;

 private:
  HRESULT invoke(DISPID id, WORD way, const DISPPARAMS& parameters, VARIANT* result,
                 UINT* wrongArgument) {
    const auto member = std::ranges::find(members(), id, &Member::id);
    if (member == members().end() || (member->ways & way) == 0) return DISP_E_MEMBERNOTFOUND;
    LateArguments arguments;
    HRESULT done = arguments.place(*member, parameters);
    if (SUCCEEDED(done)) done = call(*member, arguments, result);
    if (FAILED(arguments.result()) && wrongArgument != nullptr) {
      *wrongArgument = arguments.wrongArgument();
    }
    return done;
  }

  std::atomic<ULONG> references_{1};
};

}  // namespace kvrnstep::component
