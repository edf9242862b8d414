#include "options.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <functional>
#include <stdexcept>

#include "numbers.h"
#include "user_folders.h"

namespace listwright {

namespace {

constexpr const char* kDescription =
    "Builds a step list: numbered, lettered, Roman, or with a prefix and suffix only.\n"
    "It opens the dialog and prints the list that you insert. With --list it prints the list\n"
    "that the options describe, with FILE the list that a step file describes, without a window.\n"
    "With --number it puts labels before the lines of standard input, with --renumber it sets the\n"
    "labels of lists in a text right, with --unnumber it takes labels away.";

constexpr const char* kFooter =
    "A prefix and a suffix may hold {STEP_#}, {STEP_L} and {STEP_R}: the step as a number, as\n"
    "letters and as a Roman numeral.\n"
    "\n"
    "Exit status: 0 a list or a text was printed; 1 the dialog was closed without Insert, or a "
    "line\n"
    "cannot have its label; 2 an error.\n"
    "\n"
    "Examples:\n"
    "  listwright --list --end 5 --suffix .              1. 2. 3. 4. 5., each on its line\n"
    "  listwright --list --type roman --end 8 --upper-case --right-align\n"
    "  listwright --list --type prefix-suffix --end 3 --prefix 'Part {STEP_R}'\n"
    "  listwright --save abc.step --type alphabetical --end 3 --suffix ')'\n"
    "  listwright abc.step                               a) b) c), each on its line\n"
    "  listwright --number --suffix ') ' <notes.txt      1) before the first line, and so on\n"
    "  listwright --renumber <notes.txt                  1., 2., 3. after lines were moved\n"
    "  listwright --type alphabetical | wl-copy          build it in the dialog";

/// The words of --type, separated by commas and, before the last, by `last`.
std::string typeWords(const char* last, const char* behindFirst = "") {
  std::string words;
  for (const auto& type : kvrnstep::kListingTypes) {
    if (&type == &kvrnstep::kListingTypes.back()) {
      words += last;
    } else if (!words.empty()) {
      words += ", ";
    }
    words += type.word;
    if (&type == kvrnstep::kListingTypes.data()) words += behindFirst;
  }
  return words;
}

/// Declares the options of the command and reads them into the record.
class CommandLine {
 public:
  CommandLine() : app_(kDescription, "listwright") {
    app_.footer(kFooter);
    // A file may be named by a path that begins with a slash.
    app_.allow_windows_style_options(false);
    app_.add_flag("--list", options_.list, "print the list described by the options; no window");
    app_.add_option("--save", options_.save, "write the options as a step file; no window")
        ->type_name("FILE");
    app_.add_option("FILE", options_.files, "step files whose lists are printed")->type_name("");
    app_.add_flag("--crlf", options_.format.crLf, "end lines with CR LF instead of LF");
    app_.add_flag("--exact", options_.format.exact, "no line end of its own behind the last line");
    app_.add_flag("-V,--version", options_.version, "print name and version");
    describeLines();
    describeList();
    describeDialog();
  }

  /// False when help was printed instead.
  bool parse(const hosts::Arguments& arguments) {
    try {
      app_.parse(withoutFiles(arguments));
    } catch (const CLI::CallForHelp& help) {
      app_.exit(help);
      return false;
    } catch (const CLI::ArgumentMismatch& error) {
      const std::string problem = error.what();
      throw std::runtime_error(problem.substr(0, problem.find(':')) + " takes exactly one value");
    } catch (const CLI::ExtrasError& error) {
      throw std::runtime_error(std::string(error.what()) + "; --help lists the options");
    }
    check();
    return true;
  }

  Options options() { return std::move(options_); }

 private:
  /// Whether an argument is an option that takes a value, which may be there already, behind "=".
  /// @throws std::runtime_error for a value behind an option that takes none
  [[nodiscard]] bool takesValue(const std::string& argument, std::size_t equals) const {
    const std::string name = argument.substr(0, equals);
    const CLI::Option* option = app_.get_option_no_throw(name);
    if (option == nullptr) return false;
    if (option->get_items_expected_max() > 0) return true;
    if (equals == std::string::npos) return false;
    throw std::runtime_error(name + " takes no value");
  }

  /// Takes the names of files out, because the library would split names with brackets.
  /// @return the options as the library takes them, the last one first. It would look for an empty
  /// value behind "=" in the next argument, so values become arguments of their own.
  std::vector<std::string> withoutFiles(const hosts::Arguments& arguments) {
    std::vector<std::string> options;
    const auto* next = arguments.values() + 1;
    const auto* end = arguments.values() + arguments.count();
    while (next != end && std::string_view(*next) != "--") {
      const std::string argument = *next++;
      const std::size_t equals = argument.find('=');
      if (!argument.starts_with('-')) {
        options_.files.push_back(argument);
      } else if (!takesValue(argument, equals)) {
        options.push_back(argument);
      } else {
        options.push_back(argument.substr(0, equals));
        if (equals != std::string::npos) {
          options.push_back(argument.substr(equals + 1));
        } else if (next != end) {
          options.emplace_back(*next++);
        }
      }
    }
    if (next != end) options_.files.insert(options_.files.end(), next + 1, end);
    return {options.rbegin(), options.rend()};
  }

