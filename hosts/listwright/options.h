#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "printing.h"
#include "program.h"

namespace listwright {

/// The command line, read and checked.
struct Options {
  bool list = false;  ///< print the list that the options describe instead of opening the dialog
  std::string save;   ///< step file to write; empty: none
  std::vector<std::string> files;  ///< step files whose lists are printed
  PrintFormat format;
  bool version = false;
  std::int16_t type = 0;
  std::int16_t start = 1;
  std::int16_t end = 0;
  std::int16_t lineSpacing = 0;
  std::int16_t indent = 4;
  std::array<bool, 7> flags{};
  std::string prefix;
  std::string suffix;
  std::string beginning;
  std::string ending;

  std::string stepFolder;
  std::string settingsFile;
  std::string section;
  std::string font;
  std::int16_t fontSize = 9;
  bool menuMode = false;
  bool clipboard = false;  ///< Insert leaves the list on the clipboard, too
  std::string plugin;
};

/// The options, or nothing when all is said and done (help was printed).
/// @throws std::runtime_error with the one line to show for a wrong command line
std::optional<Options> parseOptions(const hosts::Arguments& arguments);

}  // namespace listwright
