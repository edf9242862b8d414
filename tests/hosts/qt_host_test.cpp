// The plug-in in a host with Qt that does not wait until the dialog has closed: it calls again,
// destroys windows, or ends.

#include <gtest/gtest.h>

#include <QApplication>
#include <QPlainTextEdit>
#include <QPointer>
#include <QTest>
#include <QTimer>
#include <array>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <limits>
#include <new>
#include <thread>

#include "kvrnstep/listwright.hpp"
#include "program.h"

namespace {

constexpr std::size_t kNoLimit = std::numeric_limits<std::size_t>::max();
std::size_t largestObject = kNoLimit;

}  // namespace

/// Memory of the whole process, which runs out for large objects.
void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
  return size > largestObject ? nullptr : std::malloc(size);
}
void* operator new(std::size_t size) {
  void* memory = ::operator new(size, std::nothrow);
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}
void operator delete(void* memory) noexcept {
  std::free(memory);
}
void operator delete(void* memory, std::size_t /*size*/) noexcept {
  std::free(memory);
}

namespace {

/// Acts as soon as it can, in whatever loop runs then.
void when(std::function<bool()> ready, std::function<void()> act) {
  auto* timer = new QTimer(qApp);
  QObject::connect(timer, &QTimer::timeout, timer, [=] {
    if (!ready()) return;
    timer->stop();
    timer->deleteLater();
    act();
  });
  timer->start(0);
}

/// The dialog or what lies over it.
QWidget* front() {
  QWidget* popUp = QApplication::activePopupWidget();
  return popUp != nullptr ? popUp : QApplication::activeModalWidget();
}

class QtHost : public testing::Test {
  std::string program_ = "host";

 protected:
  QtHost() {
    std::filesystem::create_directory(folder_);
    std::ofstream(folder_ + "/steps.ini") << "[Listwright]\nDisplay=FilesPreview\n";
    std::ofstream(folder_ + "/Suffix_Step.dat") << ")\n";
  }
  ~QtHost() override { std::filesystem::remove_all(folder_); }

  bool show() {
    std::string list = "before";
    const std::string settings = folder_ + "/steps.ini";
    kvrnstep_dialog dialog = kvrnstep::kDialogDefaults;
    dialog.sPthStepFolder = folder_.c_str();
    dialog.SEC_APP_NAME = "Listwright";
    dialog.s_IniPathAndName = settings.c_str();
    const bool inserted = plugin_.ShowListwrightDialog(list, dialog);
    EXPECT_EQ(list, "");
    return inserted;
  }

  /// One call from the host's own loop. When the dialog is there it is used, and when that has
  /// brought something to the front, or nothing, the host acts.
  void call(const std::function<void(QWidget&)>& use, const std::function<void()>& act) {
    when([] { return front() != nullptr && front()->isActiveWindow(); },
         [=] {
           const QPointer<QWidget> dialog = front();
           when([=] { return use == nullptr || front() != dialog; }, act);
           if (use != nullptr) use(*dialog);
         });
    QTimer::singleShot(0, qApp, [this] {
      EXPECT_FALSE(show());
      QCoreApplication::exit();
    });
    QApplication::exec();
  }

  // Each test has an application of its own, because a host may make and destroy several.
  int argc_ = 1;
  std::array<char*, 2> argv_{program_.data(), nullptr};
  const QApplication application_{argc_, argv_.data()};
  const std::string folder_ =
      (std::filesystem::temp_directory_path() / ("qt-host-" + std::to_string(::getpid()))).string();
  const kvrnstep::Listwright plugin_ = kvrnstep::Listwright::load(hosts::pluginBesideProgram());
};

TEST_F(QtHost, IsShownTheOpenDialogWhenItCallsAgain) {
  call(nullptr, [this] {
    QWidget& dialog = *front();
    dialog.showMinimized();
    EXPECT_FALSE(show());
    EXPECT_TRUE(dialog.isVisible() && !dialog.isMinimized() && dialog.isActiveWindow());
    std::thread([this] { EXPECT_THROW(show(), std::runtime_error); }).join();
    QTest::keyClick(&dialog, Qt::Key_Q, Qt::ControlModifier);
  });
}

TEST_F(QtHost, LivesWhenMemoryRunsOut) {
  call(nullptr, [] {
    QWidget& dialog = *front();
    constexpr int kLong = 60000;
    dialog.findChild<QPlainTextEdit*>("txtBegin")->setPlainText(QString(kLong, u'x'));
    largestObject = kLong;
    auto* end = dialog.findChild<QWidget*>("txtBEndAt");
    end->setFocus();
    QTest::keyClick(end, Qt::Key_1);
    EXPECT_TRUE(dialog.isVisible()) << "the preview stays as it was, and that is all";
    QTest::mouseClick(dialog.findChild<QWidget*>("cmdCIC(0)"), Qt::LeftButton);
    EXPECT_EQ(front(), nullptr);
    largestObject = kNoLimit;
  });
  call(nullptr, [] { QTest::keyClick(front(), Qt::Key_Q, Qt::ControlModifier); });
}

/// A key in one of the dialog's boxes.
std::function<void(QWidget&)> key(const char* box, Qt::Key code) {
  return [=](QWidget& dialog) {
    auto* widget = dialog.findChild<QWidget*>(box);
    widget->setFocus();
    QTest::keyClick(widget, code);
  };
}

const auto kUses = std::to_array<std::pair<const char*, std::function<void(QWidget&)>>>({
    {"the dialog", nullptr},
    {"a menu", [](QWidget& dialog) { QTest::keyClick(&dialog, Qt::Key_E, Qt::AltModifier); }},
    {"an editor", key("lblD(0)", Qt::Key_Space)},
    {"the storage",
     [](QWidget& dialog) {
       QTest::keyClick(&dialog, Qt::Key_E, Qt::AltModifier);
       QTest::keyClick(front(), Qt::Key_Up);
       QTest::keyClick(front(), Qt::Key_Return);
     }},
    {"a question", key("txtBEndAt", Qt::Key_F4)},
    {"a message", key("txtBEndAt", Qt::Key_Delete)},
    {"a file dialog",
     [](QWidget& dialog) { QTest::keyClick(&dialog, Qt::Key_S, Qt::ControlModifier); }},
    {"a pop-up menu", key("lstStepf", Qt::Key_Menu)},
    {"a drop-down list", key("cboPreSuf(1)", Qt::Key_F4)},
});

const auto kEndings = std::to_array<std::pair<const char*, void (*)()>>({
    {"destroyed",
     [] {
       QWidgetList windows = QApplication::topLevelWidgets();
       windows.removeIf([](QWidget* window) { return window->parentWidget() != nullptr; });
       qDeleteAll(windows);
     }},
    {"closed", [] { QApplication::closeAllWindows(); }},
    {"quit", [] { QCoreApplication::quit(); }},
    {"ended", [] { QCoreApplication::exit(); }},
});

TEST_F(QtHost, HasTheDialogCloseWhateverHappens) {
  for (const auto& [what, use] : kUses) {
    for (const auto& [how, end] : kEndings) {
      SCOPED_TRACE(std::string(what) + ", " + how);
      std::filesystem::remove(folder_ + "/Prefix_Step.dat");
      call(use, end);
      EXPECT_TRUE(std::filesystem::exists(folder_ + "/Prefix_Step.dat"));
      EXPECT_EQ(front(), nullptr);
    }
  }
}

}  // namespace
