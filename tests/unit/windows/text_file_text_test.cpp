#include <gtest/gtest.h>
#include <windows.h>

#include "platform/profile.h"
#include "platform_temporary_folder.h"
#include "text/codepage.h"
#include "text/windows/ansi.h"

namespace kvrnstep::text {
namespace {

/// The bytes below are those of Western Europe.
class FileText : public testing::Test {
 protected:
  void SetUp() override {
    if (::GetACP() != 1252) GTEST_SKIP() << "the system has code page " << ::GetACP();
  }
};

TEST_F(FileText, InTheCodePageWhereAllOfItFits) {
  EXPECT_EQ(toBytes(u"Größe 5 €"),
            "Gr\xF6\xDF"
            "e 5 \x80");
  EXPECT_EQ(toBytes(u"Größe 5 €, \u4E00"), toUtf8(u"Größe 5 €, \u4E00"));
  // These would be taken for UTF-8, or come back as a letter that merely looks alike.
  EXPECT_EQ(toBytes(u"Ã©"), toUtf8(u"Ã©"));
  EXPECT_EQ(toBytes(u"\u0100"), toUtf8(u"\u0100"));
  EXPECT_EQ(toAnsi(u"\u0100"), std::nullopt);
  EXPECT_EQ(fromAnsi("\xC3\xA9 \x80\x81"), u"Ã© €\u0081");
}

// The system's functions would look for a name alone in the system's folder, and could not be
// given some of these paths.
TEST_F(FileText, SettingsFilesOfEveryName) {
  const tests::TemporaryFolder folder;
  const auto before = std::filesystem::current_path();
  std::filesystem::current_path(folder.native(""));
  const std::u16string longName(200, u'n');
  for (const auto& name : {std::u16string(u"steps.ini"), std::u16string(u".\\\u4E00.ini"),
                           folder(std::string(150, 'm')) + longName.substr(0, 50)}) {
    EXPECT_TRUE(platform::writePrivateProfileString("Sec", "K", "v\x81\xE9", name));
    EXPECT_EQ(platform::getPrivateProfileString("sec", "k", "", name), "v\x81\xE9");
  }
  EXPECT_EQ(folder.names().size(), 3U);
  std::filesystem::current_path(before);
}

}  // namespace
}  // namespace kvrnstep::text
