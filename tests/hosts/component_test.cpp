// The plug-in as hosts see it: the built library, loaded by its path and called through its
// interfaces, early and late bound. A player without a screen uses the dialog.

#include "kvrnstep/component.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <list>
#include <vector>

#include "kvrnstep/library.hpp"
#include "program.h"
#include "temporary_folder.h"
#include "user.h"
#include "variant.h"

namespace {

using namespace kvrnstep;
using tests::variant;

BSTR bstr(std::u16string_view text) {
  return SysAllocStringLen(reinterpret_cast<const OLECHAR*>(text.data()),
                           static_cast<UINT>(text.size()));
}

std::u16string textOf(BSTR text) {
  if (text == nullptr) return {};
  return {reinterpret_cast<const char16_t*>(text), SysStringLen(text)};
}

/// Whether nothing keeps the library in the process any more.
bool isUnloaded(const std::string& path) {
#ifdef _WIN32
  // A call lets go of it a moment after it has returned.
  while (::GetModuleHandleW(detail::wide(path).c_str()) != nullptr) ::Sleep(1);
  return true;
#else
  return ::dlopen(path.c_str(), RTLD_NOW | RTLD_NOLOAD) == nullptr;
#endif
}

void closeLibrary(void* library) {
#ifdef _WIN32
  ::FreeLibrary(static_cast<HMODULE>(library));
#else
  ::dlclose(library);
#endif
}

VARIANT empty(VARTYPE type = VT_EMPTY) {
  return variant(type, std::int64_t{0});
}
VARIANT integer(std::int16_t number) {
  return variant(VT_I2, number);
}
VARIANT real(double number) {
  return variant(VT_R8, number);
}
VARIANT missing() {
  return variant(VT_ERROR, SCODE{DISP_E_PARAMNOTFOUND});
}
VARIANT referenceTo(VARIANT& target) {
  return variant(VT_BYREF | VT_VARIANT, &target);
}
VARIANT referenceTo(BSTR& target) {
  return variant(VT_BYREF | VT_BSTR, &target);
}

constexpr std::u16string_view kList = u"      I. \r\n     II. \r\n    III. \r\n";

class Component : public testing::Test {
 protected:
  void SetUp() override {
    // The plug-in writes its icons into the folder in which it is.
    const std::filesystem::path built = hosts::pluginBesideProgram();
    const bool dll = built.extension() == ".dll";
    for (const auto& name : {built.filename().string(),
                             std::string("kvrnstep-headless-driven") + (dll ? ".dll" : ".so")}) {
      copy_file(built.parent_path() / name, folder_.path(name));
    }
    plugin_ = folder_.native(built.filename().string());
    load();
  }
  void TearDown() override {
    for (VARIANT& held : kept_) VariantClear(&held);
    release();
    closeLibrary(library_);
  }

  void load() {
    library_ = openLibrary(plugin_);
    getClassObject_ = reinterpret_cast<GetClassObjectFunction>(symbolIn(library_, kGetClassObject));
    user_.use(library_, "headless");
    listwright_ = create<_Listwright>(kClassListwright, kInterfaceListwright);
  }
  void release() {
    if (listwright_ != nullptr) {
      EXPECT_EQ(listwright_->Release(), 0U);
    }
    listwright_ = nullptr;
  }

  /// Cleared when the test ends, whatever it holds then.
  VARIANT& kept(const VARIANT& held) { return kept_.emplace_back(held); }
  VARIANT& text(std::u16string_view value) { return kept(variant(VT_BSTR, bstr(value))); }

  template <class Interface>
  Interface* create(const CLSID& classId, const IID& interfaceId) {
    IClassFactory* factory = nullptr;
    void* object = nullptr;
    EXPECT_EQ(getClassObject_(classId, kIidClassFactory, reinterpret_cast<void**>(&factory)), S_OK);
    EXPECT_EQ(factory->CreateInstance(nullptr, interfaceId, &object), S_OK);
    factory->Release();
    return static_cast<Interface*>(object);
  }

  /// The fifteen arguments of a call in the order of the parameters; `output` is the variable.
  std::vector<VARIANT> arguments(VARIANT& output) {
    std::vector<VARIANT> all{
        referenceTo(output), integer(2),       empty(), empty(), empty(), empty(),
        text(folder_("")),   text(u"Section"), empty()};
    while (all.size() < 15) all.push_back(missing());
    all[11] = text(folder_("steps.ini"));
    return all;
  }

  struct Outcome {
    HRESULT result;
    UINT wrong;
    bool operator==(const Outcome&) const = default;
  };

