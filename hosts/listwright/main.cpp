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
  print(list, options.format);
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
  bool any = false;
  for (const std::string& file : options.files) {
    std::string list;
    const int result = plugin.generateFromStepFile(file, options.indent, list);
    if (result != KVRNSTEP_DONE) {
      const std::string problem = result == KVRNSTEP_FOREIGN
                                      ? "no step file: " + file
                                      : "cannot read " + file + ": " + whyUnreadable(file);
      complain(problem);
      status = Failed;
      continue;
    }
    if (any && !all.ends_with('\n')) all += "\r\n";
    all += list;
    any = true;
  }
  if (any) print(all, options.format);
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
  print(plugin.generateList(listArguments(*options)), options->format);
  return Printed;
}

}  // namespace

}  // namespace listwright

int main(int argc, char** argv) {
  try {
    hosts::prepareOutput();
    return listwright::run(hosts::Arguments(argc, argv));
  } catch (const std::exception& error) {
    listwright::complain(error.what());
    return listwright::Failed;
  }
}
