#include "component/windows/registration.h"

#include <array>
#include <string>

#include "platform/files.h"
#include "platform/module.h"
#include "platform/windows/this_module.h"
#include "text/windows/wide.h"

namespace kvrnstep::component {

namespace {

using text::wide;

constexpr std::u16string_view kTitle = u"kvrn Listwright";
constexpr std::u16string_view kClasses = u"Software\\Classes\\";
constexpr std::u16string_view kVersion = u"5.0";
/// The language of the type library. For calls between apartments the system looks it up without a
/// language.
constexpr std::array<std::u16string_view, 2> kLanguages{u"\\0\\", u"\\409\\"};
/// The system's class that marshals the calls of an interface by its type library.
constexpr std::u16string_view kMarshaler = u"{00020424-0000-0000-C000-000000000046}";

#ifdef _WIN64
constexpr std::u16string_view kSystem = u"win64";
constexpr REGSAM kOtherView = KEY_WOW64_32KEY;
#else
constexpr std::u16string_view kSystem = u"win32";
constexpr REGSAM kOtherView = KEY_WOW64_64KEY;
#endif

struct Class {
  const GUID& id;
  const GUID& interfaceId;
  std::u16string_view name;
  std::u16string_view interfaceName;
};
constexpr std::array<Class, 2> kComponentClasses{{
    {kClassListwright, kInterfaceListwright, u"kvrnstep.Listwright", u"_Listwright"},
    {kClassIcon, kInterfaceIcon, u"kvrnstep.cIcon", u"_cIcon"},
}};

std::u16string textOf(const GUID& id) {
  constexpr int kRoom = 39;
  std::u16string text(kRoom, u'\0');
  ::StringFromGUID2(id, wide(text.data()), kRoom);
  text.pop_back();
  return text;
}

std::u16string joined(std::initializer_list<std::u16string_view> parts) {
  std::u16string all;
  for (const auto part : parts) all += part;
  return all;
}

std::u16string keyOfClass(const Class& one) {
  return joined({kClasses, u"CLSID\\", textOf(one.id)});
}
std::u16string keyOfName(const Class& one) {
  return joined({kClasses, one.name});
}
std::u16string keyOfInterface(const Class& one) {
  return joined({kClasses, u"Interface\\", textOf(one.interfaceId)});
}
std::u16string keyOfLibrary() {
  return joined({kClasses, u"TypeLib\\", textOf(kLibrary)});
}
std::u16string keyOfVersion() {
  return joined({keyOfLibrary(), u"\\", kVersion});
}

/// Writes keys below one root, up to the first failure.
class Writer {
 public:
  explicit Writer(HKEY root) : root_(root) {}

  /// @param name of the value; null for the default value
  void write(const std::u16string& key, std::u16string_view text, const wchar_t* name = nullptr) {
    if (result_ != ERROR_SUCCESS) return;
    const std::u16string value(text);
    const auto size = static_cast<DWORD>((value.size() + 1) * sizeof(char16_t));
    result_ = ::RegSetKeyValueW(root_, wide(key), name, REG_SZ, value.c_str(), size);
    began_ = began_ || result_ == ERROR_SUCCESS;
  }

  [[nodiscard]] LSTATUS result() const { return result_; }
  /// Whether anything may have been written so far.
  [[nodiscard]] bool began() const { return began_; }

