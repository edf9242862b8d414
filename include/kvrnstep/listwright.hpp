#pragma once

// The plug-in for hosts in C++. A host links nothing: it loads the library by its path and calls
// it through its C interface, so host and plug-in may be built by different compilers. The structs
// are those of kvrnstep.h; the texts in them are UTF-8 and belong to the host.
//
//     const auto listwright = kvrnstep::Listwright::load("/usr/lib/listwright/libkvrnstep.so");
//     kvrnstep_dialog dialog = kvrnstep::kDialogDefaults;
//     dialog.sPthStepFolder = "/home/me/steps";
//     dialog.SEC_APP_NAME = "MyEditor";
//     std::string list;
//     if (listwright.ShowListwrightDialog(list, dialog)) insertAtCaret(list);

#include <array>
#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>

#include "kvrnstep/fields.hpp"
#include "kvrnstep/kvrnstep.h"
#include "kvrnstep/library.hpp"

namespace kvrnstep {

/// What is done to the lines of a text.
enum class LineChange : std::uint8_t { Number, Renumber, Unnumber, Continue };

/// The loaded plug-in. Cheap to copy; the library stays loaded to the end of the process.
class Listwright {
 public:
  /// @param path full path of the library, in the system's encoding, on Windows in UTF-8
  /// @throws std::runtime_error with the loader's reason
  static Listwright load(const std::string& path) {
    const Listwright loaded(openLibrary(path));
    if (symbolIn(loaded.library_, "kvrnstep_free") != nullptr) return loaded;
    throw std::runtime_error(path + " is no plug-in of this kind");
  }

  /// Name, a tab, version.
  [[nodiscard]] std::string PlugNameVersion() const {
    return taken(function<decltype(kvrnstep_plug_name_version)>("kvrnstep_plug_name_version")());
  }

  /// Writes icon 101, 102 or 103 as a file into the plug-in's folder; its full path, or nothing.
  [[nodiscard]] std::string RequestProgramIcon(std::int32_t piIndex101to103) const {
    return taken(function<decltype(kvrnstep_request_program_icon)>("kvrnstep_request_program_icon")(
        piIndex101to103));
  }

  /// Shows the dialog and returns when it has closed. Call it on the thread that owns the user
  /// interface.
  /// @param theLwOutputString the list after Insert, otherwise empty
  /// @return whether the user inserted a list
  /// @throws std::runtime_error with the reason, in one line, where no dialog can be shown
  bool ShowListwrightDialog(std::string& theLwOutputString, const kvrnstep_dialog& dialog) const {
    char* list = nullptr;
    const int result =
        function<decltype(kvrnstep_show_dialog)>("kvrnstep_show_dialog")(&dialog, &list);
    theLwOutputString = taken(list);
    if (result < 0) throw std::runtime_error(problem(result));
    return result == KVRNSTEP_INSERTED;
  }

  /// The list as text, without any window.
  /// @throws std::runtime_error for numbers that a list cannot have, and where it is too long
  [[nodiscard]] std::string generateList(const kvrnstep_list& list) const {
    char* text = nullptr;
    const int result = function<decltype(kvrnstep_generate)>("kvrnstep_generate")(&list, &text);
    if (result < 0) throw std::runtime_error(problem(result));
    return taken(text);
  }

  /// The list that a step file describes, without any window.
  /// @return KVRNSTEP_DONE, KVRNSTEP_UNREADABLE, KVRNSTEP_FOREIGN …
  [[nodiscard]] int generateFromStepFile(const std::string& path, std::int32_t bytSpcCount,
                                         std::string& list) const {
    char* text = nullptr;
    const int result = function<decltype(kvrnstep_generate_from_step_file)>(
        "kvrnstep_generate_from_step_file")(path.c_str(), bytSpcCount, &text);
    list = taken(text);
    return result;
  }

  /// Writes a description as a step file, in place of a file of that name.
  /// @return KVRNSTEP_DONE, KVRNSTEP_UNWRITABLE …
  [[nodiscard]] int saveStepFile(const std::string& path, const kvrnstep_list& list) const {
    return function<decltype(kvrnstep_save_step_file)>("kvrnstep_save_step_file")(path.c_str(),
                                                                                  &list);
  }

  /// What is wrong after KVRNSTEP_TOO_LONG.
  [[nodiscard]] static std::string tooLong() {
    return "the list is longer than " + mebibytes(KVRNSTEP_LONGEST_LIST);
  }
  [[nodiscard]] static std::string mebibytes(std::size_t bytes) {
    return std::to_string(bytes >> 20U) + " MiB";
  }

  /// Changes the labels of the lines of a text.
  /// @param changed the new text, unless `lines.take` gets it; after KVRNSTEP_NO_LABEL, why
  /// @return KVRNSTEP_DONE, KVRNSTEP_NO_LABEL …
  [[nodiscard]] int changeLines(LineChange change, const kvrnstep_lines& lines,
                                std::string_view text, std::string& changed) const {
    static constexpr std::array kNames{"kvrnstep_number_lines", "kvrnstep_renumber_lines",
                                       "kvrnstep_unnumber_lines", "kvrnstep_continue_lines"};
    const auto call =
        function<decltype(kvrnstep_number_lines)>(kNames.at(static_cast<std::size_t>(change)));
    char* bytes = nullptr;
    std::size_t size = 0;
    const int result = call(&lines, text.data(), text.size(), &bytes, &size);
    if (bytes != nullptr) changed.assign(bytes, size);
    function<decltype(kvrnstep_free)>("kvrnstep_free")(bytes);
    return result;
  }

 private:
  explicit Listwright(void* library) : library_(library) {}

  template <class Function>
  [[nodiscard]] Function* function(const char* name) const {
    void* found = symbolIn(library_, name);
    if (found == nullptr) throw std::runtime_error("the plug-in is older than its host");
    return reinterpret_cast<Function*>(found);
  }

  /// Copies a text of the library, and frees it.
  [[nodiscard]] std::string taken(char* text) const {
    if (text == nullptr) return {};
    std::string copy = text;
    function<decltype(kvrnstep_free)>("kvrnstep_free")(text);
    return copy;
  }

  [[nodiscard]] std::string problem(int result) const {
    if (result == KVRNSTEP_BAD_ARGUMENT) return "an argument is out of range";
    if (result == KVRNSTEP_TOO_LONG) return tooLong();
    if (result != KVRNSTEP_NO_DISPLAY) return "out of memory";
    char* reason = nullptr;
    function<decltype(kvrnstep_can_show_dialog)>("kvrnstep_can_show_dialog")(&reason);
    return taken(reason);
  }

  void* library_;
};

}  // namespace kvrnstep
