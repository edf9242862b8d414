#include <cstdio>
#include <exception>
#include <filesystem>
#include <stdexcept>

#include "kvrnstep/listwright.hpp"
#include "options.h"
#include "user_folders.h"
#include "utf8.h"

namespace listwright {

namespace {

enum ExitStatus { Printed = 0, NotInserted = 1, Failed = 2 };

/// Lines end as the user wants them, whatever ends them in the text.
std::string withLineEnds(const std::string& text, bool crLf) {
  std::string result;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool crLfHere = text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n';
    if (crLfHere) ++i;
    if (text[i] == '\n' && crLf) result += '\r';
    result += text[i];
  }
  return result;
}

/// The text goes out as it is, for editors to insert; only a terminal gets a line end of its own.
void print(const std::string& list, bool crLf) {
  std::string text = withLineEnds(list, crLf);
  if (hosts::outputIsTerminal() && !text.empty() && !text.ends_with('\n')) text += '\n';
  const bool written = std::fwrite(text.data(), 1, text.size(), stdout) == text.size();
  if (!written || std::fflush(stdout) != 0) throw std::runtime_error("cannot write the list");
}

kvrnstep::ListArguments listArguments(const Options& options) {
  return {
      .Selection = options.type,
      .Option = options.flags,
      .Prefix = options.prefix,
      .Suffix = options.suffix,
      .Start = options.start,
      .Count = options.end,
      .LineSpacing = options.lineSpacing,
      .Beginning = options.beginning,
      .Ending = options.ending,
      .bytSpcCount = options.indent,
  };
}

std::filesystem::path pathOf(const std::string& file) {
  return {hosts::fromUtf8(file)};
}

/// Why a step file that could not be read cannot be.
std::string whyUnreadable(const std::string& name) {
  std::error_code error;
  const bool file = std::filesystem::is_regular_file(pathOf(name), error);
  if (error) return error.message();
  return file ? "no permission, or too large for a step file" : "it is no file";
}

std::string whyUnwritable(const std::string& file) {
  const std::filesystem::path folder = std::filesystem::absolute(pathOf(file)).parent_path();
  std::error_code error;
  return std::filesystem::is_directory(folder, error) ? "no permission, or no room"
                                                      : "there is no such folder";
}

ExitStatus showDialog(const kvrnstep::Listwright& plugin, const Options& options) {
  makeWritableFolder(options.stepFolder);
  const std::filesystem::path settings(hosts::fromUtf8(options.settingsFile));
  makeWritableFolder(hosts::toUtf8(std::filesystem::absolute(settings).parent_path().u16string()));
  std::string list;
  const bool inserted =
      plugin.ShowListwrightDialog(list, {
                                            .iBuildStep = options.type,
                                            .BuMenuMode = options.menuMode,
                                            .sPthStepFolder = options.stepFolder,
                                            .SEC_APP_NAME = options.section,
                                            .s_IniPathAndName = options.settingsFile,
                                            .s_EditorFont = options.font,
                                            .i_EditorSize = options.fontSize,
                                            .bytSpcCount = options.indent,
                                        });
  if (!inserted) return NotInserted;
  print(list, options.crLf);
  return Printed;
}

ExitStatus save(const kvrnstep::Listwright& plugin, const Options& options) {
  if (plugin.saveStepFile(options.save, listArguments(options)) != KVRNSTEP_DONE) {
    throw std::runtime_error("cannot write " + options.save + ": " + whyUnwritable(options.save));
  }
  return Printed;
}

/// Like cat: goes on after a file that is none, and fails at the end.
ExitStatus printFiles(const kvrnstep::Listwright& plugin, const Options& options) {
  ExitStatus status = Printed;
  std::string all;
  for (const std::string& file : options.files) {
    std::string list;
    const int result = plugin.generateFromStepFile(file, options.indent, list);
    if (result != KVRNSTEP_DONE) {
      const std::string problem = result == KVRNSTEP_FOREIGN
                                      ? "no step file: " + file
                                      : "cannot read " + file + ": " + whyUnreadable(file);
      std::fprintf(stderr, "listwright: %s\n", problem.c_str());
      status = Failed;
      continue;
    }
    if (!all.empty() && !all.ends_with('\n')) all += "\r\n";
    all += list;
  }
  print(all, options.crLf);
  return status;
}

ExitStatus run(const hosts::Arguments& arguments) {
  const auto options = parseOptions(arguments);
  if (!options) return Printed;
  const auto plugin = kvrnstep::Listwright::load(options->plugin);
  if (options->version) {
    std::puts(plugin.PlugNameVersion().c_str());
    return Printed;
  }
  if (!options->save.empty()) return save(plugin, *options);
  if (!options->files.empty()) return printFiles(plugin, *options);
  if (!options->list) return showDialog(plugin, *options);
  print(plugin.generateList(listArguments(*options)), options->crLf);
  return Printed;
}

}  // namespace

}  // namespace listwright

int main(int argc, char** argv) {
  try {
    hosts::prepareOutput();
    return listwright::run(hosts::Arguments(argc, argv));
  } catch (const std::exception& error) {
    std::fprintf(stderr, "listwright: %s\n", error.what());
    return listwright::Failed;
  }
}