 private:
  HKEY root_;
  LSTATUS result_ = ERROR_SUCCESS;
  bool began_ = false;
};

void writeClass(Writer& writer, const Class& one, const std::u16string& module) {
  const std::u16string key = keyOfClass(one);
  writer.write(key, kTitle);
  writer.write(key + u"\\InprocServer32", module);
  writer.write(key + u"\\InprocServer32", u"Apartment", L"ThreadingModel");
  writer.write(key + u"\\ProgID", one.name);
  writer.write(key + u"\\Programmable", u"");
  writer.write(key + u"\\TypeLib", textOf(kLibrary));
  writer.write(key + u"\\Version", kVersion);
  writer.write(keyOfName(one), kTitle);
  writer.write(keyOfName(one) + u"\\CLSID", textOf(one.id));
  writer.write(keyOfInterface(one), one.interfaceName);
  writer.write(keyOfInterface(one) + u"\\ProxyStubClsid32", kMarshaler);
  writer.write(keyOfInterface(one) + u"\\TypeLib", textOf(kLibrary));
  writer.write(keyOfInterface(one) + u"\\TypeLib", kVersion, L"Version");
}

void writeAll(Writer& writer) {
  const std::u16string module = platform::modulePath();
  for (const Class& one : kComponentClasses) writeClass(writer, one, module);
  writer.write(keyOfVersion(), u"kvrnstep");
  for (const auto language : kLanguages) {
    writer.write(joined({keyOfVersion(), language, kSystem}), module);
  }
  writer.write(keyOfVersion() + u"\\FLAGS", u"0");
  writer.write(keyOfVersion() + u"\\HELPDIR", platform::moduleFolder());
}

bool exists(HKEY root, const std::u16string& key, REGSAM view) {
  HKEY opened = nullptr;
  if (::RegOpenKeyExW(root, wide(key), 0, KEY_READ | view, &opened) != ERROR_SUCCESS) return false;
  ::RegCloseKey(opened);
  return true;
}

/// On 64-bit Windows the 32-bit and the 64-bit build share the names and the type library, but not
/// the classes and interfaces.
bool otherBuildIsRegistered(HKEY root) {
  BOOL emulated = TRUE;
#ifndef _WIN64
  ::IsWow64Process(::GetCurrentProcess(), &emulated);
#endif
  return emulated != FALSE && exists(root, keyOfClass(kComponentClasses.front()), kOtherView);
}

/// Deletes keys below one root and remembers the first failure. A missing key is not a failure.
class Eraser {
 public:
  explicit Eraser(HKEY root) : root_(root) {}

  void erase(const std::u16string& key) {
    const LSTATUS result = ::RegDeleteTreeW(root_, wide(key));
    const bool gone = result == ERROR_SUCCESS || result == ERROR_FILE_NOT_FOUND;
    if (!gone && result_ == ERROR_SUCCESS) result_ = result;
  }

  /// Deletes a key that writing the others may have made.
  void eraseIfEmpty(std::u16string_view key) {
    const std::u16string path = joined({kClasses, key});
    HKEY opened = nullptr;
    if (::RegOpenKeyExW(root_, wide(path), 0, KEY_READ, &opened) != ERROR_SUCCESS) return;
    DWORD keys = 0;
    DWORD values = 0;
    const LSTATUS result = ::RegQueryInfoKeyW(opened, nullptr, nullptr, nullptr, &keys, nullptr,
                                              nullptr, &values, nullptr, nullptr, nullptr, nullptr);
    ::RegCloseKey(opened);
    if (result == ERROR_SUCCESS && keys == 0 && values == 0) ::RegDeleteKeyW(root_, wide(path));
  }

  [[nodiscard]] LSTATUS result() const { return result_; }

 private:
  HKEY root_;
  LSTATUS result_ = ERROR_SUCCESS;
};

LSTATUS eraseAll(HKEY root) {
  Eraser eraser(root);
  for (const Class& one : kComponentClasses) {
    eraser.erase(keyOfClass(one));
    eraser.erase(keyOfInterface(one));
  }
  // To be called when our own keys are gone, because both builds may see the same ones.
  const bool shared = otherBuildIsRegistered(root);
  for (const Class& one : kComponentClasses) {
    if (!shared) eraser.erase(keyOfName(one));
  }
  for (const auto language : kLanguages) {
    if (shared) eraser.erase(joined({keyOfVersion(), language, kSystem}));
  }
  if (!shared) eraser.erase(keyOfLibrary());
  for (const auto* parent : {u"CLSID", u"Interface", u"TypeLib"}) eraser.eraseIfEmpty(parent);
  return eraser.result();
}

LSTATUS writeAllIn(HKEY root) {
  Writer writer(root);
  writeAll(writer);
  if (writer.result() != ERROR_SUCCESS && writer.began()) eraseAll(root);
  return writer.result();
}

}  // namespace

HRESULT registerComponent() {
  const LSTATUS result = writeAllIn(HKEY_LOCAL_MACHINE);
  if (result == ERROR_ACCESS_DENIED) return registerForUser();
  // A registration for this user alone would have priority over the one for all users.
  if (result == ERROR_SUCCESS) eraseAll(HKEY_CURRENT_USER);
  return HRESULT_FROM_WIN32(result);
}

HRESULT registerForUser() {
  return HRESULT_FROM_WIN32(writeAllIn(HKEY_CURRENT_USER));
}

HRESULT unregisterComponent() {
  const LSTATUS forAll = eraseAll(HKEY_LOCAL_MACHINE);
  const HRESULT forOne = unregisterForUser();
  return forAll != ERROR_SUCCESS ? HRESULT_FROM_WIN32(forAll) : forOne;
}

HRESULT unregisterForUser() {
  return HRESULT_FROM_WIN32(eraseAll(HKEY_CURRENT_USER));
}

}  // namespace kvrnstep::component
