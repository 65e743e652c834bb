#include "desktop/appearance.h"

#include <QApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QPalette>
#include <QScreen>
#include <QTranslator>
#include <QWidget>

#include "desktop/OfficeStyle.h"

namespace pactora::desktop {
namespace {

struct RoleColor {
  QPalette::ColorRole role;
  QRgb color;
};

constexpr RoleColor kLight[] = {{QPalette::Window, 0xFFF3F4F6},
                                {QPalette::WindowText, 0xFF1B1D21},
                                {QPalette::Base, 0xFFFFFFFF},
                                {QPalette::AlternateBase, 0xFFF3F4F6},
                                {QPalette::Text, 0xFF1B1D21},
                                {QPalette::Button, 0xFFECEEF1},
                                {QPalette::ButtonText, 0xFF1B1D21},
                                {QPalette::ToolTipBase, 0xFFFFFFFF},
                                {QPalette::ToolTipText, 0xFF1B1D21},
                                {QPalette::Highlight, 0xFF2F6DB5},
                                {QPalette::HighlightedText, 0xFFFFFFFF},
                                {QPalette::Link, 0xFF1F5FA8},
                                {QPalette::PlaceholderText, 0xFF6B7079}};

constexpr RoleColor kDark[] = {{QPalette::Window, 0xFF2B2D31},
                               {QPalette::WindowText, 0xFFE8E9EB},
                               {QPalette::Base, 0xFF3A3D43},
                               {QPalette::AlternateBase, 0xFF33363B},
                               {QPalette::Text, 0xFFE8E9EB},
                               {QPalette::Button, 0xFF484C54},
                               {QPalette::ButtonText, 0xFFE8E9EB},
                               {QPalette::ToolTipBase, 0xFF3A3D43},
                               {QPalette::ToolTipText, 0xFFE8E9EB},
                               {QPalette::Highlight, 0xFF3D7EC8},
                               {QPalette::HighlightedText, 0xFFFFFFFF},
                               {QPalette::Link, 0xFF7FB3EC},
                               {QPalette::PlaceholderText, 0xFF9A9FA8}};

constexpr QRgb kDisabled = 0xFF84888F;

template <typename Colors>
QPalette PaletteOf(const Colors& colors) {
  QPalette palette(QColor::fromRgb(colors[5].color), QColor::fromRgb(colors[0].color));
  for (const RoleColor& entry : colors) palette.setColor(entry.role, QColor::fromRgb(entry.color));
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    palette.setColor(QPalette::Disabled, role, QColor::fromRgb(kDisabled));
  }
  palette.setColor(QPalette::Disabled, QPalette::Base, QColor::fromRgb(colors[0].color));
  return palette;
}

}  // namespace

void UseGerman(QApplication& application, const platform::Locale& numbers) {
  // The German of Switzerland has the decimal point.
  const QLocale german(QLocale::German,
                       numbers.decimal_separator == '.' ? QLocale::Switzerland : QLocale::Germany);
  QLocale::setDefault(german);
  auto* texts = new QTranslator(&application);
  // A machine without them shows Qt's own menus in English.
  if (texts->load(german, QStringLiteral("qtbase"), QStringLiteral("_"),
                  QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
    QApplication::installTranslator(texts);
  }
}

void UseTheme(Theme theme) {
  QApplication::setStyle(new OfficeStyle);  // the application owns it
  if (theme == Theme::Light) QApplication::setPalette(PaletteOf(kLight));
  if (theme == Theme::Dark) QApplication::setPalette(PaletteOf(kDark));
}

QSize RoomFor(const QWidget& window) {
  constexpr int kFrame = 40;  // pixels, both sides together
  return window.screen()->availableSize() - QSize(kFrame, kFrame);
}

}  // namespace pactora::desktop
