#pragma once

// The plug-in for hosts in C++. A host links nothing: it loads the library by its path and calls
// it through its C interface, so host and plug-in may be built by different compilers. Texts are
// UTF-8.
//
//     const auto listwright = kvrnstep::Listwright::load("/usr/lib/listwright/libkvrnstep.so");
//     std::string list;
//     if (listwright.ShowListwrightDialog(list, {.sPthStepFolder = "/home/me/steps",
//                                                .SEC_APP_NAME = "MyEditor"})) {
//       insertAtCaret(list);
//     }

#include <array>
#include <cstdint>
#include <stdexcept>
#include <string>

#include "kvrnstep/fields.hpp"
#include "kvrnstep/kvrnstep.h"
#include "kvrnstep/library.hpp"
#include "kvrnstep/list_options.hpp"

namespace kvrnstep {

/// The arguments of a call.
struct DialogArguments {
  std::int32_t iBuildStep = Numbered;  ///< a ListingType
  bool BuMenuMode = false;             ///< iBuildStep stands against the user's stored defaults
  bool bolIsSoundAvailable = false;
  std::string swavAlertQ{};
  std::string swavFinishQ{};
  std::string sPthStepFolder{};  ///< empty: the plug-in's folder
  std::string SEC_APP_NAME{};    ///< section of the settings file
  std::string SEC_APP_LWDR{};
  std::int32_t l_EditorBColor = static_cast<std::int32_t>(0x80000005);  ///< 0x00BBGGRR, or
  std::int32_t l_EditorFColor = static_cast<std::int32_t>(0x80000008);  ///< 0x80000000 + number
  std::string s_IniPathAndName{};  ///< settings file; empty: steps.ini in the plug-in's folder
  std::string s_EditorFont{};      ///< empty: "Courier New"
  std::int32_t i_EditorSize = 9;   ///< points
  std::int32_t bytSpcCount = 4;    ///< blanks in one indentation, 0 to 255
  bool insertCopies = false;       ///< Insert leaves the list on the clipboard, too
};

/// The description of a list.
struct ListArguments {
  std::int32_t Selection = Numbered;            ///< a ListingType
  std::array<bool, kListOptionCount> Option{};  ///< by ListOption
  std::string Prefix{};
  std::string Suffix{};
  std::int32_t Start = 1;
  std::int32_t Count = 3;
  std::int32_t LineSpacing = 0;
  std::string Beginning{};
  std::string Ending{};
  std::int32_t bytSpcCount = 4;
};

/// The loaded plug-in. Cheap to copy; the library stays loaded to the end of the process.
class Listwright {
 public:
  /// @param path full path of the library, in the system's encoding, on Windows in UTF-8
  /// @throws std::runtime_error with the loader's reason
  static Listwright load(const std::string& path) { return {openLibrary(path), path}; }

  /// Name, a tab, version.
  [[nodiscard]] std::string PlugNameVersion() const { return taken(plugNameVersion_()); }

  /// Shows the dialog and returns when it has closed. Call it on the thread that owns the user
  /// interface.
  /// @param theLwOutputString the list after Insert, otherwise empty
  /// @return whether the user inserted a list
  /// @throws std::runtime_error with the reason, in one line, where no dialog can be shown
  bool ShowListwrightDialog(std::string& theLwOutputString,
                            const DialogArguments& arguments) const {
    kvrnstep_dialog dialog;
    dialogInit_(&dialog, sizeof(dialog));
    copyFields(callFields(dialog), callFields(arguments), Put());
    dialog.insert_copies = arguments.insertCopies ? 1 : 0;
    char* list = nullptr;
    const int result = showDialog_(&dialog, &list);
    theLwOutputString = taken(list);
    if (result < 0) throw std::runtime_error(problem(result));
    return result == KVRNSTEP_INSERTED;
  }

