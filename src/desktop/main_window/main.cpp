// The program of the windows:
//
//   pactora-desktop DB
//
// "pactora desktop DB" starts it.
#include <QApplication>
#include <QLocale>
#include <QSettings>
#include <QTimer>
#include <cstdio>
#include <memory>
#include <string>
#include <utility>

#include "automation/formats/errors.h"
#include "automation/formats/files.h"
#include "automation/workspace/database.h"
#include "automation/workspace/exit_status.h"
#include "desktop/MessageBox.h"
#include "desktop/appearance.h"
#include "desktop/main_window/MainWindow.h"
#include "desktop/main_window/OpenDatabase.h"
#include "desktop/main_window/WaitBox.h"
#include "desktop/main_window/WindowMemory.h"
#include "desktop/main_window/icon.h"
#include "desktop/text.h"
#include "platform/Clock.h"
#include "platform/Error.h"
#include "platform/Locale.h"

namespace pactora::desktop {
namespace {

using workspace::Status;

// What is open: one database at a time.
class Program {
 public:
  Program(QSettings& settings, const platform::Locale& locale)
      : settings_(settings), locale_(locale) {}

  // Raises what opening the database raises; what was open stays open then.
  void Open(const std::string& database) {
    auto opened = std::make_unique<OpenDatabase>(database, clock_, locale_);
    opened->Lost = [this, database] { OpenInstead(database); };
    auto memory = std::make_unique<WindowMemory>(settings_, ToQt(opened->UserName()));
    UseTheme(memory->Look());
    auto window = std::make_unique<MainWindow>(*opened, *memory);
    window->OpenAsked = [this](const std::string& other) {
      // The window that asked is still running its handler.
      QTimer::singleShot(0, qApp, [this, other] { OpenInstead(other); });
    };
    window->show();
    if (window_) window_->close();
    window_ = std::move(window);
    memory_ = std::move(memory);
    database_ = std::move(opened);
  }

 private:
  void OpenInstead(const std::string& database) {
    try {
      Open(database);
    } catch (const platform::Error& error) {
      database_->ShowError(error);
    }
  }

  QSettings& settings_;
  const platform::Locale locale_;
  const platform::SystemClock clock_;
  // In the order in which they use each other.
  std::unique_ptr<OpenDatabase> database_;
  std::unique_ptr<WindowMemory> memory_;
  std::unique_ptr<MainWindow> window_;
};

int Complain(const std::string& text, Status status) {
  std::fprintf(stderr, "pactora: %s\n", text.c_str());
  return static_cast<int>(status);
}

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
  if (argc != 2) return Complain("Aufruf: pactora desktop DB", Status::BadInput);
  if (!HasScreen())
    return Complain("es gibt hier keinen Bildschirm für die Fenster", Status::NotReachable);
  QApplication application(argc, argv);
  QApplication::setOrganizationName(QStringLiteral("Pactora"));
  QApplication::setApplicationName(QStringLiteral("Pactora"));
  const platform::Locale locale = MachineLocale();
  UseGerman(application, locale);
  QApplication::setWindowIcon(ProgramIcon());
  QSettings settings(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("Pactora"),
                     QStringLiteral("desktop"));
  WaitBox wait_box;
  workspace::ReportMigrationTo([](const std::string& database) {
    ShowMessageBox(
        {database + ": die Datenbank hat jetzt die Struktur dieser Version. Frühere Versionen "
                    "des Programms können sie nicht mehr öffnen.",
         ui::style::kInformation, "Pactora"},
        nullptr);
  });
  Program program(settings, locale);
  try {
    program.Open(argv[1]);
  } catch (const platform::Error& error) {
    return Complain(formats::Describe(error), workspace::StatusOf(error));
  }
  return QApplication::exec();
}

}  // namespace
}  // namespace pactora::desktop

int main(int argc, char** argv) {
  pactora::formats::GuardStandardStreams();
  return pactora::desktop::Main(argc, argv);
}
