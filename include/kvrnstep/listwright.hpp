#pragma once

// The plug-in for hosts in C++. A host links nothing: it loads the library by its path and calls
// it through the table below. Nothing of the standard library crosses that table, so host and
// plug-in may be built by different compilers.
//
//     auto listwright = kvrnstep::Listwright::load("/usr/lib/libkvrnstep.so");
//     std::u16string list;
//     if (listwright.ShowListwrightDialog(list, {.sPthStepFolder = u"/home/me/steps",
//                                                .SEC_APP_NAME = u"Listwright"})) {
//       insertAtCaret(list);
//     }

#include <dlfcn.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

namespace kvrnstep {

/// The layout of the table and its records. It grows at the end only; a change of what is there
/// gets a new number.
inline constexpr std::uint32_t kEntryVersion = 1;

/// A UTF-16 text that belongs to the caller.
struct Text {
  const char16_t* data;
  std::size_t length;
};

/// Takes a text that is valid for the length of the call.
using TextReceiver = void (*)(void* receiver, const char16_t* data, std::size_t length);
using ByteReceiver = void (*)(void* receiver, const char* data, std::size_t length);

/// The parameters of ShowListwrightDialog; null stands for an optional one that is left out.
struct ShowRequest {
  std::uint32_t size;  ///< sizeof(ShowRequest)
  std::int16_t iBuildStep;
  std::int16_t BuMenuMode;
  std::int16_t bolIsSoundAvailable;
  Text swavAlertQ;
  Text swavFinishQ;
  Text sPthStepFolder;
  Text SEC_APP_NAME;
  Text SEC_APP_LWDR;
  const std::int32_t* l_EditorBColor;
  const std::int32_t* l_EditorFColor;
  const Text* s_IniPathAndName;
  const Text* s_EditorFont;
  const std::int16_t* i_EditorSize;
  const std::uint8_t* bytSpcCount;
};

/// A list to be generated without a window. The fields mean what the dialog's boxes mean.
struct ListRequest {
  std::uint32_t size;  ///< sizeof(ListRequest)
  std::int16_t Selection;
  std::int16_t Option[7];
  Text Prefix;
  Text Suffix;
  std::int16_t Start;
  std::int16_t Count;
  std::int16_t LineSpacing;
  Text Beginning;
  Text Ending;
  std::uint8_t bytSpcCount;
};

/// How a step file was dealt with.
enum StepFileResult : std::int32_t {
  StepFileDone = 0,
  StepFileUnreadable = 1,  ///< missing, no file, too large
  StepFileForeign = 2,     ///< another kind of file
  StepFileUnwritable = 3,
};

/// What the library's one function, `kvrnstepEntry`, hands out.
struct EntryTable {
  std::uint32_t version;
  void (*PlugNameVersion)(TextReceiver take, void* receiver);
  /// −1 (True) after Insert, 0 otherwise; hands over the list, empty unless inserted.
  std::int16_t (*ShowListwrightDialog)(const ShowRequest* request, TextReceiver take,
                                       void* receiver);
  void (*generateList)(const ListRequest* request, TextReceiver take, void* receiver);
  /// Non-zero when a dialog can be shown; otherwise hands over one line that says why not.
  int (*canShowDialog)(ByteReceiver take, void* receiver);
  /// The list that a step file describes.
  std::int32_t (*generateFromStepFile)(Text path, std::uint8_t bytSpcCount, TextReceiver take,
                                       void* receiver);
  /// Writes a list's description as a step file.
  std::int32_t (*saveStepFile)(Text path, const ListRequest* request);
};

using EntryFunction = const EntryTable* (*)(std::uint32_t version);

/// The arguments of a call as a host writes them down.
struct DialogArguments {
  std::int16_t iBuildStep = 0;  ///< 0 numbered, 1 alphabetical, 2 Roman, 3 prefix and/or suffix
  bool BuMenuMode = false;      ///< iBuildStep stands against the user's stored defaults
  bool bolIsSoundAvailable = false;
  std::u16string_view swavAlertQ{};
  std::u16string_view swavFinishQ{};
  std::u16string_view sPthStepFolder{};  ///< empty: the plug-in's folder
  std::u16string_view SEC_APP_NAME{};    ///< section of the settings file
  std::u16string_view SEC_APP_LWDR{};
  std::optional<std::int32_t> l_EditorBColor{};  ///< 0x00BBGGRR, or 0x80000000 + system colour
  std::optional<std::int32_t> l_EditorFColor{};
  std::optional<std::u16string_view> s_IniPathAndName{};  ///< settings file
  std::optional<std::u16string_view> s_EditorFont{};
  std::optional<std::int16_t> i_EditorSize{};  ///< points
  std::optional<std::uint8_t> bytSpcCount{};   ///< blanks in one indentation
};

/// The description of a list as a host writes it down.
struct ListArguments {
  std::int16_t Selection = 0;
  std::array<bool, 7> Option{};
  std::u16string_view Prefix{};
  std::u16string_view Suffix{};
  std::int16_t Start = 1;
  std::int16_t Count = 3;
  std::int16_t LineSpacing = 0;
  std::u16string_view Beginning{};
  std::u16string_view Ending{};
  std::uint8_t bytSpcCount = 4;
};

/// The loaded plug-in. Cheap to copy; the library stays loaded to the end of the process.
class Listwright {
 public:
  /// @param path full path of the library, in the system's encoding
  /// @throws std::runtime_error with the loader's reason
  static Listwright load(const std::string& path) {
    void* library = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (library == nullptr) throw std::runtime_error(dlerror());
    const auto entry = reinterpret_cast<EntryFunction>(dlsym(library, "kvrnstepEntry"));
    const EntryTable* table = entry == nullptr ? nullptr : entry(kEntryVersion);
    if (table == nullptr) throw std::runtime_error(path + " is no plug-in of this version");
    return {library, table};
  }

