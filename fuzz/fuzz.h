#pragma once

#include <fuzzer/FuzzedDataProvider.h>

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

#include "generator/list_settings.h"

/// What the fuzz targets share.
namespace kvrnstep::fuzz {

/// Ends the program with a message where something that must hold does not, so that the input is
/// kept as a fault.
void check(bool holds, const char* what);

std::string_view bytesOf(const std::uint8_t* data, std::size_t size);

/// Up to that many UTF-16 units of any kind, halves of surrogate pairs included. ASCII is as
/// likely as all the rest.
std::u16string anyText(FuzzedDataProvider& input, std::size_t most);

/// A setup with texts of up to that many units. Half of the setups hold the numbers that the
/// dialog allows, the others any.
generator::ListSettings anySettings(FuzzedDataProvider& input, std::size_t longestText);

/// A folder of the process's own below TMPDIR; gone at the end, but not after a fault.
class ScratchFolder {
 public:
  ScratchFolder();
  ~ScratchFolder();
  ScratchFolder(const ScratchFolder&) = delete;
  ScratchFolder& operator=(const ScratchFolder&) = delete;

  [[nodiscard]] const std::filesystem::path& path() const { return path_; }
  [[nodiscard]] std::u16string file(std::string_view name) const;

 private:
  std::filesystem::path path_;
};

void writeBytes(const std::u16string& file, std::string_view bytes);
/// Nothing of what is no file.
std::string readBytes(const std::u16string& file);

}  // namespace kvrnstep::fuzz
