#include "desktop/main_window/Program.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QMenu>
#include <QTimer>
#include <cstdio>
#include <utility>

#include "automation/formats/errors.h"
#include "automation/formats/visible.h"
#include "automation/workspace/database.h"
#include "desktop/MessageBox.h"
#include "desktop/main_window/failures.h"
#include "desktop/text.h"

namespace pactora::desktop {
namespace {

// The look of the database that was opened last, for the window before one is open.
WindowMemory LastLook(QSettings& settings) { return {settings, QString()}; }

}  // namespace

Program::Program(QSettings& settings, const platform::Clock& clock, const platform::Locale& locale)
    : settings_(settings), clock_(clock), locale_(locale) {
  // Told once the window is there: a database is opened before that.
  workspace::ReportMigrationTo([this](const std::string& message) { migrated_ = message; });
  start_.OpenAsked = [this](const std::string& database) { OpenInstead(database); };
}

Program::~Program() { workspace::ReportMigrationTo({}); }

void Program::Start(const std::optional<std::string>& database) {
  if (!database) return ShowStart();
  if (const auto failure = TryOpen(*database)) StartOver(*failure);
}

void Program::StartOver(const platform::Error& failure) {
  // Also for whoever started the program from a terminal.
  std::fprintf(stderr, "pactora: %s\n", formats::Visible(formats::Describe(failure)).c_str());
  ShowStart();
  ShowFailure(failure, &start_);
}

void Program::OpenInstead(const std::string& database) {
  if (const auto failure = TryOpen(database)) ShowFailure(*failure, QApplication::activeWindow());
}

void Program::ShowStart() {
  if (!window_) UseTheme(LastLook(settings_).Look());
  start_.show();
  if (window_) window_->close();
  window_.reset();
  memory_.reset();
  database_.reset();
}

std::optional<platform::Error> Program::TryOpen(const std::string& database) {
  if (auto failure =
          ErrorOf([&] { Use(std::make_unique<OpenDatabase>(database, clock_, locale_)); }))
    return failure;
  recent_.Add(ToQt(database));
  OfferRecent();
  start_.hide();
  if (const std::string told = std::exchange(migrated_, {}); !told.empty())
    ShowMessageBox({told, ui::style::kInformation, "Pactora"}, window_.get());
  return std::nullopt;
}

void Program::Use(std::unique_ptr<OpenDatabase> opened) {
  const std::string database = opened->Name();
  opened->Lost = [this, database] { Start(database); };
  auto memory = std::make_unique<WindowMemory>(settings_, ToQt(opened->UserName()));
  UseTheme(memory->Look());
  LastLook(settings_).KeepLook(memory->Look());
  auto window = std::make_unique<MainWindow>(*opened, *memory);
  // The window that asks is still running its handler.
  window->OpenAsked = [this](const std::string& other) {
    QTimer::singleShot(0, &start_, [this, other] { OpenInstead(other); });
  };
  window->CloseAsked = [this] { QTimer::singleShot(0, &start_, [this] { ShowStart(); }); };
  window->show();
  if (window_) window_->close();
  window_ = std::move(window);
  memory_ = std::move(memory);
  database_ = std::move(opened);
}

void Program::OfferRecent() {
  int number = 0;
  for (const QString& database : recent_.All()) {
    const QFileInfo file(database);
    const QString text = QStringLiteral("&%1  %2 – %3")
                             .arg(QString::number(++number % 10), WithoutMarks(file.fileName()),
                                  WithoutMarks(QDir::toNativeSeparators(file.path())));
    window_->RecentMenu().addAction(text,
                                    [this, name = FromQt(database)] { window_->OpenAsked(name); });
  }
}

}  // namespace pactora::desktop
