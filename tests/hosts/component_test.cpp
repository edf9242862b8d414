// The plug-in as hosts see it: the built library, loaded by its path and called through its
// interfaces, early and late bound. A player without a screen uses the dialog.

#include "kvrnstep/component.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <filesystem>
#include <limits>
#include <random>
#include <vector>

#include "kvrnstep/driving.hpp"
#include "kvrnstep/library.hpp"
#include "program.h"

namespace {

using namespace kvrnstep;

/// Presses Insert as soon as the dialog is there.
class Inserter : public driving::Player {
 public:
  driving::Stage* stage = nullptr;
  int opened = 0;

  void happened(std::string_view what, const std::vector<driving::Detail>& /*details*/) override {
    if (what == "opened") ++opened;
  }
  void act() override {
    std::string reason;
    stage->perform("click", {u"cmdCIC(0)"}, reason);
  }
  std::optional<std::u16string> answer() override { return std::nullopt; }
};

BSTR bstr(std::u16string_view text) {
  return SysAllocStringLen(reinterpret_cast<const OLECHAR*>(text.data()),
                           static_cast<UINT>(text.size()));
}

std::u16string textOf(BSTR text) {
  if (text == nullptr) return {};
  return {reinterpret_cast<const char16_t*>(text), SysStringLen(text)};
}

#ifdef __SANITIZE_ADDRESS__
constexpr bool kLibrariesStay = true;
#else
constexpr bool kLibrariesStay = false;
#endif

bool isLoaded(const std::string& path) {
#ifdef _WIN32
  return ::GetModuleHandleW(detail::wide(path).c_str()) != nullptr;
#else
  return ::dlopen(path.c_str(), RTLD_NOW | RTLD_NOLOAD) != nullptr;
#endif
}

VARIANT empty(VARTYPE type = VT_EMPTY) {
  VARIANT variant;
  VariantInit(&variant);
  variant.vt = type;
  return variant;
}
VARIANT integer(std::int16_t number) {
  VARIANT variant = empty(VT_I2);
  variant.iVal = number;
  return variant;
}
VARIANT longInteger(std::int32_t number) {
  VARIANT variant = empty(VT_I4);
  variant.lVal = number;
  return variant;
}
VARIANT real(double number) {
  VARIANT variant = empty(VT_R8);
  variant.dblVal = number;
  return variant;
}
VARIANT text(std::u16string_view value) {
  VARIANT variant = empty(VT_BSTR);
  variant.bstrVal = bstr(value);
  return variant;
}
VARIANT missing() {
  VARIANT variant = empty(VT_ERROR);
  variant.scode = DISP_E_PARAMNOTFOUND;
  return variant;
}
VARIANT referenceTo(VARIANT& target) {
  VARIANT variant = empty(VT_BYREF | VT_VARIANT);
  variant.pvarVal = &target;
  return variant;
}
template <class T>
VARIANT referenceTo(VARTYPE type, T& target) {
  VARIANT variant = empty(static_cast<VARTYPE>(VT_BYREF | type));
  variant.byref = &target;
  return variant;
}

constexpr std::u16string_view kList = u"      I. \r\n     II. \r\n    III. \r\n";

class Component : public testing::Test {
 protected:
  void SetUp() override {
    const auto folder = std::filesystem::temp_directory_path() /
                        ("component-" + std::to_string(std::random_device()()));
    ASSERT_TRUE(std::filesystem::create_directory(folder));
    folder_ = folder.u16string();
    // The plug-in writes its icons into the folder in which it is.
    const std::filesystem::path built = hosts::pluginBesideProgram();
    const bool dll = built.extension() == ".dll";
    for (const auto& name : {built.filename().string(),
                             std::string("kvrnstep-headless-driven") + (dll ? ".dll" : ".so")}) {
      copy_file(built.parent_path() / name, folder / name);
    }
    plugin_ = (folder / built.filename()).string();
    load();
  }
  void TearDown() override {
    release();
    closeLibrary(library_);
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
  }

  void load() {
    library_ = openLibrary(plugin_);
    getClassObject_ = reinterpret_cast<GetClassObjectFunction>(symbolIn(library_, kGetClassObject));
    const auto drive =
        reinterpret_cast<driving::DriveFunction>(symbolIn(library_, "kvrnstepDrive"));
    std::string problem;
    inserter_.stage = drive("headless", &inserter_, &problem);
    ASSERT_NE(inserter_.stage, nullptr) << problem;
    listwright_ = create<_Listwright>(kClassListwright, kInterfaceListwright);
  }
  void release() {
    if (listwright_ != nullptr) {
      EXPECT_EQ(listwright_->Release(), 0U);
    }
    listwright_ = nullptr;
  }

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
        text(folder_),       text(u"Section"), empty()};
    while (all.size() < 15) all.push_back(missing());
    all[11] = text(folder_ + u"/steps.ini");
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

  std::u16string folder_;
  std::string plugin_;
  void* library_ = nullptr;
  GetClassObjectFunction getClassObject_ = nullptr;
  _Listwright* listwright_ = nullptr;
  Inserter inserter_;
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
  factory->Release();

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

