#include <cstdio>
#include <exception>
#include <stdexcept>

#include "file_names.h"
#include "lines.h"
#include "options.h"
#include "user_folders.h"

namespace listwright {

namespace {

enum ExitStatus { Printed = 0, NotInserted = 1, Failed = 2 };

ExitStatus showDialog(const kvrnstep::Listwright& plugin, const Options& options) {
  kvrnstep_dialog arguments = options.dialog;
  arguments.iBuildStep = options.described.Selection;
  arguments.bytSpcCount = options.described.bytSpcCount;
  requireUtf8(arguments.sPthStepFolder);
  requireUtf8(arguments.s_IniPathAndName);
  makeWritableFolder(arguments.sPthStepFolder);
  makeWritableFolder(folderOf(arguments.s_IniPathAndName));
  const bool read = hosts::outputIsRead();
  if (!read) arguments.insert_copies = 1;
  std::string list;
  const bool inserted = plugin.ShowListwrightDialog(list, arguments);
  if (!inserted) return NotInserted;
  if (read) print(list, options.format);
  return Printed;
}

ExitStatus save(const kvrnstep::Listwright& plugin, const Options& options) {
  requireUtf8(options.save);
  if (plugin.saveStepFile(options.save, options.described) != KVRNSTEP_DONE) {
    throw std::runtime_error("cannot write " + options.save + ": " + whyUnwritable(options.save));
  }
  return Printed;
}

/// The list of a step file.
/// @throws std::runtime_error when it is none
std::string listOf(const kvrnstep::Listwright& plugin, const std::string& name,
                   const Options& options) {
  const std::string file = foundStepFile(name, options.dialog.sPthStepFolder);
  requireUtf8(file);
  std::string list;
  const int result = plugin.generateFromStepFile(file, options.described.bytSpcCount, list);
  if (result == KVRNSTEP_DONE) return list;
  throw std::runtime_error(whyNoStepFile(result, file, options.dialog.sPthStepFolder));
}

/// Goes on after a file that cannot be read, as cat does, and fails at the end.
ExitStatus printFiles(const kvrnstep::Listwright& plugin, const Options& options) {
  ExitStatus status = Printed;
  std::string all;
  bool any = false;
  for (const std::string& file : options.files) {
    try {
      const std::string list = listOf(plugin, file, options);
      if (any && !all.ends_with('\n')) all += "\r\n";
      all += list;
      any = true;
    } catch (const std::runtime_error& problem) {
      complain(problem.what());
      status = Failed;
    }
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
  if (options->change) return changeLines(plugin, *options) ? Printed : NotInserted;
  if (!options->save.empty()) return save(plugin, *options);
  if (!options->files.empty()) return printFiles(plugin, *options);
  if (!options->list) return showDialog(plugin, *options);
  print(plugin.generateList(options->described), options->format);
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
