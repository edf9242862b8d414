#pragma once

#include <string>

#include "kvrnstep/component.hpp"

namespace stepdrive {

/// Owns a reference to an object of the plug-in's.
template <class Interface>
class Reference {
 public:
  Reference() = default;
  ~Reference() {
    if (object_ != nullptr) object_->Release();
  }
  Reference(const Reference&) = delete;
  Reference& operator=(const Reference&) = delete;

  Interface* operator->() const { return object_; }
  Interface& operator*() const { return *object_; }
  /// Where a function puts what it hands out.
  void** place() { return reinterpret_cast<void**>(&object_); }

 private:
  Interface* object_ = nullptr;
};

/// A counted text of our own, to be passed or filled.
class Bstr {
 public:
  Bstr() = default;
  void set(std::u16string_view text) {
    kvrnstep::SysFreeString(text_);
    text_ = kvrnstep::SysAllocStringLen(reinterpret_cast<const kvrnstep::OLECHAR*>(text.data()),
                                        static_cast<kvrnstep::UINT>(text.size()));
  }
  ~Bstr() { kvrnstep::SysFreeString(text_); }
  Bstr(const Bstr&) = delete;
  Bstr& operator=(const Bstr&) = delete;

  [[nodiscard]] kvrnstep::BSTR get() const { return text_; }
  kvrnstep::BSTR* place() { return &text_; }
  [[nodiscard]] std::u16string text() const {
    if (text_ == nullptr) return {};
    return {reinterpret_cast<const char16_t*>(text_), kvrnstep::SysStringLen(text_)};
  }

 private:
  kvrnstep::BSTR text_ = nullptr;
};

/// The plug-in as a component: its library, loaded for the rest of the process's life, and the
/// objects that it creates.
class Component {
 public:
  /// @throws std::runtime_error with the loader's reason
  explicit Component(const std::string& path);

  /// A new object of a class. @throws std::runtime_error
  template <class Interface>
  void create(const kvrnstep::CLSID& classId, const kvrnstep::IID& interfaceId,
              Reference<Interface>& object) const {
    create(classId, interfaceId, object.place());
  }
  /// A further function that the library exports, or null.
  [[nodiscard]] void* symbol(const char* name) const;

 private:
  void create(const kvrnstep::CLSID& classId, const kvrnstep::IID& interfaceId,
              void** object) const;

  void* library_;
  kvrnstep::GetClassObjectFunction getClassObject_;
};

}  // namespace stepdrive
