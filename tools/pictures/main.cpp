// Makes the pictures of the windows that the documents show:
//
//   pactora-pictures DB FOLDER TAKEOVER-LIST
//
// The database stays as it is. Today is fixed, so that the same database gives the
// same pictures.
#include <QApplication>
#include <QTextStream>

#include "desktop/appearance.h"
#include "desktop/main_window/OpenDatabase.h"
#include "pictures/Pictures.h"
#include "pictures/dialogs.h"
#include "pictures/main_window.h"
#include "platform/Clock.h"
#include "platform/Error.h"

namespace pactora::desktop {
namespace {

const platform::Date kToday = platform::FromCivil(2026, 3, 15);

struct Look {
  Theme theme;
  const char* ending;
};
constexpr Look kLooks[] = {{Theme::Light, "-light.png"}, {Theme::Dark, "-dark.png"}};

QStringList MakePictures(QApplication& application, const QString& database, const QString& folder,
                         const QString& takeover_list) {
  UseGerman(application);
  QStringList problems;
  for (const Look& look : kLooks) {
    UseTheme(look.theme);
    const platform::FixedClock clock(kToday);
    OpenDatabase opened(database.toStdString(), clock);
    Pictures pictures(folder, QString::fromUtf8(look.ending));
    MakeDialogPictures(opened.Session(), pictures);
    MakeMainWindowPictures(opened, takeover_list, pictures);
    problems += pictures.Problems();
  }
  return problems;
}

}  // namespace
}  // namespace pactora::desktop

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QTextStream err(stderr);
  const QStringList arguments = QApplication::arguments();
  if (arguments.size() != 4) {
    err << "Aufruf: pactora-pictures DB ORDNER LISTE\n";
    return 2;
  }
  try {
    const QStringList problems =
        pactora::desktop::MakePictures(application, arguments[1], arguments[2], arguments[3]);
    for (const QString& problem : problems) err << problem << '\n';
    return problems.isEmpty() ? 0 : 1;
  } catch (const pactora::platform::Error& error) {
    err << QString::fromStdString(error.Description()) << '\n';
    return 1;
  }
}
