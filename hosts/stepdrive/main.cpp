#include <CLI/CLI.hpp>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iostream>

#include "drive.h"
#include "program.h"
#include "utf8.h"

namespace {

struct Options {
  std::string frontEnd = "headless";
  std::string plugin = hosts::pluginBesideProgram();
  std::string script;
};

int follow(const Options& options, std::istream& script) {
  stepdrive::Drive drive(options.plugin, script);
  std::string problem;
  if (!drive.open(options.frontEnd, problem)) throw std::runtime_error(problem);
  return drive.run();
}

int follow(const Options& options) {
  if (options.script == "-") return follow(options, std::cin);
  std::ifstream file(std::filesystem::path(hosts::fromUtf8(options.script)), std::ios::binary);
  if (!file) throw std::runtime_error("cannot read " + options.script);
  return follow(options, file);
}

int run(const hosts::Arguments& arguments) {
  Options options;
  CLI::App app(
      "Loads the Listwright plug-in, plays its user as a script says, and prints what the plug-in "
      "shows and does.",
      "stepdrive");
  // A script may be named by a path that begins with a slash.
  app.allow_windows_style_options(false);
#ifdef _WIN32
  const std::string withScreen = "windows";
#else
  const std::string withScreen = "qt";
#endif
  app.add_option("--frontend", options.frontEnd, "headless (default) or " + withScreen)
      ->check(CLI::IsMember({std::string("headless"), withScreen}));
  app.add_option("--plugin", options.plugin, "the plug-in's library, by its full path");
  app.add_option("FILE", options.script, "the script; - for standard input")->required();
  try {
    app.parse(arguments.count(), arguments.values());
  } catch (const CLI::CallForHelp& help) {
    return app.exit(help);
  }
  return follow(options);
}

}  // namespace

int main(int argc, char** argv) {
  try {
    hosts::prepareOutput();
    return run(hosts::Arguments(argc, argv));
  } catch (const std::exception& error) {
    std::fprintf(stderr, "stepdrive: %s\n", error.what());
    return stepdrive::ScriptWrong;
  }
}
