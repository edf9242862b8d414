# Writes the icon files of a folder as a source file: cmake -D ICONS=… -D OUTPUT=… -P embed_icons.cmake
file(GLOB files ${ICONS}/icon-*.ico)
set(arrays "")
set(rows "")
foreach(file IN LISTS files)
  get_filename_component(name ${file} NAME_WE)
  string(REGEX MATCH "[0-9]+$" number ${name})
  file(READ ${file} bytes HEX)
  string(REGEX REPLACE "([0-9a-f][0-9a-f])" "0x\\1," bytes ${bytes})
  string(APPEND arrays "constexpr unsigned char kIcon${number}[] = {${bytes}};\n")
  string(APPEND rows "    case ${number}:\n      return asText(kIcon${number});\n")
endforeach()
file(WRITE ${OUTPUT} "#include \"platform/module.h\"

#include <cstddef>

namespace kvrnstep::platform {

namespace {

${arrays}
template <std::size_t Size>
std::string_view asText(const unsigned char (&bytes)[Size]) {
  return {reinterpret_cast<const char*>(bytes), Size};
}

}  // namespace

std::optional<std::string_view> iconFile(int number) {
  switch (number) {
${rows}    default:
      return std::nullopt;
  }
}

}  // namespace kvrnstep::platform
")
