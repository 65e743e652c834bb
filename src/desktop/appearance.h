// How the windows look: Qt's own style, light or dark, German everywhere.
#pragma once

class QApplication;

namespace pactora::desktop {

enum class Theme { System, Light, Dark };

// German dates, numbers and texts of Qt's own menus.
void UseGerman(QApplication& application);
// System keeps what the desktop of the machine asks for.
void UseTheme(Theme theme);

}  // namespace pactora::desktop
