// The program of the windows as it is started, without a screen.
#include <gmock/gmock.h>

#include <QFile>
#include <QProcess>

#include "desktop/text.h"
#include "support/TemporaryFolder.h"

namespace pactora::desktop {
namespace {

struct Ended {
  int status;
  std::string error;
};

Ended Start(const QString& program, const QStringList& arguments, bool screen) {
  QProcess process;
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
    environment.remove(name);
  if (screen) environment.insert("QT_QPA_PLATFORM", "offscreen");
  process.setProcessEnvironment(environment);
  process.start(program, arguments);
  process.waitForFinished(20000);
  return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
          process.readAllStandardError().toStdString()};
}

TEST(Program, EndsWithOneLineWhereThereIsNoScreen) {
  const Ended blind = Start(PACTORA_PROGRAM, {"desktop"}, false);
  EXPECT_EQ(blind.status, 4);
  EXPECT_EQ(blind.error, "pactora: es gibt hier keinen Bildschirm für die Fenster\n");
}

TEST(Program, SaysThatItHasNoWindowsWhereTheyAreNotBesideIt) {
  const support::TemporaryFolder folder;
  const QString alone = ToQt(folder.File("pactora"));
  ASSERT_TRUE(QFile::copy(PACTORA_PROGRAM, alone));
  const Ended ended = Start(alone, {"desktop", "firma.db"}, true);
  EXPECT_EQ(ended.status, 2);
  EXPECT_EQ(ended.error, "pactora: die Fenster sind in diesem Programm nicht enthalten\n");
}

}  // namespace
}  // namespace pactora::desktop
