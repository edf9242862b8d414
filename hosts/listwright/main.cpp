#include <clocale>
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

kvrnstep::Listwright plugin(const Options& options) {
  return kvrnstep::Listwright::load(options.plugin.empty() ? hosts::pluginBesideProgram()
                                                           : options.plugin);
}

/// Copies a text of the library, and frees it.
std::string taken(char* text) {
  std::string copy = text == nullptr ? "" : text;
  kvrnstep_free(text);
  return copy;
}

ExitStatus showDialog(const Options& options) {
  kvrnstep_dialog arguments = options.dialog;
  arguments.iBuildStep = options.described.Selection;
  arguments.bytSpcCount = options.described.bytSpcCount;
  requireUtf8(arguments.sPthStepFolder);
  requireUtf8(arguments.s_IniPathAndName);
  makeWritableFolder(arguments.sPthStepFolder);
  makeWritableFolder(folderOf(arguments.s_IniPathAndName));
  const bool read = hosts::outputIsRead();
  if (!read) arguments.insert_copies = 1;
  // Qt sets this locale while it starts. If the locale were another one before, the display would
  // be asked for both.
  std::setlocale(LC_ALL, "");
  std::string list;
  const bool inserted = plugin(options).ShowListwrightDialog(list, arguments);
  if (!inserted) return NotInserted;
  if (read) print(list, options.format);
  return Printed;
}

ExitStatus save(const Options& options) {
  requireUtf8(options.save);
  if (kvrnstep_save_step_file(options.save.c_str(), &options.described) != KVRNSTEP_DONE) {
    throw std::runtime_error("cannot write " + options.save + ": " + whyUnwritable(options.save));
  }
  return Printed;
}

/// The list of a step file.
/// @throws std::runtime_error when it is none
std::string listOf(const std::string& name, const Options& options) {
  const std::string file = foundStepFile(name, options.dialog.sPthStepFolder);
  requireUtf8(file);
  char* list = nullptr;
  const int result =
      kvrnstep_generate_from_step_file(file.c_str(), options.described.bytSpcCount, &list);
  if (result == KVRNSTEP_DONE) return taken(list);
  throw std::runtime_error(whyNoStepFile(result, file, options.dialog.sPthStepFolder));
}

/// Goes on after a file that cannot be read, as cat does, and fails at the end.
ExitStatus printFiles(const Options& options) {
  ExitStatus status = Printed;
  std::string all;
  bool any = false;
  for (const std::string& file : options.files) {
    try {
      const std::string list = listOf(file, options);
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

ExitStatus printDescribed(const Options& options) {
  char* list = nullptr;
  const int result = kvrnstep_generate(&options.described, &list);
  if (result != KVRNSTEP_DONE) throw std::runtime_error(whyNoList(result));
  print(taken(list), options.format);
  return Printed;
}

ExitStatus run(const hosts::Arguments& arguments) {
  const auto options = parseOptions(arguments);
  if (!options) return Printed;
  if (options->version) {
    std::puts(plugin(*options).PlugNameVersion().c_str());
    return Printed;
  }
  if (options->change != nullptr) return changeLines(*options) ? Printed : NotInserted;
  if (!options->save.empty()) return save(*options);
  if (!options->files.empty()) return printFiles(*options);
  return options->list ? printDescribed(*options) : showDialog(*options);
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