  void describeLines() {
    addChange("--number", kvrnstep_number_lines,
              "put a label before each line of standard input that has text");
    addChange("--renumber", kvrnstep_renumber_lines,
              "set the labels of the lists in standard input right");
    addChange("--unnumber", kvrnstep_unnumber_lines,
              "take labels away; undoes --number with the same options");
    addChange("--continue", kvrnstep_continue_lines,
              "put labels before the lines from --line on that go on behind the last one above");
    kvrnstep_lines& lines = options_.lines;
    addWhole("--step", lines.step, "from one number to the next, not 0 (1)", kLines);
    addNumber("--pad", lines.pad, 0, 255, "fill numbers with zeros to so many digits", kLines);
    addWhole("--line", lines.line, "only the lists, or the paragraph, around this line", kLines);
    addFlag("--keep-start", lines.keep_start, "--renumber: lists keep their first number", kLines);
  }

  void addChange(const char* name, decltype(kvrnstep_number_lines)* change, const char* help) {
    app_.add_flag_callback(
            name,
            [this, name, change] {
              if (options_.change != nullptr && options_.change != change) {
                throw CLI::ValidationError(name, "goes without another change of lines");
              }
              options_.change = change;
            },
            help)
        ->group(kLines);
  }

  /// A number of any size.
  void addWhole(const std::string& name, std::int64_t& target, const std::string& help,
                const std::string& group) {
    add(name, "NUMBER", help, group, [=, &target](const std::string& text) {
      const auto number = hosts::numberOf<std::int64_t>(text);
      if (!number) throw refusal(name, "a whole number is", text);
      target = *number;
    });
  }

  void describeList() {
    kvrnstep_list& list = options_.described;
    add("--type", "TYPE", typeWords(" or ", " (default)"), kGeneral, [&](const std::string& word) {
      const auto* found =
          std::ranges::find(kvrnstep::kListingTypes, word, &kvrnstep::ListingTypeRow::word);
      if (found == kvrnstep::kListingTypes.end()) {
        throw refusal("--type", typeWords(" and ") + " are", word);
      }
      list.Selection = static_cast<std::int32_t>(found - kvrnstep::kListingTypes.begin());
    });
    addNumber("--indent", list.bytSpcCount, 0, 255,
              "blanks in one indentation (4); indents the steps of --list and --save", kGeneral);

    addWhole("--start", options_.lines.start, "number of the first step or line (1)", kList);
    addNumber("--end", list.Count, 1, kLastStep, "number of the last step; needed", kList);
    addNumber("--line-spacing", list.LineSpacing, 0, 9, "blank lines between steps (0)", kList);
    addText("--prefix", list.Prefix, "text before each label", kList);
    addText("--suffix", list.Suffix, "text after each label", kList);
    addText("--beginning", list.Beginning, "text before the first step", kList);
    addText("--ending", list.Ending, "text after the last step", kList);
    for (const auto& option : kvrnstep::kListOptions) {
      addFlag(option.word, list.*option.field, option.help, kList);
    }
  }

  void describeDialog() {
    kvrnstep_dialog& dialog = options_.dialog;
    dialog.sPthStepFolder = kept(userStepFolder());
    dialog.s_IniPathAndName = kept(userSettingsFolder() + "/steps.ini");
    dialog.SEC_APP_NAME = "Listwright";
    addText("--step-folder", dialog.sPthStepFolder, "folder of your lists and step files", kDialog,
            "DIR");
    addText("--settings", dialog.s_IniPathAndName, "settings file", kDialog, "FILE");
    addText("--section", dialog.SEC_APP_NAME, "section of the settings file (Listwright)", kDialog);
    addText("--font", dialog.s_EditorFont, "font of the preview", kDialog);
    addNumber("--font-size", dialog.i_EditorSize, 1, 200, "its size in points (9)", kDialog);
    addFlag("--menu-mode", dialog.BuMenuMode, "--type stands against stored defaults", kDialog);
    addFlag("--clipboard", dialog.insert_copies, "Insert puts the list on the clipboard, too",
            kDialog);
    app_.add_option("--plugin", options_.plugin, "the plug-in's library")
        ->type_name("FILE")
        ->group("");
  }

  using Take = std::function<void(const std::string&)>;

  void add(const std::string& name, const std::string& kind, const std::string& help,
           const std::string& group, const Take& take) {
    app_.add_option_function<std::string>(name, take, help)->type_name(kind)->group(group);
  }

  static CLI::ValidationError refusal(const std::string& name, const std::string& allowed,
                                      const std::string& text) {
    return CLI::ValidationError(name, allowed + " allowed, not \"" + text + '"');
  }

  void addFlag(const std::string& name, std::int32_t& target, const std::string& help,
               const std::string& group) {
    app_.add_flag_callback(
            name, [&target] { target = 1; }, help)
        ->group(group);
  }

