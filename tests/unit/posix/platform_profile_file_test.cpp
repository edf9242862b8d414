#include <gtest/gtest.h>

#include "platform/profile.h"
#include "platform_temporary_folder.h"
#include "posix/platform_other_process.h"

namespace kvrnstep::platform {
namespace {

TEST(ProfileFile, ADefaultIsHandedBackAsItIs) {
  const tests::TemporaryFolder folder;
  EXPECT_EQ(getPrivateProfileString("Sec", "Key", " d ", folder("ini")), " d ");
}

TEST(ProfileFile, AFileThatCannotBeReadIsNotReplaced) {
  const tests::TemporaryFolder folder;
  folder.put("ini", "[Other]\r\nKey=1\r\n");
  folder.setMode("", 0777);
  folder.setMode("ini", 0222);
  EXPECT_FALSE(tests::asOrdinaryUser(
      [&] { return writePrivateProfileString("Sec", "Key", "2", folder("ini")); }));
  folder.setMode("ini", 0644);
  EXPECT_EQ(folder.get("ini"), "[Other]\r\nKey=1\r\n");
}

}  // namespace
}  // namespace kvrnstep::platform
