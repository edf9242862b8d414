#pragma once

#include <string>

/// Names of files as the command line and the environment bring them.
namespace listwright {

/// The step file that a user means: in the working folder or in the step folder, named with or
/// without ".step". A name that is found nowhere is returned as it is.
std::string foundStepFile(const std::string& name, const std::string& stepFolder);

/// The plug-in takes names in UTF-8 only and would use another file for any other name.
/// @throws std::runtime_error for such a name
void requireUtf8(const std::string& name);

/// The full path of the folder that a file is in.
std::string folderOf(const std::string& name);

/// Why there is no list.
/// @param result what the C interface returned
std::string whyNoList(int result);
/// Why a step file gave nothing.
std::string whyNoStepFile(int result, const std::string& name, const std::string& stepFolder);
/// Why a file cannot be written.
std::string whyUnwritable(const std::string& name);

}  // namespace listwright
