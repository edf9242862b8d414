// The plug-in as hosts on Windows find it: through the registry, by names and identifiers, with
// its type library and its resources.

#include <gtest/gtest.h>
#include <windows.h>
// After the other one.
#include <sddl.h>

#include <array>
#include <cstring>
#include <map>
#include <memory>

#include "kvrnstep/component.hpp"
#include "kvrnstep/library.hpp"
#include "program.h"

namespace {

using namespace kvrnstep;

struct ReleaseObject {
  void operator()(IUnknown* object) const { object->Release(); }
};
template <class Interface>
using Owned = std::unique_ptr<Interface, ReleaseObject>;

std::wstring taken(BSTR text) {
  std::wstring copy(text == nullptr ? L"" : text, SysStringLen(text));
  SysFreeString(text);
  return copy;
}

/// Of a key of the system's or of another program's only the name counts.
bool isOurs(const std::wstring& path) {
  for (const auto* part :
       {L"\\kvrnstep", L"7c40f76b-", L"c333d121-", L"4fbfc97e-", L"29629ad9-", L"ff798f12-"}) {
    if (path.find(part) != std::wstring::npos) return true;
  }
  return path == L"\\clsid" || path == L"\\interface" || path == L"\\typelib";
}

/// Without what other programs have beside it.
template <class Map>
Map ours(Map all) {
  std::erase_if(all, [](const auto& entry) { return !isOurs(entry.first); });
  return all;
}

/// The keys below a key, by their paths in small letters, and the values and keys in those of ours.
void collect(HKEY key, const std::wstring& path, std::map<std::wstring, std::wstring>& all) {
  std::array<wchar_t, 512> name{};
  for (DWORD i = 0;; ++i) {
    DWORD length = name.size();
    std::array<wchar_t, 512> value{};
    DWORD size = sizeof(value);
    if (::RegEnumValueW(key, i, name.data(), &length, nullptr, nullptr,
                        reinterpret_cast<BYTE*>(value.data()), &size) != ERROR_SUCCESS) {
      break;
    }
    all[path + L"@" + name.data()] = value.data();
  }
  for (DWORD i = 0;; ++i) {
    DWORD length = name.size();
    if (::RegEnumKeyExW(key, i, name.data(), &length, nullptr, nullptr, nullptr, nullptr) !=
        ERROR_SUCCESS) {
      break;
    }
    const std::wstring below = path + L"\\" + ::CharLowerW(name.data());
    all[below];
    HKEY opened = nullptr;
    if (!isOurs(below) ||
        ::RegOpenKeyExW(key, name.data(), 0, KEY_READ, &opened) != ERROR_SUCCESS) {
      continue;
    }
    collect(opened, below, all);
    ::RegCloseKey(opened);
  }
}

std::map<std::wstring, std::wstring> classesOf(HKEY root) {
  std::map<std::wstring, std::wstring> all;
  HKEY classes = nullptr;
  if (::RegOpenKeyExW(root, L"Software\\Classes", 0, KEY_READ, &classes) == ERROR_SUCCESS) {
    collect(classes, L"", all);
    ::RegCloseKey(classes);
  }
  return all;
}

class Registered : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(SUCCEEDED(::CoInitialize(nullptr)));
    library_ = openLibrary(hosts::pluginBesideProgram());
    ASSERT_EQ(call("DllRegisterServer"), S_OK);
  }
  void TearDown() override {
    EXPECT_EQ(call("DllUnregisterServer"), S_OK);
    closeLibrary(library_);
    ::CoUninitialize();
  }

  HRESULT call(const char* name) {
    using Function = HRESULT STDMETHODCALLTYPE();
    return reinterpret_cast<Function*>(symbolIn(library_, name))();
  }

  template <class Interface>
  static Owned<Interface> create(const wchar_t* name, const IID& interfaceId) {
    CLSID id{};
    EXPECT_EQ(::CLSIDFromProgID(name, &id), S_OK);
    void* object = nullptr;
    EXPECT_EQ(::CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, interfaceId, &object), S_OK);
    return Owned<Interface>(static_cast<Interface*>(object));
  }

  static Owned<ITypeInfo> describe(IDispatch& object) {
    UINT count = 0;
    EXPECT_EQ(object.GetTypeInfoCount(&count), S_OK);
    EXPECT_EQ(count, 1U);
    ITypeInfo* info = nullptr;
    EXPECT_EQ(object.GetTypeInfo(0, 1033, &info), S_OK);
    EXPECT_EQ(object.GetTypeInfo(1, 1033, nullptr), E_POINTER);
    return Owned<ITypeInfo>(info);
  }

  void* library_ = nullptr;
};

