#pragma once

#include <fuzzer/FuzzedDataProvider.h>

#include <string>

#include "generator/list_settings.h"

/// What the fuzz targets share.
namespace kvrnstep::fuzz {

/// Ends the program with a message where something that must hold does not, so that the input is
/// kept as a fault.
void check(bool holds, const char* what);

/// Up to that many UTF-16 units of any kind, halves of surrogate pairs included. ASCII is as
/// likely as all the rest.
std::u16string anyText(FuzzedDataProvider& input, std::size_t most);

/// A setup with texts of up to that many units. Half of the setups hold the numbers that the
/// dialog allows, the others any.
generator::ListSettings anySettings(FuzzedDataProvider& input, std::size_t longestText);

}  // namespace kvrnstep::fuzz
