#include "program.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <filesystem>
#include <string_view>

namespace hosts {

namespace {

bool isSystemLog(int socket) {
  sockaddr_un other{};
  socklen_t size = sizeof other;
  return getpeername(socket, reinterpret_cast<sockaddr*>(&other), &size) == 0 &&
         other.sun_family == AF_UNIX &&
         std::string_view(&other.sun_path[0]).starts_with("/run/systemd/journal/");
}

}  // namespace

Arguments::Arguments(int argc, char** argv) : texts_(argv, argv + argc) {
  for (const std::string& text : texts_) pointers_.push_back(text.c_str());
}

std::string pluginBesideProgram() {
  std::error_code failed;
  const auto program = std::filesystem::read_symlink("/proc/self/exe", failed);
  const auto libraries = program.parent_path().parent_path() / "lib";
  auto built = libraries / "libkvrnstep.so.2";
  if (std::filesystem::exists(built, failed)) return built;
  return libraries / "listwright" / "libkvrnstep.so.2";
}

void prepareOutput() {
  int file = STDIN_FILENO;
  while (file >= STDIN_FILENO && file <= STDERR_FILENO) file = open("/dev/null", O_RDONLY);
  close(file);
}

std::string_view prepareInput() {
  struct stat input {};
  const off_t begin = lseek(STDIN_FILENO, 0, SEEK_CUR);
  if (fstat(STDIN_FILENO, &input) != 0 || !S_ISREG(input.st_mode)) return {};
  if (begin < 0 || begin >= input.st_size) return {};
  const auto size = static_cast<std::size_t>(input.st_size);
  const void* bytes = mmap(nullptr, size, PROT_READ, MAP_PRIVATE, STDIN_FILENO, 0);
  if (bytes == MAP_FAILED) return {};
  lseek(STDIN_FILENO, 0, SEEK_END);
  return std::string_view(static_cast<const char*>(bytes), size)
      .substr(static_cast<std::size_t>(begin));
}

bool outputIsRead() {
  struct stat output {};
  if (fstat(STDOUT_FILENO, &output) != 0) return false;
  if (S_ISSOCK(output.st_mode)) return !isSystemLog(STDOUT_FILENO);
  return !S_ISCHR(output.st_mode) || outputIsTerminal();
}

bool outputIsTerminal() {
  return isatty(STDOUT_FILENO) != 0;
}

void showProblem(const std::string& /*problem*/) {}

}  // namespace hosts
