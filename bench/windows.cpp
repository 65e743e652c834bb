// How long the main window keeps a person waiting, on a database of any size:
//
//   bench_windows DB
//
// Prints milliseconds of wall time, for the dialogs of processor time.
#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QScrollBar>
#include <QSettings>
#include <QTemporaryDir>
#include <algorithm>
#include <cstdio>
#include <ctime>
#include <functional>

#include "desktop/appearance.h"
#include "desktop/main_window/MainWindow.h"
#include "desktop/main_window/OpenDatabase.h"
#include "desktop/main_window/WindowMemory.h"
#include "host/HostTable.h"
#include "pictures/WindowSteps.h"
#include "platform/Clock.h"
#include "platform/Error.h"
#include "schema/names.h"

namespace pactora::desktop {
namespace {

double Measure(const std::function<void()>& body) {
  QElapsedTimer clock;
  clock.start();
  body();
  return static_cast<double>(clock.nsecsElapsed()) / 1e6;
}

void Print(const char* what, double milliseconds) {
  std::printf("%-46s %9.1f ms\n", what, milliseconds);
}

// Lets the window work until the list is complete; gives the longest single wait.
double LongestWait(ListPage& page) {
  double longest = 0;
  while (page.Reading()) {
    longest = std::max(longest, Measure([] { QApplication::processEvents(); }));
  }
  return longest;
}

double KeyByKey(ListPage& page, const QString& words) {
  auto* line = page.findChild<QLineEdit*>();
  double longest = 0;
  for (qsizetype length = 1; length <= words.size(); ++length) {
    longest = std::max(longest, Measure([&] {
                         line->setText(words.left(length));
                         QApplication::processEvents();
                       }));
  }
  line->clear();
  QApplication::processEvents();
  return longest;
}

// The processor time until the dialog has been painted for the first time; it is left
// again without a change. With an outer dialog the call opens that one, and the
// outer one's button the dialog.
double Opening(const std::function<void()>& call, const char* dialog, const char* outer = nullptr,
               const char* button = nullptr) {
  std::clock_t begin = std::clock();
  std::clock_t end = begin;
  WindowSteps steps;
  if (outer != nullptr) {
    steps.Add(QString::fromUtf8(outer), [&](QWidget& window) {
      QApplication::processEvents();
      begin = std::clock();
      window.findChild<QAbstractButton*>(QString::fromUtf8(button))->click();
      dynamic_cast<QDialog&>(window).reject();
    });
  }
  steps.Add(QString::fromUtf8(dialog), [&](QWidget& window) {
    QApplication::processEvents();
    end = std::clock();
    dynamic_cast<QDialog&>(window).reject();
  });
  steps.Run(call);
  return 1000.0 * static_cast<double>(end - begin) / CLOCKS_PER_SEC;
}

// The second time: the first one loads fonts.
void PrintOpening(const char* what, const std::function<void()>& call, const char* dialog,
                  const char* outer = nullptr, const char* button = nullptr) {
  Opening(call, dialog, outer, button);
  Print(what, Opening(call, dialog, outer, button));
}

void MeasureDialogs(MainWindow& window, OpenDatabase& opened) {
  opened.Session().Host().Table(schema::table::Adressen)->MoveFirst(host::kFlagsUsual);
  const auto types = opened.Session().Host().Table(schema::table::vv_Vertragsdefinitionen);
  Print("walk the contract types once", Measure([&] {
          for (types->MoveFirst(host::kFlagsUsual); !types->Eof();
               types->MoveNext(1, host::kFlagsUsual)) {
          }
        }));
  PrintOpening(
      "open the new-contract dialog", [&] { window.NewContract(); }, "frmNewContract");
  PrintOpening(
      "open the contract-type dialog", [&] { window.NewType(); }, "frmFEditDefinitions");
  PrintOpening(
      "open the position dialog", [&] { window.NewType(); }, "frmFEditDefPositions",
      "frmFEditDefinitions", "cmdAddPos");
}

void MeasureWindow(const std::string& database) {
  const platform::SystemClock clock;
  QTemporaryDir folder;
  QSettings settings(folder.filePath(QStringLiteral("windows.ini")), QSettings::IniFormat);
  OpenDatabase opened(database, clock);
  WindowMemory memory(settings, QStringLiteral("bench"));
  std::unique_ptr<MainWindow> window;
  Print("open the window", Measure([&] {
          window = std::make_unique<MainWindow>(opened, memory);
          window->show();
          QApplication::processEvents();
        }));
  ListPage& list = window->Addresses().List();
  double longest = 0;
  Print("read all addresses", Measure([&] { longest = LongestWait(list); }));
  Print("  longest wait meanwhile", longest);
  Print("search, longest wait after a key", KeyByKey(list, QStringLiteral("werk 4711")));
  QScrollBar& bar = *list.Table().verticalScrollBar();
  double scroll = 0;
  for (int i = 0; i <= 100; ++i) {
    scroll = std::max(scroll, Measure([&] {
                        bar.setValue(bar.maximum() / 100 * i);
                        QApplication::processEvents();
                      }));
  }
  Print("scroll, longest wait at a step", scroll);
  Print("sort by the other column", Measure([&] {
          list.Table().sortByColumn(1, Qt::DescendingOrder);
          QApplication::processEvents();
        }));
  double choose = 0;
  for (int i = 0; i < 100; ++i) {
    choose = std::max(choose, Measure([&] {
                        list.Table().selectRow(i);
                        QApplication::processEvents();
                      }));
  }
  Print("choose an address, longest", choose);
  MeasureDialogs(*window, opened);
  auto& pages = *window->findChild<QTabWidget*>(QStringLiteral("pages"));
  for (ListPage* page :
       std::initializer_list<ListPage*>{&window->Deadlines(), &window->Appointments()}) {
    pages.setCurrentWidget(page);
    Print("read another page", Measure([&] { longest = LongestWait(*page); }));
    Print("  longest wait meanwhile", longest);
  }
}

}  // namespace
}  // namespace pactora::desktop

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fprintf(stderr, "usage: bench_windows DB\n");
    return 2;
  }
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  pactora::desktop::UseGerman(application);
  pactora::desktop::UseTheme(pactora::desktop::Theme::Light);
  try {
    pactora::desktop::MeasureWindow(argv[1]);
  } catch (const pactora::platform::Error& error) {
    std::fprintf(stderr, "%s\n", error.Description().c_str());
    return 1;
  }
  return 0;
}
