#include <dlfcn.h>

#include <cstdio>
#include <fstream>
#include <iterator>
#include <string>

#include "print_service.h"

/// print_file MODULE FILE: prints the file as it stands; 0 when the printing service took it, 1
/// when it did not, 2 when it could not be asked.
int main(int count, char** arguments) {
  if (count != 3) {
    std::fputs("print_file MODULE FILE\n", stderr);
    return 2;
  }
  void* module = dlopen(arguments[1], RTLD_NOW | RTLD_LOCAL);
  auto* print = module == nullptr
                    ? nullptr
                    : reinterpret_cast<decltype(&kvrnstepPrint)>(dlsym(module, "kvrnstepPrint"));
  if (print == nullptr) {
    std::fprintf(stderr, "%s\n", dlerror());
    return 2;
  }
  std::ifstream file(arguments[2], std::ios::binary);
  const std::string text(std::istreambuf_iterator<char>(file), {});
  if (!file) {
    std::fprintf(stderr, "%s cannot be read\n", arguments[2]);
    return 2;
  }
  return print(text.data(), text.size()) ? 0 : 1;
}