  /// The list as text, without any window.
  /// @throws std::runtime_error for numbers that a list cannot have
  [[nodiscard]] std::string generateList(const ListArguments& arguments) const {
    char* text = nullptr;
    const kvrnstep_list list = described(arguments);
    const int result = generate_(&list, &text);
    if (result < 0) throw std::runtime_error(problem(result));
    return taken(text);
  }

  /// The list that a step file describes, without any window.
  /// @return KVRNSTEP_DONE, KVRNSTEP_UNREADABLE, KVRNSTEP_FOREIGN …
  [[nodiscard]] int generateFromStepFile(const std::string& path, std::int32_t bytSpcCount,
                                         std::string& list) const {
    char* text = nullptr;
    const int result = generateFromStepFile_(path.c_str(), bytSpcCount, &text);
    list = taken(text);
    return result;
  }

  /// Writes a description as a step file, in place of a file of that name.
  /// @return KVRNSTEP_DONE, KVRNSTEP_UNWRITABLE …
  [[nodiscard]] int saveStepFile(const std::string& path, const ListArguments& arguments) const {
    const kvrnstep_list list = described(arguments);
    return saveStepFile_(path.c_str(), &list);
  }

 private:
  /// A value as the C interface takes it.
  struct Put {
    void operator()(const char*& field, const std::string& text) const { field = text.c_str(); }
    void operator()(std::int32_t& field, std::int32_t number) const { field = number; }
  };

  Listwright(void* library, const std::string& path) {
    const auto find = [&]<class Function>(Function*& function, const char* name) {
      function = reinterpret_cast<Function*>(symbolIn(library, name));
      if (function == nullptr) throw std::runtime_error(path + " is no plug-in of this kind");
    };
    find(free_, "kvrnstep_free");
    find(plugNameVersion_, "kvrnstep_plug_name_version");
    find(dialogInit_, "kvrnstep_dialog_init");
    find(showDialog_, "kvrnstep_show_dialog");
    find(canShowDialog_, "kvrnstep_can_show_dialog");
    find(listInit_, "kvrnstep_list_init");
    find(generate_, "kvrnstep_generate");
    find(generateFromStepFile_, "kvrnstep_generate_from_step_file");
    find(saveStepFile_, "kvrnstep_save_step_file");
  }

  [[nodiscard]] kvrnstep_list described(const ListArguments& arguments) const {
    kvrnstep_list list;
    listInit_(&list, sizeof(list));
    copyFields(listFields(list), listFields(arguments), Put());
    for (std::size_t i = 0; i < kListOptions.size(); ++i) {
      list.*kListOptions[i].field = arguments.Option[i] ? 1 : 0;
    }
    list.bytSpcCount = arguments.bytSpcCount;
    return list;
  }

  /// A text of the library's as one of ours.
  [[nodiscard]] std::string taken(char* text) const {
    if (text == nullptr) return {};
    std::string copy = text;
    free_(text);
    return copy;
  }

  [[nodiscard]] std::string problem(int result) const {
    if (result == KVRNSTEP_BAD_ARGUMENT) return "an argument is out of range";
    if (result != KVRNSTEP_NO_DISPLAY) return "out of memory";
    char* reason = nullptr;
    canShowDialog_(&reason);
    return taken(reason);
  }

  decltype(kvrnstep_free)* free_ = nullptr;
  decltype(kvrnstep_plug_name_version)* plugNameVersion_ = nullptr;
  decltype(kvrnstep_dialog_init)* dialogInit_ = nullptr;
  decltype(kvrnstep_show_dialog)* showDialog_ = nullptr;
  decltype(kvrnstep_can_show_dialog)* canShowDialog_ = nullptr;
  decltype(kvrnstep_list_init)* listInit_ = nullptr;
  decltype(kvrnstep_generate)* generate_ = nullptr;
  decltype(kvrnstep_generate_from_step_file)* generateFromStepFile_ = nullptr;
  decltype(kvrnstep_save_step_file)* saveStepFile_ = nullptr;
};

}  // namespace kvrnstep
