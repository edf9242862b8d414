#include "plugin/host_context.h"

#include <gtest/gtest.h>

#include <condition_variable>
#include <mutex>
#include <new>
#include <thread>

#include "driving/script_stage.h"
#include "headless_toolkit.h"
#include "platform_temporary_folder.h"
#include "plugin/listwright.h"

namespace kvrnstep::plugin {

namespace {

/// Where two threads wait for each other, more than once. std::barrier of the cross compiler for
/// Windows hangs now and then.
class Meetings {
 public:
  void arriveAndWait() {
    std::unique_lock lock(mutex_);
    const int complete = arrived_ / 2 * 2 + 2;
    ++arrived_;
    bothAreThere_.notify_one();
    bothAreThere_.wait(lock, [&] { return arrived_ >= complete; });
  }

 private:
  std::mutex mutex_;
  std::condition_variable bothAreThere_;
  int arrived_ = 0;
};

/// One thread's call with a section, a folder and a settings file of its own. The first one ends
/// with an exception.
class Call : driving::Player {
 public:
  /// @param meetings of the two threads: both dialogs are open, the first one has returned
  Call(std::u16string section, bool first, Meetings& meetings)
      : section_(std::move(section)), first_(first), meetings_(meetings) {}

  void run() {
    driving::ScriptStage stage(toolkit_, *this);
    stage_ = &stage;
    std::u16string list;
    try {
      Listwright::ShowListwrightDialog(&stage, list,
                                       {.sPthStepFolder = folder_(""),
                                        .SEC_APP_NAME = section_,
                                        .s_IniPathAndName = folder_("steps.ini")});
    } catch (const std::bad_alloc&) {
      EXPECT_TRUE(first_);
    }
    EXPECT_EQ(hostContext().SEC_APP_NAME, u"");
    if (first_) meetings_.arriveAndWait();
  }

  [[nodiscard]] std::string settings() const { return folder_.get("steps.ini"); }

 private:
  void act() override {
    meetings_.arriveAndWait();
    if (!first_) meetings_.arriveAndWait();
    EXPECT_EQ(hostContext().SEC_APP_NAME, section_);
    stage_->closeTopmost();
    if (first_) throw std::bad_alloc();
  }

  const tests::TemporaryFolder folder_;
  const std::u16string section_;
  const bool first_;
  Meetings& meetings_;
  headless::HeadlessToolkit toolkit_;
  driving::ScriptStage* stage_ = nullptr;
};

TEST(HostContext, IsNotSharedByTwoThreadsAndIsEmptiedHoweverACallEnds) {
  Meetings meetings;
  Call first(u"First", true, meetings);
  Call second(u"Second", false, meetings);
  std::thread other([&] { first.run(); });
  second.run();
  other.join();
  EXPECT_TRUE(first.settings().starts_with("[First]\r\nDisplay=")) << first.settings();
  EXPECT_TRUE(second.settings().starts_with("[Second]\r\nDisplay=")) << second.settings();
}

}  // namespace

}  // namespace kvrnstep::plugin
