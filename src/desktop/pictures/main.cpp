// Makes the pictures of the windows that the documents show:
//
//   pactora-pictures DB FOLDER
//
// The database stays as it is. Today is fixed, so that the same database gives the
// same pictures.
#include <QApplication>
#include <QTextStream>

#include "automation/Session.h"
#include "automation/database.h"
#include "desktop/QtScreen.h"
#include "desktop/appearance.h"
#include "desktop/pictures/dialogs.h"
#include "platform/Clock.h"
#include "platform/Error.h"

namespace pactora::desktop {
namespace {

const platform::Date kToday = platform::FromCivil(2024, 3, 15);

struct Look {
  Theme theme;
  const char* ending;
};
constexpr Look kLooks[] = {{Theme::Light, "-light.png"}, {Theme::Dark, "-dark.png"}};

QStringList MakePictures(QApplication& application, const QString& database,
                         const QString& folder) {
  UseGerman(application);
  QStringList problems;
  for (const Look& look : kLooks) {
    UseTheme(look.theme);
    const platform::FixedClock clock(kToday);
    embedded::Host* host = nullptr;
    QtScreen screen([&host] {
      if (host) host->EndUnit();
    });
    automation::Session session(
        automation::OpenDatabase(database.toStdString(), automation::Access::Rehearsal), screen,
        clock);
    host = &session.Host();
    problems += MakeDialogPictures(session, folder, QString::fromUtf8(look.ending));
  }
  return problems;
}

}  // namespace
}  // namespace pactora::desktop

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QTextStream err(stderr);
  const QStringList arguments = QApplication::arguments();
  if (arguments.size() != 3) {
    err << "Aufruf: pactora-pictures DB ORDNER\n";
    return 2;
  }
  try {
    const QStringList problems =
        pactora::desktop::MakePictures(application, arguments[1], arguments[2]);
    for (const QString& problem : problems) err << problem << '\n';
    return problems.isEmpty() ? 0 : 1;
  } catch (const std::exception& error) {
    err << error.what() << '\n';
    return 1;
  }
}
