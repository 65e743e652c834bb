// The program of the windows:
//
//   pactora-desktop [DB]
//
// "pactora desktop" starts it.
#include <QApplication>
#include <QLocale>
#include <QSettings>
#include <cstdio>
#include <optional>
#include <string>

#include "automation/formats/errors.h"
#include "automation/formats/files.h"
#include "automation/workspace/exit_status.h"
#include "desktop/appearance.h"
#include "desktop/main_window/Program.h"
#include "desktop/main_window/WaitBox.h"
#include "desktop/main_window/icon.h"
#include "platform/Clock.h"
#include "platform/Locale.h"

namespace pactora::desktop {
namespace {

// Without one the application would end with words of its own.
bool HasScreen() {
  for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) {
    if (!qEnvironmentVariableIsEmpty(name)) return true;
  }
  return false;
}

// Where the machine names no language, numbers are German like everything else.
platform::Locale MachineLocale() {
  const QLocale system = QLocale::system();
  const bool point = system.decimalPoint() == QStringLiteral(".");
  return {system.language() != QLocale::C && point ? '.' : ','};
}

int Main(int argc, char** argv) {
  if (!HasScreen()) {
    std::fputs("pactora: es gibt hier keinen Bildschirm für die Fenster\n", stderr);
    return static_cast<int>(workspace::Status::NotReachable);
  }
  QApplication application(argc, argv);
  QApplication::setOrganizationName(QStringLiteral("Pactora"));
  QApplication::setApplicationName(QStringLiteral("Pactora"));
  const platform::Locale locale = MachineLocale();
  UseGerman(application, locale);
  QApplication::setWindowIcon(ProgramIcon());
  QSettings settings(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("Pactora"),
                     QStringLiteral("desktop"));
  WaitBox wait_box;
  const platform::SystemClock clock;
  Program program(settings, clock, locale);
  if (argc > 2)
    program.StartOver({formats::Number(formats::DoorError::BadInput),
                       "mehr als eine Datenbank ist angegeben", formats::kErrorSource});
  else
    program.Start(argc == 2 ? std::optional<std::string>(argv[1]) : std::nullopt);
  return QApplication::exec();
}

}  // namespace
}  // namespace pactora::desktop

int main(int argc, char** argv) {
  pactora::formats::GuardStandardStreams();
  return pactora::desktop::Main(argc, argv);
}