  void addNumber(const std::string& name, std::int32_t& target, int least, int most,
                 const std::string& help, const std::string& group) {
    const std::string ends[] = {std::to_string(least), std::to_string(most)};
    add(name, ends[0] + ".." + ends[1], help, group, [=, &target](const std::string& text) {
      const auto number = hosts::numberOf<std::int32_t>(text);
      if (!number || *number < least || *number > most) {
        throw refusal(name, ends[0] + " to " + ends[1] + " is", text);
      }
      target = *number;
    });
  }

  void addText(const std::string& name, const char*& target, const std::string& help,
               const std::string& group, const std::string& kind = "TEXT") {
    add(name, kind, help, group, [this, &target](const std::string& text) { target = kept(text); });
  }

  const char* kept(std::string text) {
    return options_.texts.emplace_front(std::move(text)).c_str();
  }

  void check() {
    for (const char* name : {"--save", "--step-folder", "--settings", "--plugin"}) {
      const CLI::Option* option = app_.get_option(name);
      if (option->count() > 0 && option->as<std::string>().empty()) {
        throw std::runtime_error(std::string(name) + " needs a name");
      }
    }
    const bool saves = app_.count("--save") > 0;
    if (options_.change != nullptr) return checkLines();
    refuse(kLines, " needs --number, --renumber, --unnumber or --continue");
    if (options_.list || saves) return checkList(saves);
    refuse(kList, " needs --list, --save or --number");
  }

  /// @throws std::runtime_error for an option of the group that was given
  void refuse(const std::string& group, const char* why) const {
    for (const CLI::Option* option : app_.get_options()) {
      if (option->get_group() == group && option->count() > 0) {
        throw std::runtime_error(option->get_name() + why);
      }
    }
  }

  void checkLines() {
    for (const char* name : {"--list", "--save", "--end", "--crlf", "--exact"}) {
      if (app_.count(name) > 0) {
        throw std::runtime_error(std::string(name) + " goes with lists, not with lines of a text");
      }
    }
    kvrnstep_lines& lines = options_.lines;
    if (app_.count("--start") > 0 && lines.start < 0)
      throw std::runtime_error("--start: 0 is the least");
    if (lines.step == 0) throw std::runtime_error("--step: any number but 0 is allowed");
    if (app_.count("--line") > 0 && lines.line < 1)
      throw std::runtime_error("--line: 1 is the least");
    if (options_.change == kvrnstep_continue_lines && lines.line == 0)
      throw std::runtime_error("--continue needs --line, the first line that gets a label");
    if (lines.keep_start != 0 && options_.change == kvrnstep_number_lines)
      throw std::runtime_error("--keep-start goes with --renumber");
    for (const CLI::Option* option : app_.get_options()) {
      const bool describes = option->get_group() == kList || option->get_name() == "--type";
      if (!describes || option->count() == 0 || option->get_name() == "--start") continue;
      if (!options_.files.empty())
        throw std::runtime_error(option->get_name() + " goes without FILE");
      options_.describesLabels = true;
    }
    if (options_.files.size() > 1) throw std::runtime_error("one FILE describes the labels");
    lines.bytSpcCount = options_.described.bytSpcCount;
    if (options_.files.empty() && app_.count("--indent") > 0) options_.describesLabels = true;
    followValues();
  }

  /// Options that are switched on by others.
  void followValues() {
    kvrnstep_list& list = options_.described;
    if (list.bytSpcCount > 0 && app_.count("--indent") > 0) {
      list.Indentation = 1;
    }
    if (app_.count("--beginning") + app_.count("--ending") > 0) {
      list.AddBegEnd = 1;
    }
  }

  void checkList(bool saves) {
    if (!options_.files.empty()) throw std::runtime_error("FILE goes without --list and --save");
    if (app_.count("--end") == 0) {
      throw std::runtime_error(std::string(saves ? "--save" : "--list") +
                               " needs --end, the number of the last step: 1 to 99");
    }
    kvrnstep_list& list = options_.described;
    const std::int64_t start = options_.lines.start;
    if (app_.count("--start") > 0) {
      if (start < 1 || start > kLastStep) {
        throw std::runtime_error("--start: 1 to 99 is allowed, not \"" + std::to_string(start) +
                                 '"');
      }
      list.Start = static_cast<std::int32_t>(start);
    }
    if (list.Start > list.Count) {
      throw std::runtime_error("the last step comes before the first: --start " +
                               std::to_string(list.Start) + ", --end " +
                               std::to_string(list.Count));
    }
    if (saves && !options_.save.ends_with(".step")) {
      throw std::runtime_error("--save: the name of a step file ends in .step");
    }
    followValues();
  }

  static constexpr int kLastStep = 99;
  inline static const std::string kGeneral = "Options";
  inline static const std::string kLines = "Lines of standard input";
  inline static const std::string kList = "List (with --list, --save or lines)";
  inline static const std::string kDialog = "Dialog";

  CLI::App app_;
  Options options_;
};

}  // namespace

std::optional<Options> parseOptions(const hosts::Arguments& arguments) {
  // Destroying it takes longer than making a list, and the process ends soon.
  static CommandLine& line = *new CommandLine;
  if (!line.parse(arguments)) return std::nullopt;
  return line.options();
}

}  // namespace listwright
