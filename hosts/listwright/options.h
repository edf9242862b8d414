#pragma once

#include <forward_list>
#include <optional>
#include <string>
#include <vector>

#include "kvrnstep/list_options.hpp"
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
  decltype(kvrnstep_number_lines)* change = nullptr;  ///< of the lines of standard input, if any
  kvrnstep_lines lines = kvrnstep::kLinesDefaults;
  bool describesLabels = false;  ///< … with the labels of `described`
  bool version = false;
  kvrnstep_list described = kvrnstep::kListDefaults;
  kvrnstep_dialog dialog = kvrnstep::kDialogDefaults;  ///< type, indentation as `described` has it
  std::forward_list<std::string> texts;                ///< those that the two structs point to
  std::string plugin;                                  ///< empty: the one beside the program
};

/// The options, or nothing when help was printed instead.
/// @throws std::runtime_error with one line to show for a wrong command line
std::optional<Options> parseOptions(const hosts::Arguments& arguments);

}  // namespace listwright