TEST_F(Registered, ComesAndGoesWithoutATrace) {
  const auto registered = classesOf(HKEY_LOCAL_MACHINE);
  ASSERT_EQ(call("DllUnregisterServer"), S_OK);
  const auto before = classesOf(HKEY_LOCAL_MACHINE);
  EXPECT_EQ(call("DllUnregisterServer"), S_OK) << "what is not there is gone";
  EXPECT_FALSE(before.contains(L"\\kvrnstep.listwright"));
  EXPECT_TRUE(registered.contains(L"\\kvrnstep.cicon\\clsid"));
  EXPECT_GT(registered.size(), before.size() + 20);

  ASSERT_EQ(call("DllRegisterServer"), S_OK);
  EXPECT_EQ(classesOf(HKEY_LOCAL_MACHINE), registered);
  ASSERT_EQ(call("DllUnregisterServer"), S_OK);
  EXPECT_EQ(classesOf(HKEY_LOCAL_MACHINE), before);
}

/// For this process, takes the place of the registry of all users as one who is no administrator
/// sees it: what it holds cannot be written.
class OthersRegistry {
 public:
  OthersRegistry() {
    const std::wstring key = std::wstring(kPath) + L"\\Software\\Classes\\CLSID\\" + kClass;
    const auto readOnly = descriptor(L"D:P(A;;KR;;;WD)");
    HKEY leaf = nullptr;
    EXPECT_EQ(::RegCreateKeyExW(HKEY_CURRENT_USER, key.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS,
                                nullptr, &leaf, nullptr),
              ERROR_SUCCESS);
    EXPECT_EQ(::RegSetKeySecurity(leaf, DACL_SECURITY_INFORMATION, readOnly.get()), ERROR_SUCCESS);
    ::RegCloseKey(leaf);
    EXPECT_EQ(::RegOpenKeyExW(HKEY_CURRENT_USER, kPath, 0, KEY_ALL_ACCESS, &root_), ERROR_SUCCESS);
    EXPECT_EQ(::RegOverridePredefKey(HKEY_LOCAL_MACHINE, root_), ERROR_SUCCESS);
  }
  ~OthersRegistry() {
    ::RegOverridePredefKey(HKEY_LOCAL_MACHINE, nullptr);
    const std::wstring key = std::wstring(L"Software\\Classes\\CLSID\\") + kClass;
    HKEY leaf = nullptr;
    ::RegOpenKeyExW(root_, key.c_str(), 0, WRITE_DAC, &leaf);
    ::RegSetKeySecurity(leaf, DACL_SECURITY_INFORMATION, descriptor(L"D:(A;;KA;;;WD)").get());
    ::RegCloseKey(leaf);
    ::RegCloseKey(root_);
    EXPECT_EQ(::RegDeleteTreeW(HKEY_CURRENT_USER, kPath), ERROR_SUCCESS);
  }
  OthersRegistry(const OthersRegistry&) = delete;
  OthersRegistry& operator=(const OthersRegistry&) = delete;

 private:
  struct Free {
    using pointer = PSECURITY_DESCRIPTOR;
    void operator()(PSECURITY_DESCRIPTOR memory) const { ::LocalFree(memory); }
  };
  static std::unique_ptr<void, Free> descriptor(const wchar_t* text) {
    PSECURITY_DESCRIPTOR made = nullptr;
    EXPECT_TRUE(::ConvertStringSecurityDescriptorToSecurityDescriptorW(text, SDDL_REVISION_1, &made,
                                                                       nullptr));
    return std::unique_ptr<void, Free>(made);
  }

  static constexpr const wchar_t* kPath = L"Software\\kvrnstep-test";
  static constexpr const wchar_t* kClass = L"{C333D121-DF97-4586-8A86-2D28E755030D}";
  HKEY root_ = nullptr;
};