  VARIANT version = empty();
  EXPECT_EQ(invoke(*listwright_, KVRNSTEP_PLUG_NAME_VERSION, {}, &version).result, S_OK);
  EXPECT_EQ(textOf(version.bstrVal), u"kvrn Listwright\t2.0.0");
  VariantClear(&version);
  EXPECT_EQ(invoke(*listwright_, KVRNSTEP_PLUG_NAME_VERSION, {}, nullptr).result, S_OK);
}

TEST_F(Component, LateCallsWriteTheListBack) {
  // A variable that held nothing, one that held a text, one that refers to a text, and a text.
  BSTR own = bstr(u"before");
  VARIANT nothing = empty();
  VARIANT held = text(u"before");
  VARIANT refers = referenceTo(VT_BSTR, own);
  for (VARIANT* output : {&nothing, &held, &refers}) {
    VARIANT result = empty();
    std::vector<VARIANT> given = arguments(*output);
    EXPECT_EQ(invoke(*listwright_, kShow, given, &result).result, S_OK);
    EXPECT_EQ(result.vt, VT_BOOL);
    EXPECT_EQ(result.boolVal, VARIANT_TRUE);
    EXPECT_EQ(textOf(output == &refers ? own : output->bstrVal), kList);
    given[0] = referenceTo(VT_BSTR, own);
    EXPECT_EQ(invoke(*listwright_, kShow, given, nullptr).result, S_OK);
    EXPECT_EQ(textOf(own), kList);
    for (VARIANT& variant : given) VariantClear(&variant);
  }
  VariantClear(&nothing);
  VariantClear(&held);
  SysFreeString(own);
}

TEST_F(Component, LateCallsTakeWhatCanBeRead) {
  VARIANT output = empty();
  std::vector<VARIANT> given = arguments(output);
  given[1] = text(u" 2 ");
  given[2] = real(1.5);
  given[3] = text(u"true");
  given[9] = real(-2147483643.0);
  given[13] = text(u"10.5");
  given[14] = real(2.5);
  EXPECT_EQ(invoke(*listwright_, kShow, given, nullptr).result, S_OK);
  EXPECT_EQ(textOf(output.bstrVal), u"    I. \r\n   II. \r\n  III. \r\n");
  VariantClear(&output);
  // The same by names: the named ones come first, in any order.
  std::vector<VARIANT> named{given[0], given[1],  given[2], given[3], given[4],
                             given[5], given[11], given[6], given[8], given[7]};
  EXPECT_EQ(invoke(*listwright_, kShow, named, nullptr, DISPATCH_METHOD, {7, 8, 6, 11}).result,
            S_OK);
  EXPECT_EQ(textOf(output.bstrVal), kList);
  VariantClear(&output);
  for (VARIANT& variant : given) VariantClear(&variant);
}

TEST_F(Component, WrongArgumentsAreNamedByTheirPlace) {
  VARIANT output = text(u"kept");
  std::vector<VARIANT> given = arguments(output);
  std::int32_t number = 0;
  VARIANT object = empty(VT_UNKNOWN);
  const auto wrongAt = [&](std::size_t position, const VARIANT& argument) {
    std::vector<VARIANT> changed = given;
    changed.at(position) = argument;
    return invoke(*listwright_, kShow, changed, nullptr);
  };
  const auto at = [](std::size_t position) { return static_cast<UINT>(14 - position); };
  for (std::size_t i = 0; i < given.size(); ++i) {
    // No member can use these.
    for (const VARIANT& none : {empty(VT_NULL), object, empty(0x2000 | VT_I2),
                                empty(VT_BYREF | VT_I4), empty(VT_BYREF | VT_VARIANT)}) {
      EXPECT_EQ(wrongAt(i, none), (Outcome{DISP_E_TYPEMISMATCH, at(i)})) << i << " " << none.vt;
    }
    if (i < 9) {
      EXPECT_EQ(wrongAt(i, missing()), (Outcome{DISP_E_PARAMNOTOPTIONAL, at(i)})) << i;
    }
  }
  VARIANT word = text(u"word");
  for (const std::size_t i : {1U, 2U, 3U, 9U, 10U, 13U, 14U}) {
    EXPECT_EQ(wrongAt(i, word), (Outcome{DISP_E_TYPEMISMATCH, at(i)})) << i;
  }
  EXPECT_EQ(wrongAt(0, referenceTo(VT_I4, number)), (Outcome{DISP_E_TYPEMISMATCH, at(0)}));
  EXPECT_EQ(wrongAt(1, longInteger(32768)), (Outcome{DISP_E_OVERFLOW, at(1)}));
  EXPECT_EQ(wrongAt(13, real(1e300)), (Outcome{DISP_E_OVERFLOW, at(13)}));
  EXPECT_EQ(wrongAt(13, real(std::nan(""))), (Outcome{DISP_E_OVERFLOW, at(13)}));
  EXPECT_EQ(wrongAt(14, integer(256)), (Outcome{DISP_E_OVERFLOW, at(14)}));
  EXPECT_EQ(wrongAt(14, integer(-1)), (Outcome{DISP_E_OVERFLOW, at(14)}));

  // Too few, too many, named wrongly.
  EXPECT_EQ(invoke(*listwright_, kShow, {given.begin(), given.begin() + 8}, nullptr).result,
            DISP_E_BADPARAMCOUNT);
  std::vector<VARIANT> many = given;
  many.push_back(empty());
  EXPECT_EQ(invoke(*listwright_, kShow, many, nullptr).result, DISP_E_BADPARAMCOUNT);
  EXPECT_EQ(invoke(*listwright_, kShow, {given.begin(), given.begin() + 10}, nullptr,
                   DISPATCH_METHOD, {15}),
            (Outcome{DISP_E_PARAMNOTFOUND, 0}));
  EXPECT_EQ(invoke(*listwright_, kShow, {given.begin(), given.begin() + 10}, nullptr,
                   DISPATCH_METHOD, {3}),
            (Outcome{DISP_E_PARAMNOTFOUND, 0}));
  EXPECT_EQ(invoke(*listwright_, 1, given, nullptr).result, DISP_E_MEMBERNOTFOUND);
  EXPECT_EQ(invoke(*listwright_, kShow, given, nullptr, DISPATCH_PROPERTYPUT).result,
            DISP_E_MEMBERNOTFOUND);
  EXPECT_EQ(
      listwright_->Invoke(kShow, kIidNull, 0, DISPATCH_METHOD, nullptr, nullptr, nullptr, nullptr),
      E_POINTER);

  EXPECT_EQ(inserter_.opened, 0) << "none of these may show anything";
  EXPECT_EQ(textOf(output.bstrVal), u"kept");
  VariantClear(&word);
  VariantClear(&output);
  for (VARIANT& variant : given) VariantClear(&variant);
}