  Outcome invoke(IDispatch& object, DISPID member, std::vector<VARIANT> arguments, VARIANT* result,
                 WORD way = DISPATCH_METHOD, std::vector<DISPID> named = {}) {
    std::reverse(arguments.begin(), arguments.end());
    DISPPARAMS parameters{arguments.data(), named.data(), static_cast<UINT>(arguments.size()),
                          static_cast<UINT>(named.size())};
    Outcome outcome{S_OK, 99};
    outcome.result =
        object.Invoke(member, kIidNull, 1033, way, &parameters, result, nullptr, &outcome.wrong);
    return outcome;
  }

  const tests::TemporaryFolder folder_;
  std::list<VARIANT> kept_;
  std::string plugin_;
  void* library_ = nullptr;
  GetClassObjectFunction getClassObject_ = nullptr;
  _Listwright* listwright_ = nullptr;
  std::function<void()> meanwhile_ = [] {};
  tests::User user_{[this](tests::User& user) {
    meanwhile_();
    insertAtOnce(user);
  }};
};

constexpr DISPID kShow = KVRNSTEP_SHOW_LISTWRIGHT_DIALOG;

TEST_F(Component, HandsOutItsClassesAndNothingElse) {
  void* object = &object;
  EXPECT_EQ(getClassObject_(kLibrary, kIidClassFactory, &object), CLASS_E_CLASSNOTAVAILABLE);
  EXPECT_EQ(object, nullptr);
  EXPECT_EQ(getClassObject_(kClassIcon, kIidDispatch, &object), E_NOINTERFACE);
  EXPECT_EQ(getClassObject_(kClassIcon, kIidClassFactory, nullptr), E_POINTER);

  IClassFactory* factory = nullptr;
  getClassObject_(kClassIcon, kIidUnknown, reinterpret_cast<void**>(&factory));
  EXPECT_EQ(factory->CreateInstance(listwright_, kIidUnknown, &object), CLASS_E_NOAGGREGATION);
  EXPECT_EQ(factory->CreateInstance(nullptr, kInterfaceListwright, &object), E_NOINTERFACE);
  EXPECT_EQ(object, nullptr);
  EXPECT_EQ(factory->Release(), 1U) << "it counts among what keeps the library";

  void* one = nullptr;
  void* other = nullptr;
  EXPECT_EQ(listwright_->QueryInterface(kIidUnknown, &one), S_OK);
  EXPECT_EQ(static_cast<IUnknown*>(one)->QueryInterface(kInterfaceListwright, &other), S_OK);
  EXPECT_EQ(one, other);
  EXPECT_EQ(listwright_->Release(), 2U);
  EXPECT_EQ(listwright_->Release(), 1U);
}

TEST_F(Component, MembersAreFoundByName) {
  std::array<std::u16string, 4> names{u"showlistwrightDIALOG", u"BYTSPCCOUNT", u"theLwOutputString",
                                      u"nobody"};
  std::array<LPOLESTR, 4> pointers{};
  std::ranges::transform(names, pointers.begin(), [](std::u16string& name) {
    return reinterpret_cast<LPOLESTR>(name.data());
  });
  std::array<DISPID, 4> ids{};
  EXPECT_EQ(listwright_->GetIDsOfNames(kIidNull, pointers.data(), 3, 1033, ids.data()), S_OK);
  EXPECT_EQ(ids, (std::array<DISPID, 4>{kShow, 14, 0, 0}));
  EXPECT_EQ(listwright_->GetIDsOfNames(kIidNull, pointers.data(), 4, 0, ids.data()),
            DISP_E_UNKNOWNNAME);
  EXPECT_EQ(ids[3], DISPID_UNKNOWN);
  EXPECT_EQ(listwright_->GetIDsOfNames(kIidNull, &pointers[3], 1, 0, ids.data()),
            DISP_E_UNKNOWNNAME);
  EXPECT_EQ(listwright_->GetIDsOfNames(kIidUnknown, pointers.data(), 1, 0, ids.data()),
            DISP_E_UNKNOWNINTERFACE);

  VARIANT& version = kept(empty());
  EXPECT_EQ(invoke(*listwright_, KVRNSTEP_PLUG_NAME_VERSION, {}, &version).result, S_OK);
  EXPECT_EQ(textOf(version.bstrVal), u"kvrn Listwright\t2.0.0");
  EXPECT_EQ(invoke(*listwright_, KVRNSTEP_PLUG_NAME_VERSION, {}, nullptr).result, S_OK);
}

TEST_F(Component, LateCallsWriteTheListBack) {
  // A variable that held nothing, one that held a text, one that refers to a text, and a text.
  BSTR& own = text(u"before").bstrVal;
  VARIANT refers = referenceTo(own);
  for (VARIANT* output : {&kept(empty()), &text(u"before"), &refers}) {
    VARIANT result = empty();
    std::vector<VARIANT> given = arguments(*output);
    EXPECT_EQ(invoke(*listwright_, kShow, given, &result).result, S_OK);
    EXPECT_EQ(result.vt, VT_BOOL);
    EXPECT_EQ(result.boolVal, VARIANT_TRUE);
    EXPECT_EQ(textOf(output == &refers ? own : output->bstrVal), kList);
    given[0] = referenceTo(own);
    EXPECT_EQ(invoke(*listwright_, kShow, given, nullptr).result, S_OK);
    EXPECT_EQ(textOf(own), kList);
  }
}

TEST_F(Component, LateCallsTakeArgumentsByPlaceAndByName) {
  VARIANT& output = kept(empty());
  std::vector<VARIANT> given = arguments(output);
  given[1] = text(u" 2 ");
  given[2] = real(1.5);
  given[3] = text(u"true");
  given[9] = real(-2147483643.0);
  given[11] = text(u"");
  given[13] = text(u"10.5");
  given[14] = real(2.5);
  EXPECT_EQ(invoke(*listwright_, kShow, given, nullptr).result, S_OK);
  EXPECT_EQ(textOf(output.bstrVal), u"    I. \r\n   II. \r\n  III. \r\n");
  EXPECT_TRUE(exists(folder_.path("steps.ini"))) << "in the plug-in's folder";
  // The named ones come first, in any order.
  std::vector<VARIANT> named(given.begin(), given.begin() + 6);
  for (const std::size_t place : {11U, 6U, 8U, 7U}) named.push_back(given[place]);
  EXPECT_EQ(invoke(*listwright_, kShow, named, nullptr, DISPATCH_METHOD, {7, 8, 6, 11}).result,
            S_OK);
  EXPECT_EQ(textOf(output.bstrVal), kList);
}

TEST_F(Component, WrongArgumentsAreNamedByTheirPlace) {
  const VARIANT& word = text(u"word");
  VARIANT& output = text(u"kept");
  std::vector<VARIANT> given = arguments(output);
  const auto wrongAt = [&](std::size_t position, const VARIANT& argument) {
    std::vector<VARIANT> changed = given;
    changed.at(position) = argument;
    return invoke(*listwright_, kShow, changed, nullptr);
  };
  const auto at = [](std::size_t position) { return static_cast<UINT>(14 - position); };
  for (std::size_t i = 0; i < given.size(); ++i) {
    EXPECT_EQ(wrongAt(i, empty(VT_NULL)), (Outcome{DISP_E_TYPEMISMATCH, at(i)})) << i;
    EXPECT_EQ(wrongAt(i, empty(VT_BYREF | VT_VARIANT)), (Outcome{DISP_E_TYPEMISMATCH, at(i)})) << i;
    if (i < 9) {
      EXPECT_EQ(wrongAt(i, missing()), (Outcome{DISP_E_PARAMNOTOPTIONAL, at(i)})) << i;
    }
  }
  for (const std::size_t i : {1U, 2U, 3U, 9U, 10U, 13U, 14U}) {
    EXPECT_EQ(wrongAt(i, word), (Outcome{DISP_E_TYPEMISMATCH, at(i)})) << i;
  }
  std::int32_t number = 0;
  EXPECT_EQ(wrongAt(0, variant(VT_BYREF | VT_I4, &number)), (Outcome{DISP_E_TYPEMISMATCH, at(0)}));
  for (const auto& [position, most] :
       {std::pair{1, 32767.0}, {9, 2147483647.0}, {10, 2147483647.0}, {13, 32767.0}, {14, 255.0}}) {
    const auto i = static_cast<std::size_t>(position);
    EXPECT_EQ(wrongAt(i, real(most + 1)), (Outcome{DISP_E_OVERFLOW, at(i)})) << i;
  }

  // Too few, too many, named wrongly, more names than arguments.
  const auto counted = [&](std::size_t count, std::vector<DISPID> named) {
    std::vector<VARIANT> some = given;
    some.resize(count, empty());
    return invoke(*listwright_, kShow, some, nullptr, DISPATCH_METHOD, std::move(named));
  };
  EXPECT_EQ(counted(8, {}).result, DISP_E_BADPARAMCOUNT);
  EXPECT_EQ(counted(16, {}).result, DISP_E_BADPARAMCOUNT);
  EXPECT_EQ(counted(0, {7}).result, DISP_E_BADPARAMCOUNT);
  for (const DISPID wrong : {15, 3, -1}) {
    EXPECT_EQ(counted(10, {wrong}), (Outcome{DISP_E_PARAMNOTFOUND, 0})) << wrong;
  }
  EXPECT_EQ(invoke(*listwright_, 1, given, nullptr).result, DISP_E_MEMBERNOTFOUND);
  EXPECT_EQ(invoke(*listwright_, kShow, given, nullptr, DISPATCH_PROPERTYPUT).result,
            DISP_E_MEMBERNOTFOUND);
  EXPECT_EQ(
      listwright_->Invoke(kShow, kIidNull, 0, DISPATCH_METHOD, nullptr, nullptr, nullptr, nullptr),
      E_POINTER);

  EXPECT_EQ(user_.opened, 0) << "none of these may show anything";
  EXPECT_EQ(textOf(output.bstrVal), u"kept");
}

TEST_F(Component, EarlyCallsLeaveWhatTheyOnlyRead) {
  BSTR& output = text(u"before").bstrVal;
  BSTR& settings = text(folder_("steps.ini")).bstrVal;
  BSTR& font = text(u"").bstrVal;
  const BSTR settingsBefore = settings;
  const BSTR fontBefore = font;
  LONG back = 0x123456;
  LONG fore = 7;
  std::int16_t size = 12;
  std::uint8_t blanks = 1;
  VARIANT_BOOL result = VARIANT_FALSE;
  const auto show = [&](BSTR* list, VARIANT_BOOL* inserted, bool optional) {
    return listwright_->ShowListwrightDialog(
        list, 2, 7, VARIANT_TRUE, text(u"alert").bstrVal, text(u"finish").bstrVal,
        text(folder_("")).bstrVal, text(u"section").bstrVal, text(u"second").bstrVal,
        optional ? &back : nullptr, optional ? &fore : nullptr, &settings,
        optional ? &font : nullptr, optional ? &size : nullptr, optional ? &blanks : nullptr,
        inserted);
  };
  std::vector<driving::Value> told;
  meanwhile_ = [&] {
    for (const char* name :
         {"bolIsSoundAvailable", "swavAlertQ", "swavFinishQ", "SEC_APP_NAME", "SEC_APP_LWDR",
          "l_EditorBColor", "l_EditorFColor", "s_EditorFont", "i_EditorSize", "bytSpcCount"}) {
      told.push_back(user_.stage->contextField(name).value());
    }
  };
  EXPECT_EQ(show(&output, &result, true), S_OK);
  EXPECT_EQ(result, VARIANT_TRUE);
  EXPECT_TRUE(
      (told == std::vector<driving::Value>{true, u"alert", u"finish", u"section", u"second",
                                           double{0x123456}, 7.0, u"Courier New", 12.0, 1.0}));
  EXPECT_EQ(textOf(output), u"   I. \r\n  II. \r\n III. \r\n");
  EXPECT_TRUE(settings == settingsBefore && textOf(settings) == folder_("steps.ini"));
  EXPECT_TRUE(font == fontBefore && textOf(font).empty());
  EXPECT_TRUE(back == 0x123456 && fore == 7 && size == 12 && blanks == 1);
  EXPECT_EQ(show(&output, &result, false), S_OK);
  EXPECT_EQ(textOf(output), kList);
  EXPECT_EQ(show(nullptr, &result, true), E_POINTER);
  EXPECT_EQ(show(&output, nullptr, true), E_POINTER);
  EXPECT_EQ(listwright_->PlugNameVersion(nullptr), E_POINTER);
}

TEST_F(Component, IconsAreWrittenAsFiles) {
  auto* icons = create<_cIcon>(kClassIcon, kInterfaceIcon);
  const auto get = [&](const VARIANT& number) {
    VARIANT& path = kept(empty());
    EXPECT_EQ(
        invoke(*icons, KVRNSTEP_REQUEST_PROGRAM_ICON, {number}, &path, DISPATCH_PROPERTYGET).result,
        S_OK);
    return textOf(path.bstrVal);
  };
  create_directory(folder_.path("Stepicon.ico"));
  EXPECT_EQ(get(integer(102)), u"") << "a folder is in its place";
  remove(folder_.path("Stepicon.ico"));
  const std::filesystem::path written = get(integer(102));
  EXPECT_EQ(written.filename(), "Stepicon.ico");
  const auto small = std::filesystem::file_size(written);
  for (const int number : {-1, 100, 104, 200, 208}) {
    EXPECT_EQ(get(integer(static_cast<std::int16_t>(number))), u"");
  }
  EXPECT_EQ(std::filesystem::file_size(written), small);
  EXPECT_EQ(get(real(101)), written.u16string());
  EXPECT_GT(std::filesystem::file_size(written), small);
  EXPECT_EQ(invoke(*icons, KVRNSTEP_REQUEST_PROGRAM_ICON, {}, nullptr).result,
            DISP_E_BADPARAMCOUNT);
  EXPECT_EQ(icons->Release(), 0U);
}

TEST_F(Component, CanBeUnloadedAndLoadedAgain) {
  // Nothing keeps the library in the process, and it can come back.
  for (int i = 0; i < 3; ++i) {
    release();
    closeLibrary(library_);
    ASSERT_TRUE(isUnloaded(plugin_));
    load();
    EXPECT_EQ(invoke(*listwright_, kShow, arguments(kept(empty())), nullptr).result, S_OK);
  }
}

}  // namespace