TEST_F(Registered, ForOneUserWhereAllAreOutOfReach) {
  const auto forAll = ours(classesOf(HKEY_LOCAL_MACHINE));
  ASSERT_EQ(call("DllUnregisterServer"), S_OK);
  const auto nobody = classesOf(HKEY_CURRENT_USER);
  {
    const OthersRegistry registry;
    const auto before = classesOf(HKEY_LOCAL_MACHINE);
    EXPECT_EQ(call("DllRegisterServer"), S_OK);
    EXPECT_EQ(classesOf(HKEY_LOCAL_MACHINE), before);
    EXPECT_EQ(ours(classesOf(HKEY_CURRENT_USER)), forAll);
  }
  ASSERT_EQ(call("DllUnregisterServer"), S_OK);
  EXPECT_EQ(classesOf(HKEY_CURRENT_USER), nobody);
}

TEST_F(Registered, UnloadsWhenNobodyHoldsAnything) {
  EXPECT_EQ(call("DllCanUnloadNow"), S_OK);
  {
    const auto icon = create<_cIcon>(L"kvrnstep.cIcon", kInterfaceIcon);
    EXPECT_EQ(call("DllCanUnloadNow"), S_FALSE);
  }
  EXPECT_EQ(call("DllCanUnloadNow"), S_OK);
}

TEST_F(Registered, EarlyAndLateHosts) {
  // Compiled against the interface.
  const auto early = create<_Listwright>(L"kvrnstep.Listwright", kInterfaceListwright);
  BSTR version = nullptr;
  EXPECT_EQ(early->PlugNameVersion(&version), S_OK);
  EXPECT_EQ(taken(version), L"kvrn Listwright\t2.0.0");
  // One that knows nothing but the number of a member.
  const auto late = create<IDispatch>(L"kvrnstep.Listwright", kIidDispatch);
  DISPPARAMS none{};
  VARIANT result;
  VariantInit(&result);
  EXPECT_EQ(late->Invoke(KVRNSTEP_PLUG_NAME_VERSION, kIidNull, 1033, DISPATCH_METHOD, &none,
                         &result, nullptr, nullptr),
            S_OK);
  EXPECT_EQ(taken(result.bstrVal), L"kvrn Listwright\t2.0.0");
  // One that calls through the type library, by the places of the functions.
  VariantInit(&result);
  EXPECT_EQ(describe(*early)->Invoke(early.get(), KVRNSTEP_PLUG_NAME_VERSION, DISPATCH_METHOD,
                                     &none, &result, nullptr, nullptr),
            S_OK);
  EXPECT_EQ(taken(result.bstrVal), L"kvrn Listwright\t2.0.0");
}

TEST_F(Registered, TypeLibraryIsFoundByItsNumber) {
  ITypeLib* found = nullptr;
  ASSERT_EQ(::LoadRegTypeLib(kLibrary, 5, 0, 1033, &found), S_OK);
  const Owned<ITypeLib> library(found);
  TLIBATTR* attributes = nullptr;
  ASSERT_EQ(library->GetLibAttr(&attributes), S_OK);
  EXPECT_EQ(attributes->wMajorVerNum, 5);
  EXPECT_EQ(attributes->wMinorVerNum, 0);
  EXPECT_EQ(attributes->lcid, 1033U);
  library->ReleaseTLibAttr(attributes);
  BSTR name = nullptr;
  library->GetDocumentation(-1, &name, nullptr, nullptr, nullptr);
  EXPECT_EQ(taken(name), L"kvrnstep");
  for (const GUID& id : {kClassListwright, kClassIcon, kInterfaceListwright, kInterfaceIcon}) {
    ITypeInfo* info = nullptr;
    EXPECT_EQ(library->GetTypeInfoOfGuid(id, &info), S_OK);
    const Owned<ITypeInfo> owned(info);
  }
}

