#include <gtest/gtest.h>
// After windows.h, which that brings along.
#include <oleacc.h>

#include <algorithm>
#include <array>
#include <map>
#include <set>
#include <string>
#include <tuple>

#include "../../tools/pictures/scenes.h"
#include "forms/user_actions.h"
#include "windows_toolkit.h"

// What a screen reader is told of all windows: what the plug-in tells the system of its controls,
// and for the rest what the system answers itself.
namespace kvrnstep::windows {
namespace {

// A function of the service that the plug-in does not call.
#define NOT_USED(function, ...)                   \
  HRESULT WINAPI function(__VA_ARGS__) override { \
    return E_FAIL;                                \
  }

/// In the place of the system's service, of which Wine has the outside only.
class Annotations final : public IAccPropServices, public IClassFactory {
 public:
  Annotations() {
    ::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    ::CoRegisterClassObject(CLSID_AccPropServices, static_cast<IClassFactory*>(this),
                            CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &registration_);
  }
  ~Annotations() {
    ::CoRevokeClassObject(registration_);
    ::CoUninitialize();
  }
  Annotations(const Annotations&) = delete;
  Annotations& operator=(const Annotations&) = delete;

  [[nodiscard]] std::wstring name(HWND window, DWORD part = 0) const {
    const auto found = names_.find({window, part});
    return found == names_.end() ? std::wstring() : found->second;
  }
  [[nodiscard]] LONG role(HWND window) const {
    const auto found = roles_.find(window);
    return found == roles_.end() ? 0 : found->second;
  }
  [[nodiscard]] bool empty() const { return names_.empty() && roles_.empty(); }

  HRESULT WINAPI QueryInterface(REFIID id, void** object) override {
    *object = ::IsEqualIID(id, IID_IAccPropServices)
                  ? static_cast<void*>(static_cast<IAccPropServices*>(this))
                  : static_cast<IClassFactory*>(this);
    return S_OK;
  }
  ULONG WINAPI AddRef() override { return 1; }
  ULONG WINAPI Release() override { return 1; }
  HRESULT WINAPI CreateInstance(IUnknown* /*outer*/, REFIID id, void** object) override {
    return QueryInterface(id, object);
  }
  HRESULT WINAPI LockServer(BOOL /*lock*/) override { return S_OK; }

  HRESULT WINAPI SetHwndProp(HWND window, DWORD /*object*/, DWORD /*part*/, MSAAPROPID property,
                             VARIANT value) override {
    EXPECT_TRUE(property == PROPID_ACC_ROLE);
    roles_[window] = value.lVal;
    return S_OK;
  }
  HRESULT WINAPI SetHwndPropStr(HWND window, DWORD object, DWORD part, MSAAPROPID property,
                                LPCWSTR text) override {
    EXPECT_EQ(object, static_cast<DWORD>(OBJID_CLIENT));
    EXPECT_TRUE(property == PROPID_ACC_NAME);
    names_[{window, part}] = text;
    return S_OK;
  }
  HRESULT WINAPI ClearHwndProps(HWND window, DWORD /*object*/, DWORD part,
                                const MSAAPROPID* /*properties*/, int /*count*/) override {
    EXPECT_TRUE(::IsWindow(window));
    names_.erase({window, part});
    roles_.erase(window);
    return S_OK;
  }

  NOT_USED(SetPropValue, const BYTE*, DWORD, MSAAPROPID, VARIANT)
  NOT_USED(SetPropServer, const BYTE*, DWORD, const MSAAPROPID*, int, IAccPropServer*, AnnoScope)
  NOT_USED(ClearProps, const BYTE*, DWORD, const MSAAPROPID*, int)
  NOT_USED(SetHwndPropServer, HWND, DWORD, DWORD, const MSAAPROPID*, int, IAccPropServer*,
           AnnoScope)
  NOT_USED(ComposeHwndIdentityString, HWND, DWORD, DWORD, BYTE**, DWORD*)
  NOT_USED(DecomposeHwndIdentityString, const BYTE*, DWORD, HWND*, DWORD*, DWORD*)
  NOT_USED(SetHmenuProp, HMENU, DWORD, MSAAPROPID, VARIANT)
  NOT_USED(SetHmenuPropStr, HMENU, DWORD, MSAAPROPID, LPCWSTR)
  NOT_USED(SetHmenuPropServer, HMENU, DWORD, const MSAAPROPID*, int, IAccPropServer*, AnnoScope)
  NOT_USED(ClearHmenuProps, HMENU, DWORD, const MSAAPROPID*, int)
  NOT_USED(ComposeHmenuIdentityString, HMENU, DWORD, BYTE**, DWORD*)
  NOT_USED(DecomposeHmenuIdentityString, const BYTE*, DWORD, HMENU*, DWORD*)

