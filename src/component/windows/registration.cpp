#include "component/windows/registration.h"

#include <array>
#include <string>
#include <vector>

#include "platform/files.h"
#include "platform/module.h"
#include "platform/windows/this_module.h"
#include "text/windows/wide.h"

namespace kvrnstep::component {

namespace {

using text::wide;

constexpr std::u16string_view kTitle = u"kvrn Listwright";
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

// All keys are below this one of a root.
std::u16string inClasses(std::u16string_view key) {
  return u"Software\\Classes\\" + std::u16string(key);
}
std::u16string keyOfClass(const Class& one) {
  return u"CLSID\\" + textOf(one.id);
}
std::u16string keyOfInterface(const Class& one) {
  return u"Interface\\" + textOf(one.interfaceId);
}
std::u16string keyOfLibrary() {
  return u"TypeLib\\" + textOf(kLibrary);
}
std::u16string keyOfVersion() {
  return keyOfLibrary().append(u"\\").append(kVersion);
}
std::u16string keyOfModule(std::u16string_view language) {
  return keyOfVersion().append(language).append(kSystem);
}

struct Value {
  std::u16string key;
  std::u16string text;
  const wchar_t* name = nullptr;  ///< null for the key's default value
};

std::vector<Value> allValues() {
  const std::u16string module = platform::modulePath();
  const std::u16string version(kVersion);
  const std::u16string title(kTitle);
  std::vector<Value> all;
  for (const Class& one : kComponentClasses) {
    const std::u16string key = keyOfClass(one);
    const std::u16string name(one.name);
    const std::u16string ofInterface = keyOfInterface(one);
    all.insert(all.end(), {{key, title},
                           {key + u"\\InprocServer32", module},
                           {key + u"\\InprocServer32", u"Apartment", L"ThreadingModel"},
                           {key + u"\\ProgID", name},
                           {key + u"\\Programmable", u""},
                           {key + u"\\TypeLib", textOf(kLibrary)},
                           {key + u"\\Version", version},
                           {name, title},
                           {name + u"\\CLSID", textOf(one.id)},
                           {ofInterface, std::u16string(one.interfaceName)},
                           {ofInterface + u"\\ProxyStubClsid32", std::u16string(kMarshaler)},
                           {ofInterface + u"\\TypeLib", textOf(kLibrary)},
                           {ofInterface + u"\\TypeLib", version, L"Version"}});
  }
  for (const auto language : kLanguages) all.push_back({keyOfModule(language), module});
  all.insert(all.end(), {{keyOfVersion(), u"kvrnstep"},
                         {keyOfVersion() + u"\\FLAGS", u"0"},
                         {keyOfVersion() + u"\\HELPDIR", platform::moduleFolder()}});
  return all;
}

/// On 64-bit Windows the 32-bit and the 64-bit build share the names and the type library, but not
/// the classes and interfaces.
bool otherBuildIsRegistered(HKEY root) {
  BOOL emulated = TRUE;
#ifndef _WIN64
  ::IsWow64Process(::GetCurrentProcess(), &emulated);
#endif
  HKEY opened = nullptr;
  const std::u16string key = inClasses(keyOfClass(kComponentClasses.front()));
  if (emulated == FALSE ||
      ::RegOpenKeyExW(root, wide(key), 0, KEY_READ | kOtherView, &opened) != ERROR_SUCCESS) {
    return false;
  }
  ::RegCloseKey(opened);
  return true;
}

/// Deletes a key that writing the others may have made.
void eraseIfEmpty(HKEY root, std::u16string_view key) {
  const std::u16string path = inClasses(key);
  HKEY opened = nullptr;
  if (::RegOpenKeyExW(root, wide(path), 0, KEY_READ, &opened) != ERROR_SUCCESS) return;
  DWORD keys = 0;
  DWORD values = 0;
  const LSTATUS result = ::RegQueryInfoKeyW(opened, nullptr, nullptr, nullptr, &keys, nullptr,
                                            nullptr, &values, nullptr, nullptr, nullptr, nullptr);
  ::RegCloseKey(opened);
  if (result == ERROR_SUCCESS && keys == 0 && values == 0) ::RegDeleteKeyW(root, wide(path));
}

/// Returns the first failure. A missing key is not a failure.
LSTATUS eraseAll(HKEY root) {
  LSTATUS first = ERROR_SUCCESS;
  const auto erase = [&](std::u16string_view key) {
    const LSTATUS result = ::RegDeleteTreeW(root, wide(inClasses(key)));
    if (first == ERROR_SUCCESS && result != ERROR_FILE_NOT_FOUND) first = result;
  };
  for (const Class& one : kComponentClasses) {
    erase(keyOfClass(one));
    erase(keyOfInterface(one));
  }
  // To be called when our own keys are gone, because both builds may see the same ones.
  if (otherBuildIsRegistered(root)) {
    for (const auto language : kLanguages) erase(keyOfModule(language));
  } else {
    for (const Class& one : kComponentClasses) erase(one.name);
    erase(keyOfLibrary());
  }
  for (const auto* parent : {u"CLSID", u"Interface", u"TypeLib"}) eraseIfEmpty(root, parent);
  return first;
}

/// Writes all or nothing.
LSTATUS writeAll(HKEY root) {
  bool began = false;
  for (const auto& [key, text, name] : allValues()) {
    const auto size = static_cast<DWORD>((text.size() + 1) * sizeof(char16_t));
    const LSTATUS result =
        ::RegSetKeyValueW(root, wide(inClasses(key)), name, REG_SZ, text.c_str(), size);
    if (result != ERROR_SUCCESS) {
      if (began) eraseAll(root);
      return result;
    }
    began = true;
  }
  return ERROR_SUCCESS;
}

}  // namespace

HRESULT registerComponent() {
  const LSTATUS result = writeAll(HKEY_LOCAL_MACHINE);
  if (result == ERROR_ACCESS_DENIED) return registerForUser();
  // A registration for this user alone would have priority over the one for all users.
  if (result == ERROR_SUCCESS) eraseAll(HKEY_CURRENT_USER);
  return HRESULT_FROM_WIN32(result);
}

HRESULT registerForUser() {
  return HRESULT_FROM_WIN32(writeAll(HKEY_CURRENT_USER));
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
