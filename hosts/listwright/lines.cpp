#include "lines.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <new>
#include <stdexcept>
#include <string_view>

#include "file_names.h"
#include "printing.h"

namespace listwright {

namespace {

// NOLINTBEGIN(cppcoreguidelines-no-malloc,cppcoreguidelines-owning-memory)
/// All of standard input. `realloc` moves a large text without a copy when it needs more room.
class Input {
 public:
  Input() : text_(hosts::prepareInput()) {
    if (!text_.empty()) return;
    constexpr std::size_t kLeastRoom = std::size_t{64} * 1024;
    std::size_t size = 0;
    for (std::size_t room = 0; size == room;) {
      room = std::max(kLeastRoom, 2 * room);
      auto* larger = static_cast<char*>(std::realloc(bytes_.get(), room));
      if (larger == nullptr) throw std::bad_alloc();
      static_cast<void>(bytes_.release());
      bytes_.reset(larger);
      size += std::fread(larger + size, 1, room - size, stdin);
    }
    if (std::ferror(stdin) != 0) throw std::runtime_error("cannot read standard input");
    text_ = {bytes_.get(), size};
  }

  [[nodiscard]] std::string_view text() const { return text_; }

 private:
  struct Free {
    void operator()(char* bytes) const { std::free(bytes); }
  };
  std::unique_ptr<char, Free> bytes_;
  std::string_view text_;
};
// NOLINTEND(cppcoreguidelines-no-malloc,cppcoreguidelines-owning-memory)

/// Takes a piece of the text; a null pointer is the end.
int write(void* problem, const char* piece, std::size_t size) {
  errno = 0;
  const bool written =
      piece != nullptr ? std::fwrite(piece, 1, size, stdout) == size : std::fflush(stdout) == 0;
  if (!written) *static_cast<int*>(problem) = errno != 0 ? errno : EIO;
  return written ? 0 : 1;
}

/// Whether nobody reads the text any more. On Windows the only error for that is EINVAL.
bool isClosedPipe(int problem) {
#ifdef _WIN32
  return problem == EPIPE || problem == EINVAL;
#else
  return problem == EPIPE;
#endif
}

}  // namespace

bool changeLines(const Options& options) {
  kvrnstep_lines lines = options.lines;
  std::string file;
  if (!options.files.empty()) {
    file = foundStepFile(options.files.front(), options.dialog.sPthStepFolder);
    requireUtf8(file);
    lines.step_file = file.c_str();
  }
  int problem = 0;
  if (!hosts::outputIsTerminal()) {
    lines.take = write;
    lines.context = &problem;
  }
  const Input input;
  if (options.describesLabels) lines.list = &options.described;
  char* changed = nullptr;
  std::size_t size = 0;
  const int result =
      options.change(&lines, input.text().data(), input.text().size(), &changed, &size);
  const std::string text(changed, changed == nullptr ? 0 : size);
  kvrnstep_free(changed);
  if (result == KVRNSTEP_NO_LABEL) {
    complain(text);
    return false;
  }
  if (problem == 0 && result != KVRNSTEP_DONE)
    throw std::runtime_error(whyNoStepFile(result, file, options.dialog.sPthStepFolder));
  if (lines.take == nullptr) print(text, {.exact = true});
  if (problem == 0) write(&problem, nullptr, 0);
  if (problem != 0 && !isClosedPipe(problem)) throw std::runtime_error("cannot write the text");
  return true;
}

}  // namespace listwright
