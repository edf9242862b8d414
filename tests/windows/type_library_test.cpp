// A host that knows nothing but the type library: compiled against what the library's own compiler
// makes of it, it calls the functions where the library says that they lie.

#include <gtest/gtest.h>
#define INITGUID
#include <type_library.h>

#include <filesystem>

#include "kvrnstep/driving.hpp"
#include "kvrnstep/library.hpp"
#include "program.h"

namespace {

/// Presses Insert as soon as the dialog is there.
class Inserter : public kvrnstep::driving::Player {
 public:
  kvrnstep::driving::Stage* stage = nullptr;

  void happened(std::string_view /*what*/,
                const std::vector<kvrnstep::driving::Detail>& /*details*/) override {}
  void act() override {
    std::string reason;
    stage->perform("click", {u"cmdCIC(0)"}, reason);
  }
  std::optional<std::u16string> answer() override { return std::nullopt; }
};

template <class Interface>
Interface* create(void* library, const CLSID& classId, const IID& interfaceId) {
  const auto get =
      reinterpret_cast<LPFNGETCLASSOBJECT>(kvrnstep::symbolIn(library, "DllGetClassObject"));
  IClassFactory* factory = nullptr;
  EXPECT_EQ(get(classId, IID_IClassFactory, reinterpret_cast<void**>(&factory)), S_OK);
  void* object = nullptr;
  EXPECT_EQ(factory->CreateInstance(nullptr, interfaceId, &object), S_OK);
  factory->Release();
  return static_cast<Interface*>(object);
}

TEST(TypeLibrary, LeadsToTheFunctions) {
  void* library = kvrnstep::openLibrary(hosts::pluginBesideProgram());
  const auto drive = reinterpret_cast<kvrnstep::driving::DriveFunction>(
      kvrnstep::symbolIn(library, "kvrnstepDrive"));
  Inserter inserter;
  std::string problem;
  inserter.stage = drive("headless", &inserter, &problem);
  ASSERT_NE(inserter.stage, nullptr) << problem;

  auto* listwright = create<_Listwright>(library, CLSID_Listwright, IID__Listwright);
  BSTR version = nullptr;
  EXPECT_EQ(listwright->PlugNameVersion(&version), S_OK);
  EXPECT_STREQ(version, L"kvrn Listwright\t2.0.0");
  BSTR list = nullptr;
  const auto scratch = std::filesystem::temp_directory_path() / "kvrnstep-type-library";
  BSTR folder = SysAllocString(scratch.c_str());
  BSTR settings = SysAllocString((scratch / "steps.ini").c_str());
  unsigned char blanks = 1;
  VARIANT_BOOL inserted = VARIANT_FALSE;
  EXPECT_EQ(listwright->ShowListwrightDialog(&list, 1, VARIANT_FALSE, VARIANT_FALSE, nullptr,
                                             nullptr, folder, nullptr, nullptr, nullptr, nullptr,
                                             &settings, nullptr, nullptr, &blanks, &inserted),
            S_OK);
  EXPECT_EQ(inserted, VARIANT_TRUE);
  EXPECT_STREQ(list, L" A. \r\n B. \r\n C. \r\n");
  EXPECT_EQ(listwright->Release(), 0U);

  auto* icons = create<_cIcon>(library, CLSID_cIcon, IID__cIcon);
  BSTR none = nullptr;
  EXPECT_EQ(icons->get_RequestProgramIcon(100, &none), S_OK);
  EXPECT_EQ(SysStringLen(none), 0U);
  EXPECT_EQ(icons->Release(), 0U);

  for (BSTR text : {version, list, folder, settings, none}) SysFreeString(text);
  kvrnstep::closeLibrary(library);
  std::filesystem::remove_all(scratch);
}

}  // namespace