 private:
  DWORD registration_ = 0;
  std::map<std::pair<HWND, DWORD>, std::wstring> names_;
  std::map<HWND, LONG> roles_;
};

/// Wine knows the roles of few controls; the others' are told of as this.
constexpr LONG kAnyRole = ROLE_SYSTEM_CLIENT;

using Told = std::set<std::tuple<std::wstring, LONG>>;

class Listener final : public Attendant {
 public:
  void windowIdle(WindowView& view) override {
    // The other two windows open and close in between.
    while (next_ < kEdits.size() && view.window().find("mnuEdits", 0) != nullptr) {
      forms::userClicked(*view.window().find("mnuEdits", kEdits.at(next_++)));
    }
    ::EnumChildWindows(view.handle(), take, reinterpret_cast<LPARAM>(this));
    view.window().unload();
  }

  Annotations annotations;
  Told told;

 private:
  static BOOL CALLBACK take(HWND child, LPARAM self) {
    reinterpret_cast<Listener*>(self)->hear(child);
    return TRUE;
  }

  void hear(HWND window) {
    std::wstring name = annotations.name(window);
    LONG role = annotations.role(window);
    // What the plug-in does not tell, the system does.
    void* found = nullptr;
    if (SUCCEEDED(::AccessibleObjectFromWindow(window, static_cast<DWORD>(OBJID_CLIENT),
                                               IID_IAccessible, &found))) {
      auto* const object = static_cast<IAccessible*>(found);
      VARIANT self{};
      self.vt = VT_I4;
      VARIANT number{};
      BSTR text = nullptr;
      if (name.empty() && object->get_accName(self, &text) == S_OK && text != nullptr) name = text;
      if (role == 0 && object->get_accRole(self, &number) == S_OK) role = number.lVal;
      ::SysFreeString(text);
      object->Release();
    }
    EXPECT_FALSE(name.empty() || role == 0) << "window " << window;
    told.insert({name, role});
    for (const DWORD arrow : {1U, 2U}) told.insert({annotations.name(window, arrow), kAnyRole});
  }

  static constexpr std::array kEdits{0, 3};
  std::size_t next_ = 0;
};

TEST(WindowsAccessibility, AllControlsHaveNamesAndRoles) {
  Listener listener;
  {
    const pictures::Folder folder;
    const plugin::HostContext host = pictures::hostOf(folder);
    WindowsToolkit toolkit(&listener);
    dialogs::frmListwright dialog(toolkit, host);
    dialog.showModal(toolkit);
  }
  const Told wanted{{L"Preview", ROLE_SYSTEM_TEXT},
                    {L"Increase Start", kAnyRole},
                    {L"Decrease Line Spacing", kAnyRole},
                    {L"Prefix", ROLE_SYSTEM_LINK},
                    {L"Prefix", ROLE_SYSTEM_TEXT},
                    {L"Listing Type", ROLE_SYSTEM_GROUPING},
                    {L"Numbered", ROLE_SYSTEM_GRAPHIC},
                    {L"Step Roman macro", ROLE_SYSTEM_PUSHBUTTON},
                    {L"Apply text 15", ROLE_SYSTEM_PUSHBUTTON}};
  for (const auto& each : wanted) {
    EXPECT_TRUE(listener.told.contains(each))
        << testing::PrintToString(std::get<0>(each)) << ' ' << std::get<1>(each);
  }
  // The system must not go on telling of handles that others get.
  EXPECT_TRUE(listener.annotations.empty());
}

}  // namespace
}  // namespace kvrnstep::windows
