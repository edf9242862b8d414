// The plug-in as hosts on Windows find it: through the registry, by names and identifiers, with
// its type library and its resources.

#include <gtest/gtest.h>
#include <windows.h>
// After the other one.
#include <sddl.h>

#include <array>
#include <cstring>
#include <memory>
#include <thread>
#include <vector>

#include "kvrnstep/component.hpp"
#include "kvrnstep/library.hpp"
#include "kvrnstep/listwright.hpp"
#include "program.h"
#include "temporary_folder.h"

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

/// Of the keys that a registration writes, one of each kind: those that are there.
std::vector<std::wstring> keysIn(HKEY root) {
  std::vector<std::wstring> there;
  for (const auto* key :
       {L"kvrnstep.cIcon\\CLSID", L"CLSID\\{C333D121-DF97-4586-8A86-2D28E755030D}",
        L"Interface\\{4FBFC97E-B9B6-4206-8A78-CF2E0BEDE78E}\\TypeLib",
        L"TypeLib\\{7C40F76B-E8F1-4A46-9D1D-08F54FAFC6A7}"}) {
    HKEY opened = nullptr;
    if (::RegOpenKeyExW(root, (std::wstring(L"Software\\Classes\\") + key).c_str(), 0, KEY_READ,
                        &opened) != ERROR_SUCCESS) {
      continue;
    }
    there.emplace_back(key);
    ::RegCloseKey(opened);
  }
  return there;
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
    ::FreeLibrary(static_cast<HMODULE>(library_));
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

bool unloadMeanwhile = true;

/// As a host that may give the plug-in back while its dialog is open, and closes that.
void CALLBACK unloadAndClose(HWND /*window*/, UINT /*message*/, UINT_PTR timer, DWORD /*time*/) {
  const HWND dialog = ::FindWindowW(L"kvrnstep.window", nullptr);
  if (dialog == nullptr) return;
  ::KillTimer(nullptr, timer);
  const HMODULE module = ::GetModuleHandleW(L"kvrnstep.dll");
  using Function = HRESULT STDMETHODCALLTYPE();
  EXPECT_EQ(reinterpret_cast<Function*>(symbolIn(module, "DllCanUnloadNow"))(), S_FALSE);
  if (unloadMeanwhile) ::FreeLibrary(module);
  ::PostMessageW(dialog, WM_CLOSE, 0, 0);
}

void showAndUnload() {
  const tests::TemporaryFolder folder;
  const std::string steps = folder.native("");
  const std::string settings = folder.native("steps.ini");
  kvrnstep_dialog dialog = kDialogDefaults;
  dialog.sPthStepFolder = steps.c_str();
  dialog.s_IniPathAndName = settings.c_str();
  ::SetTimer(nullptr, 0, USER_TIMER_MINIMUM, unloadAndClose);
  std::string list;
  EXPECT_FALSE(Listwright::load(hosts::pluginBesideProgram()).ShowListwrightDialog(list, dialog));
  if (!unloadMeanwhile) ::FreeLibrary(::GetModuleHandleW(L"kvrnstep.dll"));
  // The call lets go of the plug-in when it has returned, so it may be there a moment longer.
  while (::GetModuleHandleW(L"kvrnstep.dll") != nullptr) ::Sleep(1);
}

/// How many of the process's slots for threads are free, and how many handles it has.
std::array<DWORD, 3> ofTheProcess() {
  const auto freeSlots = [](auto allocate, auto release) {
    std::vector<DWORD> taken;
    for (DWORD slot; (slot = allocate()) != TLS_OUT_OF_INDEXES;) taken.push_back(slot);
    for (const DWORD slot : taken) release(slot);
    return static_cast<DWORD>(taken.size());
  };
  constexpr std::uintptr_t kMost = 0x4000;
  DWORD handles = 0;
  DWORD flags = 0;
  for (std::uintptr_t one = 4; one < kMost; one += 4) {
    if (::GetHandleInformation(reinterpret_cast<HANDLE>(one), &flags) != FALSE) ++handles;
  }
  return {freeSlots(::TlsAlloc, ::TlsFree),
          freeSlots([] { return ::FlsAlloc(nullptr); }, ::FlsFree), handles};
}

TEST(Unloading, LeavesNothingBehindHoweverOftenItIsLoaded) {
  // What the system keeps of its own is there after the first ones. Its libraries stay, because to
  // load them takes far longer than to load the plug-in.
  for (const auto* library : {L"comctl32", L"comdlg32", L"winmm", L"winspool.drv"}) {
    ::LoadLibraryW(library);
  }
  for (int i = 0; i < 2; ++i) showAndUnload();
  unloadMeanwhile = false;
  const auto before = ofTheProcess();
  for (int i = 0; i < 1300; ++i) {
    const auto plugin = Listwright::load(hosts::pluginBesideProgram());
    EXPECT_FALSE(plugin.RequestProgramIcon(102).empty());
    ::FreeLibrary(::GetModuleHandleW(L"kvrnstep.dll"));
  }
  EXPECT_EQ(ofTheProcess(), before);
  for (int i = 0; i < 60; ++i) showAndUnload();
  // A thread ends after the plug-in that it has used.
  std::thread(showAndUnload).join();
  EXPECT_EQ(ofTheProcess(), before);
}

TEST_F(Registered, ForOneUserWhereAllAreOutOfReach) {
  const auto forAll = keysIn(HKEY_LOCAL_MACHINE);
  EXPECT_EQ(forAll.size(), 4U);
  EXPECT_EQ(keysIn(HKEY_CURRENT_USER).size(), 0U);
  ASSERT_EQ(call("DllUnregisterServer"), S_OK);
  EXPECT_EQ(keysIn(HKEY_LOCAL_MACHINE).size(), 0U);
  {
    const OthersRegistry registry;
    EXPECT_EQ(call("DllRegisterServer"), S_OK);
    EXPECT_EQ(keysIn(HKEY_LOCAL_MACHINE).size(), 1U) << "the one that was there before";
    EXPECT_EQ(keysIn(HKEY_CURRENT_USER), forAll);
  }
  for (int i = 0; i < 2; ++i) {
    EXPECT_EQ(call("DllUnregisterServer"), S_OK) << "what is not there is gone";
    EXPECT_EQ(keysIn(HKEY_CURRENT_USER).size(), 0U);
  }
}

TEST_F(Registered, ForAllTakesTheRegistrationOfOneAway) {
  const auto install = [&](BOOL wanted, const wchar_t* whom) {
    using Function = HRESULT STDMETHODCALLTYPE(BOOL, LPCWSTR);
    return reinterpret_cast<Function*>(symbolIn(library_, "DllInstall"))(wanted, whom);
  };
  EXPECT_EQ(install(FALSE, nullptr), S_OK);
  EXPECT_EQ(install(TRUE, L"others"), E_INVALIDARG);
  EXPECT_EQ(install(TRUE, L"user"), S_OK);
  EXPECT_EQ(keysIn(HKEY_LOCAL_MACHINE).size(), 0U);
  EXPECT_EQ(keysIn(HKEY_CURRENT_USER).size(), 4U);
  EXPECT_EQ(install(TRUE, nullptr), S_OK);
  EXPECT_EQ(keysIn(HKEY_LOCAL_MACHINE).size(), 4U);
  EXPECT_EQ(keysIn(HKEY_CURRENT_USER).size(), 0U);
}

TEST_F(Registered, UnloadsWhenNobodyHoldsAnything) {
  EXPECT_EQ(call("DllCanUnloadNow"), S_OK);
  {
    const auto icon = create<_cIcon>(L"kvrnstep.cIcon", kInterfaceIcon);
    EXPECT_EQ(call("DllCanUnloadNow"), S_FALSE);
  }
  EXPECT_EQ(call("DllCanUnloadNow"), S_OK);
}

TEST_F(Registered, HostsMayCallThroughTheTypeLibrary) {
  const auto listwright = create<_Listwright>(L"kvrnstep.Listwright", kInterfaceListwright);
  DISPPARAMS none{};
  VARIANT result;
  VariantInit(&result);
  EXPECT_EQ(describe(*listwright)
                ->Invoke(listwright.get(), KVRNSTEP_PLUG_NAME_VERSION, DISPATCH_METHOD, &none,
                         &result, nullptr, nullptr),
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

// The last one, because the system keeps the objects of that apartment.
TEST_F(Registered, CallsFromOtherApartmentsFindTheTypeLibrary) {
  std::thread([] {
    ASSERT_TRUE(SUCCEEDED(::CoInitializeEx(nullptr, COINIT_MULTITHREADED)));
    BSTR version = nullptr;
    EXPECT_EQ(create<_Listwright>(L"kvrnstep.Listwright", kInterfaceListwright)
                  ->PlugNameVersion(&version),
              S_OK);
    EXPECT_EQ(taken(version), L"kvrn Listwright\t2.0.0");
    ::CoUninitialize();
  }).join();
}

}  // namespace
