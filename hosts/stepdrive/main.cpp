#include <CLI/CLI.hpp>
#include <cstdio>
#include <fstream>
#include <iostream>

#include "drive.h"
#include "plugin_path.h"

namespace {

struct Options {
  std::string frontEnd = "headless";
  std::string plugin = hosts::pluginBesideProgram();
  std::string script;
};

int follow(const Options& options, std::istream& script) {
  const stepdrive::Component plugin(options.plugin);
  stepdrive::Drive drive(plugin, script);
  std::string problem;
  if (!drive.open(options.frontEnd, problem)) throw std::runtime_error(problem);
  return drive.run();
}

int follow(const Options& options) {
  if (options.script == "-") return follow(options, std::cin);
  std::ifstream file(options.script);
  if (!file) throw std::runtime_error("cannot read " + options.script);
  return follow(options, file);
}

int run(int argc, char** argv) {
  Options options;
  CLI::App app(
      "Loads the Listwright plug-in, plays its user as a script says, and prints what the plug-in "
      "shows and does.",
      "stepdrive");
  app.add_option("--frontend", options.frontEnd, "headless (default) or qt")
      ->check(CLI::IsMember({"headless", "qt"}));
  app.add_option("--plugin", options.plugin, "the plug-in's library, by its full path");
  app.add_option("FILE", options.script, "the script; - for standard input")->required();
  try {
    app.parse(argc, argv);
  } catch (const CLI::CallForHelp& help) {
    return app.exit(help);
  }
  return follow(options);
}

}  // namespace

int main(int argc, char** argv) {
  try {
    return run(argc, argv);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "stepdrive: %s\n", error.what());
    return stepdrive::ScriptWrong;
  }
}
