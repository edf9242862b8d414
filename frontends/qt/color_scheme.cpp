#include "color_scheme.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QGuiApplication>
#include <QSettings>
#include <QStandardPaths>
#include <optional>

namespace kvrnstep::qt {

namespace {

constexpr const char* kPortal = "org.freedesktop.portal.Desktop";
constexpr const char* kPortalPath = "/org/freedesktop/portal/desktop";
constexpr const char* kSettings = "org.freedesktop.portal.Settings";

/// The value itself: each program that has passed it on may have packed it into another variant.
QVariant unwrapped(QVariant value) {
  while (value.canConvert<QDBusVariant>()) value = value.value<QDBusVariant>().variant();
  return value;
}

/// Nothing where no portal runs; none is started.
std::optional<bool> darkByPortal() {
  constexpr int kMilliseconds = 200;
  constexpr unsigned kPrefersDark = 1;
  constexpr unsigned kPrefersLight = 2;
  const QDBusConnection bus = QDBusConnection::sessionBus();
  if (!bus.isConnected()) return std::nullopt;
  QDBusMessage question = QDBusMessage::createMethodCall(kPortal, kPortalPath, kSettings, "Read");
  question << "org.freedesktop.appearance"
           << "color-scheme";
  question.setAutoStartService(false);
  const QDBusMessage answer = bus.call(question, QDBus::Block, kMilliseconds);
  if (answer.type() != QDBusMessage::ReplyMessage || answer.arguments().isEmpty()) {
    return std::nullopt;
  }
  const unsigned scheme = unwrapped(answer.arguments().constFirst()).toUInt();
  if (scheme != kPrefersDark && scheme != kPrefersLight) return std::nullopt;
  return scheme == kPrefersDark;
}

bool isDarkTheme(const QString& name) {
  return name.endsWith("-dark", Qt::CaseInsensitive) || name.endsWith(":dark");
}

bool darkByGtkSettings() {
  const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
  const QString file = folder + "/gtk-3.0/settings.ini";
  QSettings settings(file, QSettings::IniFormat);
  settings.beginGroup("Settings");
  const QString wish = settings.value("gtk-application-prefer-dark-theme").toString();
  return wish == "1" || wish == "true" || isDarkTheme(settings.value("gtk-theme-name").toString());
}

/// Sets the colour of disabled texts, because that of the style can hardly be read.
void fadeDisabled(QPalette& palette, const QColor& faded) {
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    palette.setColor(QPalette::Disabled, role, faded);
  }
}

}  // namespace

bool desktopIsDark() {
  if (const QString theme = qEnvironmentVariable("GTK_THEME"); !theme.isEmpty()) {
    return isDarkTheme(theme);
  }
  if (const auto dark = darkByPortal()) return *dark;
  return darkByGtkSettings();
}

void ringWhenDesktopChanges(QTimer& bell) {
  QDBusConnection::sessionBus().connect(kPortal, kPortalPath, kSettings, "SettingChanged", &bell,
                                        SLOT(start()));
}

QPalette lightPalette() {
  QPalette palette = QGuiApplication::palette();
  fadeDisabled(palette, QColor(140, 140, 140));
  return palette;
}

QPalette darkPalette() {
  const QColor ground(58, 58, 58);
  const QColor text(240, 240, 240);
  const QColor faded(145, 145, 145);
  const QColor button(74, 74, 74);
  QPalette palette(text, button, button.lighter(150), button.darker(150), button.darker(115), text,
                   Qt::white, QColor(28, 28, 28), ground);
  palette.setColor(QPalette::Midlight, button.lighter(115));
  palette.setColor(QPalette::AlternateBase, QColor(36, 36, 36));
  palette.setColor(QPalette::Shadow, QColor(20, 20, 20));
  palette.setColor(QPalette::Highlight, QColor(48, 140, 198));
  palette.setColor(QPalette::HighlightedText, Qt::white);
  palette.setColor(QPalette::Link, QColor(100, 181, 246));
  palette.setColor(QPalette::LinkVisited, QColor(186, 147, 216));
  palette.setColor(QPalette::ToolTipBase, QColor(70, 70, 70));
  palette.setColor(QPalette::ToolTipText, text);
  palette.setColor(QPalette::PlaceholderText, faded);
  fadeDisabled(palette, faded);
  palette.setColor(QPalette::Disabled, QPalette::Base, ground);
  palette.setColor(QPalette::Disabled, QPalette::Highlight, QColor(90, 90, 90));
  palette.setColor(QPalette::Disabled, QPalette::HighlightedText, faded);
  return palette;
}

}  // namespace kvrnstep::qt
