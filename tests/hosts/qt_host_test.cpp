// The plug-in in a host with Qt that does not wait until the dialog has closed: it calls again,
// destroys windows, or ends.

#include <gtest/gtest.h>

#include <QApplication>
#include <QPointer>
#include <QTest>
#include <QTimer>
#include <filesystem>
#include <fstream>
#include <thread>

#include "kvrnstep/listwright.hpp"
#include "program.h"

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

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  const QApplication application(argc, argv);
  return RUN_ALL_TESTS();
}
