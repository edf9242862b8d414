#include <dlfcn.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <exception>
#include <filesystem>

#include "platform/module.h"
#include "platform_temporary_folder.h"

namespace kvrnstep::platform {
namespace {

TEST(Module, FolderIsThatOfTheLoadedFileWhateverTheWorkingFolder) {
  const auto program = std::filesystem::read_symlink("/proc/self/exe");
  const auto before = std::filesystem::current_path();
  std::filesystem::current_path("/");
  EXPECT_EQ(text::toBytes(moduleFolder()), program.parent_path().string());
  std::filesystem::current_path(before);
}

TEST(Module, LoadsByFullPath) {
  Dl_info library{};
  const auto* exported = reinterpret_cast<const void*>(&std::terminate);
  if (::dladdr(exported, &library) == 0 || library.dli_fname[0] != '/') GTEST_SKIP();
  std::string problem;
  void* module = loadModule(text::fromBytes(library.dli_fname), problem);
  ASSERT_NE(module, nullptr) << problem;
  EXPECT_EQ(problem, "");
  EXPECT_NE(symbolOf(module, "_ZSt9terminatev"), nullptr);
  EXPECT_EQ(symbolOf(module, "no such symbol"), nullptr);
}

TEST(Module, SaysWhyItCannotBeLoaded) {
  const tests::TemporaryFolder folder;
  folder.put("text.so", "no module");
  // The system would find the first one by itself.
  for (const auto& path : {std::u16string(u"libc.so.6"), std::u16string(u"./text.so"),
                           std::u16string(), folder("text.so"), folder("missing.so")}) {
    std::string problem;
    EXPECT_EQ(loadModule(path, problem), nullptr);
    EXPECT_NE(problem, "");
  }
}

}  // namespace
}  // namespace kvrnstep::platform
