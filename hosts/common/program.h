#pragma once

#include <string>
#include <string_view>
#include <vector>

/// What programs need of the system that they run on.
namespace hosts {

/// The program's arguments, its name first.
class Arguments {
 public:
  /// @param argv as main gets them; on Windows the system is asked for them in UTF-8
  Arguments(int argc, char** argv);

  [[nodiscard]] int count() const { return static_cast<int>(pointers_.size()); }
  [[nodiscard]] const char* const* values() const { return pointers_.data(); }

 private:
  std::vector<std::string> texts_;
  std::vector<const char*> pointers_;
};

/// Where the plug-in is, seen from the running program's folder: "../lib" in a build tree,
/// "../lib/listwright" where it is installed, and on Windows in that same folder.
std::string pluginBesideProgram();

/// Has bytes written as they are, and read as UTF-8 by a terminal. A standard file that is closed
/// is replaced by one without content, so that no file that is opened later takes its number.
void prepareOutput();

/// Lets bytes come in as they are.
/// @return all of standard input, where the system can show it as memory; otherwise it has to be
/// read
std::string_view prepareInput();

/// Whether anybody reads the standard output. Nobody does where a desktop has started the program:
/// there the output is discarded or goes to the system's log.
bool outputIsRead();

/// Whether a person reads the standard output.
bool outputIsTerminal();

/// Shows a problem in a window where there is no standard error, as when Explorer starts a program.
void showProblem(const std::string& problem);

}  // namespace hosts
