#pragma once

#include <optional>
#include <string>
#include <vector>

#include "kvrnstep/listwright.hpp"
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
  kvrnstep::ListArguments described;
  kvrnstep::DialogArguments dialog;  ///< listing type and indentation are those of `described`
  std::string plugin;
};

/// The options, or nothing when all is said and done (help was printed).
/// @throws std::runtime_error with the one line to show for a wrong command line
std::optional<Options> parseOptions(const hosts::Arguments& arguments);

}  // namespace listwright