TEST_F(Component, EarlyCallsLeaveWhatTheyOnlyRead) {
  BSTR output = bstr(u"before");
  BSTR folder = bstr(folder_);
  BSTR settings = bstr(folder_ + u"/steps.ini");
  BSTR font = bstr(u"");
  BSTR settingsBefore = settings;
  BSTR fontBefore = font;
  LONG back = 0x123456;
  LONG fore = 7;
  std::int16_t size = 12;
  std::uint8_t blanks = 1;
  VARIANT_BOOL result = VARIANT_FALSE;
  const auto show = [&](BSTR* list, VARIANT_BOOL* inserted, bool optional) {
    return listwright_->ShowListwrightDialog(list, 2, 7, VARIANT_FALSE, nullptr, nullptr, folder,
                                             nullptr, nullptr, optional ? &back : nullptr,
                                             optional ? &fore : nullptr, &settings,
                                             optional ? &font : nullptr, optional ? &size : nullptr,
                                             optional ? &blanks : nullptr, inserted);
  };
  EXPECT_EQ(show(&output, &result, true), S_OK);
  EXPECT_EQ(result, VARIANT_TRUE);
  EXPECT_EQ(textOf(output), u"   I. \r\n  II. \r\n III. \r\n");
  EXPECT_TRUE(settings == settingsBefore && textOf(settings) == folder_ + u"/steps.ini");
  EXPECT_TRUE(font == fontBefore && textOf(font).empty());
  EXPECT_TRUE(back == 0x123456 && fore == 7 && size == 12 && blanks == 1);
  EXPECT_EQ(show(&output, &result, false), S_OK);
  EXPECT_EQ(textOf(output), kList);
  EXPECT_EQ(show(nullptr, &result, true), E_POINTER);
  EXPECT_EQ(show(&output, nullptr, true), E_POINTER);
  EXPECT_EQ(listwright_->PlugNameVersion(nullptr), E_POINTER);
  for (BSTR text : {output, folder, settings, font}) SysFreeString(text);
}

TEST_F(Component, IconsAreWrittenAsFiles) {
  auto* icons = create<_cIcon>(kClassIcon, kInterfaceIcon);
  const auto get = [&](const VARIANT& number) {
    VARIANT path = empty();
    EXPECT_EQ(
        invoke(*icons, KVRNSTEP_REQUEST_PROGRAM_ICON, {number}, &path, DISPATCH_PROPERTYGET).result,
        S_OK);
    const std::u16string text = textOf(path.bstrVal);
    VariantClear(&path);
    return text;
  };
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
  release();
  const auto use = [this] {
    listwright_ = create<_Listwright>(kClassListwright, kInterfaceListwright);
    VARIANT output = empty();
    std::vector<VARIANT> given = arguments(output);
    EXPECT_EQ(invoke(*listwright_, kShow, given, nullptr).result, S_OK);
    for (VARIANT& variant : given) VariantClear(&variant);
    VariantClear(&output);
    release();
  };
  // Nothing keeps the library in the process, and it can come back.
  for (int i = 0; i < 3; ++i) {
    closeLibrary(library_);
    ASSERT_EQ(isLoaded(plugin_), kLibrariesStay);
    load();
    release();
    use();
  }
}

}  // namespace