TEST_F(Registered, MembersAsTheLibraryDescribesThem) {
  const auto listwright = create<_Listwright>(L"kvrnstep.Listwright", kInterfaceListwright);
  const auto info = describe(*listwright);
  FUNCDESC* show = nullptr;
  for (UINT i = 0; SUCCEEDED(info->GetFuncDesc(i, &show)); ++i) {
    if (show->memid == KVRNSTEP_SHOW_LISTWRIGHT_DIALOG) break;
    info->ReleaseFuncDesc(show);
  }
  ASSERT_EQ(show->memid, KVRNSTEP_SHOW_LISTWRIGHT_DIALOG);
  ASSERT_EQ(show->cParams, 15);
  EXPECT_EQ(show->cParamsOpt, 6);
  EXPECT_EQ(show->elemdescFunc.tdesc.vt, VT_BOOL);

  struct Wanted {
    VARTYPE type;
    USHORT flags;
    std::int32_t defaultValue;
  };
  constexpr USHORT kIn = PARAMFLAG_FIN;
  constexpr USHORT kBoth = PARAMFLAG_FIN | PARAMFLAG_FOUT;
  constexpr USHORT kOptional = kBoth | PARAMFLAG_FOPT | PARAMFLAG_FHASDEFAULT;
  const Wanted wanted[] = {
      {VT_BSTR, kBoth, 0},
      {VT_I2, kIn, 0},
      {VT_BOOL, kIn, 0},
      {VT_BOOL, kIn, 0},
      {VT_BSTR, kIn, 0},
      {VT_BSTR, kIn, 0},
      {VT_BSTR, kIn, 0},
      {VT_BSTR, kIn, 0},
      {VT_BSTR, kIn, 0},
      {VT_I4, kOptional, static_cast<std::int32_t>(0x80000005)},
      {VT_I4, kOptional, static_cast<std::int32_t>(0x80000008)},
      {VT_BSTR, kOptional, 0},
      {VT_BSTR, kOptional, 0},
      {VT_I2, kOptional, 9},
      {VT_UI1, kOptional, 4},
  };
  for (std::size_t i = 0; i < std::size(wanted); ++i) {
    const ELEMDESC& parameter = show->lprgelemdescParam[i];
    const bool reference = (wanted[i].flags & PARAMFLAG_FOUT) != 0;
    EXPECT_EQ(parameter.tdesc.vt, reference ? VARTYPE{VT_PTR} : wanted[i].type) << i;
    if (reference) {
      EXPECT_EQ(parameter.tdesc.lptdesc->vt, wanted[i].type) << i;
    }
    EXPECT_EQ(parameter.paramdesc.wParamFlags, wanted[i].flags) << i;
    if ((wanted[i].flags & PARAMFLAG_FHASDEFAULT) == 0) continue;
    VARIANT& given = parameter.paramdesc.pparamdescex->varDefaultValue;
    ASSERT_EQ(given.vt, wanted[i].type) << i;
    if (given.vt == VT_BSTR) {
      EXPECT_EQ(SysStringLen(given.bstrVal), 0U) << i;
    } else {
      VARIANT number;
      VariantInit(&number);
      ASSERT_EQ(::VariantChangeType(&number, &given, 0, VT_I4), S_OK) << i;
      EXPECT_EQ(number.lVal, wanted[i].defaultValue) << i;
    }
  }
  info->ReleaseFuncDesc(show);

  std::wstring name = L"requestprogramicon";
  LPOLESTR pointer = name.data();
  DISPID id = 0;
  const auto icon = create<_cIcon>(L"kvrnstep.cIcon", kInterfaceIcon);
  EXPECT_EQ(describe(*icon)->GetIDsOfNames(&pointer, 1, &id), S_OK);
  EXPECT_EQ(id, KVRNSTEP_REQUEST_PROGRAM_ICON);
}

TEST_F(Registered, CarriesItsResources) {
  auto* module = static_cast<HMODULE>(library_);
  for (const int number : {101, 102, 103}) {
    EXPECT_NE(::LoadIconW(module, MAKEINTRESOURCEW(number)), nullptr) << number;
  }
  for (const auto& [number, x, y] : {std::array{104U, 10U, 1U}, {106, 16, 16}, {107, 16, 16}}) {
    ICONINFO cursor{};
    EXPECT_TRUE(::GetIconInfo(::LoadCursorW(module, MAKEINTRESOURCEW(number)), &cursor));
    EXPECT_EQ(cursor.xHotspot, x) << number;
    EXPECT_EQ(cursor.yHotspot, y) << number;
  }
  EXPECT_NE(::FindResourceW(module, MAKEINTRESOURCEW(2), RT_MANIFEST), nullptr);

  const HRSRC found = ::FindResourceW(module, MAKEINTRESOURCEW(1), RT_VERSION);
  ASSERT_NE(found, nullptr);
  constexpr std::size_t kFixedInfo = 40;  // behind the head with its name
  VS_FIXEDFILEINFO version{};
  std::memcpy(&version,
              static_cast<const char*>(::LockResource(::LoadResource(module, found))) + kFixedInfo,
              sizeof(version));
  EXPECT_EQ(version.dwSignature, 0xFEEF04BDU);
  EXPECT_EQ(version.dwFileVersionMS, 0x00020000U);
  EXPECT_EQ(version.dwFileVersionLS, 0U);
}

}  // namespace
