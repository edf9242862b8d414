// The plug-in in a host with Qt that does not wait until the dialog has closed: it calls again,
// destroys windows, or ends.

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QListView>
#include <QPlainTextEdit>
#include <QPointer>
#include <QTest>
#include <QTimer>
#include <array>
#include <cstdlib>
#include <limits>
#include <new>
#include <thread>

#include "kvrnstep/listwright.hpp"
#include "program.h"
#include "temporary_folder.h"

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
    folder_.put("steps.ini", "[Listwright]\nDisplay=FilesPreview\n");
    folder_.put("Suffix_Step.dat", ")\n");
  }

  bool show() {
    std::string list = "before";
    const std::string steps = folder_.native("");
    const std::string settings = folder_.native("steps.ini");
    kvrnstep_dialog dialog = kvrnstep::kDialogDefaults;
    dialog.sPthStepFolder = steps.c_str();
    dialog.SEC_APP_NAME = "Listwright";
    dialog.s_IniPathAndName = settings.c_str();
    dialog.l_EditorBColor = kBlueGreenRed;
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

  static constexpr int kBlueGreenRed = 0x010203;
  // Each test has an application of its own, because a host may make and destroy several.
  int argc_ = 1;
  std::array<char*, 2> argv_{program_.data(), nullptr};
  const QApplication application_{argc_, argv_.data()};
  const kvrnstep::tests::TemporaryFolder folder_;
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
std::function<void(QWidget&)> key(const char* box, Qt::Key code, Qt::KeyboardModifier held = {}) {
  return [=](QWidget& dialog) {
    auto* widget = dialog.findChild<QWidget*>(box);
    widget->setFocus();
    QTest::keyClick(widget, code, held);
  };
}

TEST_F(QtHost, SeesTheDialogTakeItsMouseAndItsKeys) {
  call(nullptr, [] {
    QWidget& dialog = *front();
    auto* check = dialog.findChild<QAbstractButton*>("chkLWO(3)");
    QTest::mouseClick(check, Qt::LeftButton, {}, {check->width() - 2, check->height() / 2});
    EXPECT_FALSE(check->isChecked()) << "a click beside the caption counts";
    auto* combo = dialog.findChild<QComboBox*>("cboPreSuf(0)");
    QTest::keyClicks(combo->lineEdit(), "new");
    QTest::keyClick(combo->lineEdit(), Qt::Key_Return);
    EXPECT_EQ(combo->count(), 0) << "Enter makes no entry";
    when([] { return QApplication::activePopupWidget() != nullptr; },
         [] {
           ADD_FAILURE() << "the middle button opens a menu";
           QApplication::activePopupWidget()->close();
         });
    QTest::mouseClick(dialog.findChild<QListView*>("lstStepf")->viewport(), Qt::MiddleButton);
    EXPECT_EQ(dialog.findChild<QWidget*>("lblD(0)")->cursor().hotSpot(), QPoint(10, 1));
    EXPECT_EQ(dialog.findChild<QWidget*>("txtPreview")->palette().color(QPalette::Base),
              QColor(3, 2, 1));
    QTest::keyClick(&dialog, Qt::Key_Q, Qt::ControlModifier);
  });
}

TEST_F(QtHost, SeesAnEditorTakeItsMouseAndItsKeys) {
  call(key("lblD(0)", Qt::Key_Enter, Qt::KeypadModifier), [] {
    QWidget& editor = *front();
    auto* box = editor.findChild<QLineEdit*>("txtAdd");
    auto* macro = editor.findChild<QWidget*>("lblDrag(0)");
    QTest::mousePress(macro, Qt::LeftButton);
    QTest::mouseRelease(macro, Qt::RightButton);
    QTest::mouseRelease(macro, Qt::LeftButton, {},
                        macro->mapFrom(&editor, box->geometry().center()));
    EXPECT_EQ(box->text(), "{STEP_#}") << "another button does not end the drag";
    auto* add = editor.findChild<QWidget*>("cmdAdd");
    add->setFocus();
    QTest::mouseClick(add, Qt::LeftButton);
    EXPECT_EQ(editor.focusWidget(), box);
    EXPECT_EQ(box->text(), "");
    QApplication::closeAllWindows();
  });
}

TEST_F(QtHost, SeesEscapeCloseADropDownListOnly) {
  call(key("cboPreSuf(1)", Qt::Key_F4), [] {
    // The key was pressed before the list had the keyboard.
    QWidget* dialog = QApplication::activeModalWidget();
    QTest::keyClick(dialog->windowHandle(), Qt::Key_Escape);
    EXPECT_EQ(front(), dialog);
    QApplication::closeAllWindows();
  });
}

/// Shows the dialog with an application of its own, and ends the process when it is there: 1 for
/// dark windows, 0 for light ones.
void tellColors(const std::string& folder, const char* theme) {
  for (const auto& [name, value] : {std::pair<const char*, const char*>{"GTK_THEME", theme},
                                    {"XDG_CONFIG_HOME", folder.c_str()},
                                    {"DBUS_SESSION_BUS_ADDRESS", "unix:path=/dev/null"},
                                    {"QT_QPA_PLATFORMTHEME", "kept"}}) {
    ::setenv(name, value, 1);
  }
  qAddPreRoutine([] {
    when([] { return front() != nullptr && front()->isActiveWindow(); },
         [] {
           EXPECT_EQ(qgetenv("QT_QPA_PLATFORMTHEME"), "kept");
           const bool dark = QApplication::palette().window().color().lightness() < 128;
           std::_Exit(testing::Test::HasFailure() ? 2 : dark ? 1 : 0);
         });
  });
  kvrnstep_dialog dialog = kvrnstep::kDialogDefaults;
  dialog.sPthStepFolder = folder.c_str();
  std::string list;
  kvrnstep::Listwright::load(hosts::pluginBesideProgram()).ShowListwrightDialog(list, dialog);
}

// In processes that have had no application yet.
TEST(OwnApplicationDeathTest, IsDarkWhereTheDesktopIs) {
  const kvrnstep::tests::TemporaryFolder folder;
  create_directory(folder.path("gtk-3.0"));
  folder.put("gtk-3.0/settings.ini", "[Settings]\ngtk-application-prefer-dark-theme=true\n");
  for (const auto& [theme, dark] : {std::pair{"Adwaita:dark", 1}, {"Adwaita", 0}, {"", 1}}) {
    EXPECT_EXIT(tellColors(folder.native(""), theme), testing::ExitedWithCode(dark), "") << theme;
  }
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
      remove(folder_.path("Prefix_Step.dat"));
      call(use, end);
      EXPECT_TRUE(exists(folder_.path("Prefix_Step.dat")));
      EXPECT_EQ(front(), nullptr);
    }
  }
}

}  // namespace
