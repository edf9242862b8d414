#include "color_scheme.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QSettings>
#include <QStandardPaths>

#include "looks.h"

namespace kvrnstep::qt {

namespace {

constexpr const char* kPortal = "org.freedesktop.portal.Desktop";
constexpr const char* kPortalPath = "/org/freedesktop/portal/desktop";
constexpr const char* kSettings = "org.freedesktop.portal.Settings";
const QString kAppearance = QStringLiteral("org.freedesktop.appearance");

/// The value without the variants around it, because each program that passes it on may add one.
QVariant unwrapped(QVariant value) {
  while (value.canConvert<QDBusVariant>()) value = value.value<QDBusVariant>().variant();
  return value;
}

/// The portal's settings of this kind. None where no portal runs; none is started.
QVariantMap appearanceByPortal() {
  constexpr int kMilliseconds = 200;
  const QDBusConnection bus = QDBusConnection::sessionBus();
  if (!bus.isConnected()) return {};
  QDBusMessage question =
      QDBusMessage::createMethodCall(kPortal, kPortalPath, kSettings, "ReadAll");
  question << QStringList{kAppearance};
  question.setAutoStartService(false);
  const QDBusMessage answer = bus.call(question, QDBus::Block, kMilliseconds);
  if (answer.type() != QDBusMessage::ReplyMessage || answer.arguments().isEmpty()) return {};
  const auto all = qdbus_cast<QMap<QString, QVariantMap>>(answer.arguments().constFirst());
  return all.value(kAppearance);
}

/// Three numbers from 0 to 1; anything else is not a colour.
QColor accentOf(const QVariant& value) {
  const auto argument = value.value<QDBusArgument>();
  if (argument.currentSignature() != QLatin1String("(ddd)")) return {};
  double red = -1;
  double green = -1;
  double blue = -1;
  argument.beginStructure();
  argument >> red >> green >> blue;
  argument.endStructure();
  const auto isShare = [](double share) { return share >= 0 && share <= 1; };
  return isShare(red) && isShare(green) && isShare(blue)
             ? QColor::fromRgbF(static_cast<float>(red), static_cast<float>(green),
                                static_cast<float>(blue))
             : QColor();
}

ColorScheme schemeOfTheme(const QString& name) {
  return {.dark = name.endsWith("-dark", Qt::CaseInsensitive) || name.endsWith(":dark") ||
                  name == "HighContrastInverse",
          .highContrast = name.startsWith("HighContrast")};
}

ColorScheme schemeOfGtkSettings() {
  const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
  const QString file = folder + "/gtk-3.0/settings.ini";
  QSettings settings(file, QSettings::IniFormat);
  settings.beginGroup("Settings");
  ColorScheme scheme = schemeOfTheme(settings.value("gtk-theme-name").toString());
  const QString wish = settings.value("gtk-application-prefer-dark-theme").toString();
  scheme.dark = scheme.dark || wish == "1" || wish == "true";
  return scheme;
}

/// The colours of a palette from which all others are made.
struct Colors {
  QRgb window;
  QRgb base;
  QRgb button;
  QRgb text;
  QRgb faded;  ///< texts that are disabled or a hint
  QRgb accent;
};
constexpr Colors kLight{0xEFEFEF, 0xFFFFFF, 0xEFEFEF, 0x000000, 0x6A6A6A, 0x1D62B0};
constexpr Colors kDark{0x3A3A3A, 0x1C1C1C, 0x4A4A4A, 0xF0F0F0, 0xA8A8A8, 0x2B70BD};
constexpr Colors kLightContrast{0xFFFFFF, 0xFFFFFF, 0xFFFFFF, 0x000000, 0x595959, 0x003E9C};
constexpr Colors kDarkContrast{0x000000, 0x000000, 0x000000, 0xFFFFFF, 0xB0B0B0, 0x7CC0FF};

}  // namespace

ColorScheme desktopScheme() {
  if (const QString theme = qEnvironmentVariable("GTK_THEME"); !theme.isEmpty()) {
    return schemeOfTheme(theme);
  }
  constexpr unsigned kPrefersDark = 1;
  constexpr unsigned kPrefersLight = 2;
  const QVariantMap portal = appearanceByPortal();
  const unsigned dark = unwrapped(portal.value("color-scheme")).toUInt();
  ColorScheme scheme = schemeOfGtkSettings();
  if (dark == kPrefersDark || dark == kPrefersLight) scheme.dark = dark == kPrefersDark;
  if (portal.contains("contrast")) {
    scheme.highContrast = unwrapped(portal.value("contrast")).toUInt() == 1;
  }
  scheme.accent = accentOf(unwrapped(portal.value("accent-color")));
  return scheme;
}

void ringWhenDesktopChanges(QTimer& bell) {
  QDBusConnection::sessionBus().connect(kPortal, kPortalPath, kSettings, "SettingChanged", &bell,
                                        SLOT(start()));
}

QPalette paletteOf(const ColorScheme& scheme) {
  const Colors& colors = scheme.highContrast ? scheme.dark ? kDarkContrast : kLightContrast
                         : scheme.dark       ? kDark
                                             : kLight;
  const QColor button(colors.button);
  const QColor text(colors.text);
  const QColor accent = scheme.accent.isValid() ? scheme.accent : QColor(colors.accent);
  const QColor outlines = scheme.highContrast ? text : button.darker(150);
  QPalette palette(text, button, button.lighter(150), outlines, button.darker(115), text, Qt::white,
                   QColor(colors.base), QColor(colors.window));
  palette.setColor(QPalette::Midlight, button.lighter(115));
  palette.setColor(QPalette::AlternateBase, mixed(QColor(colors.base), QColor(colors.window), 30));
  palette.setColor(QPalette::Shadow, QColor(20, 20, 20));
  palette.setColor(QPalette::Highlight, accent);
  palette.setColor(QPalette::HighlightedText, textOn(accent));
  palette.setColor(QPalette::Link, shadesOf(palette).link);
  palette.setColor(QPalette::LinkVisited, shadesOf(palette).link);
  palette.setColor(QPalette::ToolTipBase, mixed(button, text, 6));
  palette.setColor(QPalette::ToolTipText, text);
  palette.setColor(QPalette::PlaceholderText, QColor(colors.faded));
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    palette.setColor(QPalette::Disabled, role, QColor(colors.faded));
  }
  palette.setColor(QPalette::Disabled, QPalette::Base, QColor(colors.window));
  palette.setColor(QPalette::Disabled, QPalette::Highlight, mixed(QColor(colors.window), text, 20));
  palette.setColor(QPalette::Disabled, QPalette::HighlightedText, text);
  return palette;
}

}  // namespace kvrnstep::qt
