// play_sound MODULE: plays what standard input names line by line, MODE:FILE, and ends with it.
#include <dlfcn.h>

#include <cstdio>
#include <iostream>
#include <string>

int main(int argc, char** argv) {
  using PlaySound = void(const char* path, int giveWay);

  if (argc < 2) return 2;
  void* module = dlopen(argv[1], RTLD_NOW | RTLD_LOCAL);
  if (module == nullptr) {
    std::fprintf(stderr, "%s\n", dlerror());
    return 2;
  }
  auto* play = reinterpret_cast<PlaySound*>(dlsym(module, "kvrnstepPlaySound"));
  if (play == nullptr) return 2;

  for (std::string line; std::getline(std::cin, line);) {
    if (line.size() < 3) return 2;
    play(line.c_str() + 2, line[0] - '0');
  }
  return 0;
}
