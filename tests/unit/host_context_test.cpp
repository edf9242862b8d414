#include "plugin/host_context.h"

#include <gtest/gtest.h>

#include <functional>
#include <new>
#include <thread>

#include "headless_toolkit.h"
#include "plugin/listwright.h"
#include "temporary_folder.h"

namespace kvrnstep::plugin {

namespace {

/// A call that something happens in while its dialog is open, and that ends with an exception.
class Call : driving::Player {
 public:
  Call(std::u16string section, std::function<void()> meanwhile)
      : section_(std::move(section)), meanwhile_(std::move(meanwhile)) {}

  void run() {
    headless::HeadlessToolkit toolkit;
    toolkit.setPlayer(*this);
    std::u16string list;
    EXPECT_THROW(Listwright::ShowListwrightDialog(&toolkit, list,
                                                  {.SEC_APP_NAME = section_,
                                                   .sPthStepFolder = folder_(""),
                                                   .s_IniPathAndName = folder_("steps.ini")}),
                 std::bad_alloc);
    EXPECT_EQ(hostContext().SEC_APP_NAME, u"") << "it is emptied however the call ends";
  }

 private:
  void act() override {
    meanwhile_();
    EXPECT_EQ(hostContext().SEC_APP_NAME, section_);
    throw std::bad_alloc();
  }

  const tests::TemporaryFolder folder_;
  const std::u16string section_;
  const std::function<void()> meanwhile_;
};

TEST(HostContext, IsNotSharedByTwoThreads) {
  Call second(u"Second", [] {});
  Call first(u"First", [&] { std::thread([&] { second.run(); }).join(); });
  first.run();
}

}  // namespace

}  // namespace kvrnstep::plugin