  /// Name, a tab, version.
  [[nodiscard]] std::u16string PlugNameVersion() const {
    std::u16string text;
    table_->PlugNameVersion(takeText, &text);
    return text;
  }

  /// Shows the dialog and returns when it has closed. Call it on the thread that owns the user
  /// interface.
  /// @param theLwOutputString the list after Insert, otherwise empty
  /// @return whether the user inserted a list
  bool ShowListwrightDialog(std::u16string& theLwOutputString,
                            const DialogArguments& arguments) const {
    const Text iniPath = view(arguments.s_IniPathAndName.value_or(std::u16string_view()));
    const Text font = view(arguments.s_EditorFont.value_or(std::u16string_view()));
    const ShowRequest request{
        .size = sizeof(ShowRequest),
        .iBuildStep = arguments.iBuildStep,
        .BuMenuMode = variantBool(arguments.BuMenuMode),
        .bolIsSoundAvailable = variantBool(arguments.bolIsSoundAvailable),
        .swavAlertQ = view(arguments.swavAlertQ),
        .swavFinishQ = view(arguments.swavFinishQ),
        .sPthStepFolder = view(arguments.sPthStepFolder),
        .SEC_APP_NAME = view(arguments.SEC_APP_NAME),
        .SEC_APP_LWDR = view(arguments.SEC_APP_LWDR),
        .l_EditorBColor = pointer(arguments.l_EditorBColor),
        .l_EditorFColor = pointer(arguments.l_EditorFColor),
        .s_IniPathAndName = arguments.s_IniPathAndName ? &iniPath : nullptr,
        .s_EditorFont = arguments.s_EditorFont ? &font : nullptr,
        .i_EditorSize = pointer(arguments.i_EditorSize),
        .bytSpcCount = pointer(arguments.bytSpcCount),
    };
    theLwOutputString.clear();
    return table_->ShowListwrightDialog(&request, takeText, &theLwOutputString) != 0;
  }

  /// The list as text, without any window.
  [[nodiscard]] std::u16string generateList(const ListArguments& arguments) const {
    std::u16string text;
    const ListRequest request = listRequest(arguments);
    table_->generateList(&request, takeText, &text);
    return text;
  }

  /// The list that a step file describes, without any window.
  [[nodiscard]] StepFileResult generateFromStepFile(std::u16string_view path,
                                                    std::uint8_t bytSpcCount,
                                                    std::u16string& list) const {
    return static_cast<StepFileResult>(
        table_->generateFromStepFile(view(path), bytSpcCount, takeText, &list));
  }

  /// Writes a description as a step file, in place of a file of that name.
  [[nodiscard]] StepFileResult saveStepFile(std::u16string_view path,
                                            const ListArguments& arguments) const {
    const ListRequest request = listRequest(arguments);
    return static_cast<StepFileResult>(table_->saveStepFile(view(path), &request));
  }

  /// Whether a dialog can be shown here; if not, `problem` says why, in one line.
  bool canShowDialog(std::string& problem) const {
    problem.clear();
    return table_->canShowDialog(takeBytes, &problem) != 0;
  }

  /// A further function that the library exports, or null.
  [[nodiscard]] void* symbol(const char* name) const { return dlsym(library_, name); }

 private:
  Listwright(void* library, const EntryTable* table) : library_(library), table_(table) {}

  static ListRequest listRequest(const ListArguments& arguments) {
    ListRequest request{
        .size = sizeof(ListRequest),
        .Selection = arguments.Selection,
        .Option = {},
        .Prefix = view(arguments.Prefix),
        .Suffix = view(arguments.Suffix),
        .Start = arguments.Start,
        .Count = arguments.Count,
        .LineSpacing = arguments.LineSpacing,
        .Beginning = view(arguments.Beginning),
        .Ending = view(arguments.Ending),
        .bytSpcCount = arguments.bytSpcCount,
    };
    for (std::size_t i = 0; i < arguments.Option.size(); ++i) {
      request.Option[i] = arguments.Option[i] ? 1 : 0;
    }
    return request;
  }
  static Text view(std::u16string_view text) { return {text.data(), text.size()}; }
  static std::int16_t variantBool(bool value) { return static_cast<std::int16_t>(value ? -1 : 0); }
  template <class T>
  static const T* pointer(const std::optional<T>& value) {
    return value ? &*value : nullptr;
  }
  static void takeText(void* receiver, const char16_t* data, std::size_t length) {
    static_cast<std::u16string*>(receiver)->assign(data, length);
  }
  static void takeBytes(void* receiver, const char* data, std::size_t length) {
    static_cast<std::string*>(receiver)->assign(data, length);
  }

  void* library_;
  const EntryTable* table_;
};

}  // namespace kvrnstep
