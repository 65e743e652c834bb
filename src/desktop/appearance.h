// How the windows look: Qt's own style, light or dark, German everywhere.
#pragma once

#include "platform/Locale.h"

class QApplication;

namespace pactora::desktop {

enum class Theme { System, Light, Dark };

// German dates and texts of Qt's own menus, and German numbers with the locale's
// decimal separator.
void UseGerman(QApplication& application, const platform::Locale& numbers = {});
// System follows the setting of the machine's desktop.
void UseTheme(Theme theme);

// The size that the window can have at most, with its frame on its screen.
QSize RoomFor(const QWidget& window);

}  // namespace pactora::desktop
