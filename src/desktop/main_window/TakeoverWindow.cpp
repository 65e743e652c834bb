#include "desktop/main_window/TakeoverWindow.h"

#include <QDialogButtonBox>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFileDialog>
#include <QGridLayout>
#include <QVBoxLayout>
#include <algorithm>
#include <exception>
#include <memory>
#include <ostream>
#include <utility>

#include "automation/formats/errors.h"
#include "automation/formats/files.h"
#include "automation/takeover/list.h"
#include "automation/takeover/rejected_lines.h"
#include "automation/workspace/database.h"
#include "desktop/MessageBox.h"
#include "desktop/appearance.h"
#include "desktop/main_window/ProgressDialog.h"
#include "desktop/main_window/ask_file.h"
#include "desktop/text.h"

namespace pactora::desktop {
namespace {

const QString kLists = QStringLiteral("Listen (*.csv *.txt);;Alle Dateien (*)");

std::vector<ListColumn> LineColumns() {
  return {{"Zeile", CellKind::Number, 8},
          {"Ergebnis", CellKind::Text, 13},
          {"Vertrag", CellKind::Text, 14},
          {"Meldung", CellKind::Text, 20}};
}

// The lines from that one on, as rows of the table.
std::vector<ListRow> RowsFrom(const takeover::Job& job, std::size_t first) {
  std::vector<ListRow> rows;
  for (std::size_t i = first; i < job.Lines().size(); ++i) {
    const bulk::ReportLine& line = job.Lines()[i];
    const bool bad =
        line.outcome != bulk::Outcome::Created && line.outcome != bulk::Outcome::Skipped;
    const auto key = static_cast<std::int64_t>(line.line);
    rows.push_back({key,
                    key,
                    {static_cast<std::int32_t>(line.line), std::string(bulk::Text(line.outcome)),
                     line.number, line.message},
                    bad});
  }
  return rows;
}

}  // namespace

TakeoverWindow::TakeoverWindow(std::string database, const platform::Clock& clock, QWidget* parent)
    : QDialog(parent),
      database_(std::move(database)),
      clock_(clock),
      lines_(LineColumns()),
      table_(lines_, QStringLiteral("takeover_lines")) {
  setObjectName(QStringLiteral("takeover"));
  setWindowTitle(QStringLiteral("Übernahmeliste"));
  progress_.setObjectName(QStringLiteral("takeover_progress"));
  progress_.setFormat(QStringLiteral("%v von %m"));
  progress_.setMaximum(1);
  progress_.setTextVisible(false);
  outcome_.setObjectName(QStringLiteral("takeover_outcome"));
  outcome_.setTextFormat(Qt::PlainText);
  outcome_.setWordWrap(true);
  outcome_.setText(
      QStringLiteral("Jede Zeile der Liste wird wie im Dialog „Neuer Vertrag“ eingegeben. Eine "
                     "angehaltene Übernahme setzt derselbe Start fort, kein Vertrag entsteht "
                     "doppelt."));
  table_.setAccessibleName(QStringLiteral("Zeilen der Liste"));

  auto* buttons = new QDialogButtonBox;
  start_ = buttons->addButton(QStringLiteral("&Starten"), QDialogButtonBox::ActionRole);
  start_->setObjectName(QStringLiteral("takeover_start"));
  start_->setDefault(true);
  stop_ = buttons->addButton(QStringLiteral("&Anhalten"), QDialogButtonBox::ActionRole);
  stop_->setObjectName(QStringLiteral("takeover_stop"));
  close_ = buttons->addButton(QStringLiteral("S&chließen"), QDialogButtonBox::RejectRole);
  template_ =
      buttons->addButton(QStringLiteral("&Vorlage speichern …"), QDialogButtonBox::ResetRole);
  template_->setToolTip(QStringLiteral("Eine Liste mit allen Spalten zum Ausfüllen speichern"));
  template_->setAutoDefault(false);
  connect(template_, &QPushButton::clicked, this, [this] { SaveTemplate(); });
  connect(start_, &QPushButton::clicked, this, [this] { Start(); });
  connect(stop_, &QPushButton::clicked, this, [this] { Stop(); });
  connect(buttons, &QDialogButtonBox::rejected, this, [this] { reject(); });

  auto* all = new QVBoxLayout(this);
  files_ = MakeFiles();
  all->addWidget(files_);
  all->addWidget(&outcome_);
  all->addWidget(&progress_);
  all->addWidget(&table_, 1);
  all->addWidget(buttons);
  SetRunning(false);
  resize(QSize(fontMetrics().horizontalAdvance(u'n') * 100, fontMetrics().height() * 34)
             .boundedTo(RoomFor(*this)));
}

QWidget* TakeoverWindow::MakeFiles() {
  auto* files = new QWidget;
  auto* grid = new QGridLayout(files);
  grid->setContentsMargins(0, 0, 0, 0);
  const auto add = [&](int row, const QString& title, QLineEdit& line, const QString& name,
                       void (TakeoverWindow::*choose)()) {
    line.setObjectName(name);
    auto* label = new QLabel(title);
    label->setBuddy(&line);
    auto* button = new QPushButton(QStringLiteral("…"));
    button->setObjectName(name + QStringLiteral("_choose"));
    button->setAccessibleName(WithoutMarks(title).remove(u'&') + QStringLiteral(" auswählen"));
    button->setToolTip(QStringLiteral("Datei auswählen"));
    button->setAutoDefault(false);
    button->setFixedWidth(2 * button->sizeHint().height());
    connect(button, &QPushButton::clicked, this, choose);
    grid->addWidget(label, row, 0);
    grid->addWidget(&line, row, 1);
    grid->addWidget(button, row, 2);
  };
  add(0, QStringLiteral("&Liste"), list_, QStringLiteral("takeover_list"),
      &TakeoverWindow::ChooseList);
  add(1, QStringLiteral("&Bericht"), report_, QStringLiteral("takeover_report"),
      &TakeoverWindow::ChooseReport);
  rehearsal_.setObjectName(QStringLiteral("takeover_rehearsal"));
  rehearsal_.setText(QStringLiteral("&Probelauf, nichts wird geschrieben"));
  grid->addWidget(&rehearsal_, 2, 1, 1, 2);
  connect(&list_, &QLineEdit::textChanged, this, [this](const QString& list) {
    if (!report_.isModified())
      report_.setText(list.isEmpty() ? QString() : ToQt(takeover::UsualReport(FromQt(list))));
    SetRunning(running_);
  });
  connect(&report_, &QLineEdit::textChanged, this, [this] { SetRunning(running_); });
  return files;
}

void TakeoverWindow::SetList(const QString& file) { list_.setText(file); }

void TakeoverWindow::ChooseList() {
  const QString file =
      QFileDialog::getOpenFileName(this, QStringLiteral("Übernahmeliste"), list_.text(), kLists);
  if (!file.isEmpty()) SetList(file);
}

void TakeoverWindow::ChooseReport() {
  const QString file =
      QFileDialog::getSaveFileName(this, QStringLiteral("Bericht"), report_.text(), kLists, nullptr,
                                   QFileDialog::DontConfirmOverwrite);
  if (file.isEmpty()) return;
  report_.setText(file);
  report_.setModified(true);
}

void TakeoverWindow::SaveTemplate() {
  const QString file =
      AskNewFile(this, {QStringLiteral("Vorlage speichern"), QStringLiteral("Vertragsliste.csv"),
                        QStringLiteral("Listen (*.csv)"), QStringLiteral("csv")});
  if (file.isEmpty()) return;
  try {
    workspace::RequireNoDatabase(database_, FromQt(file));
    formats::WriteOutput(FromQt(file), [](std::ostream& out) { out << takeover::Template(); });
    outcome_.setText(QStringLiteral("Geschrieben: ") + file);
  } catch (const platform::Error& error) {
    ShowMessageBox({formats::Describe(error), ui::style::kExclamation, "Pactora"}, this);
  }
}

void TakeoverWindow::Start() {
  if (running_) return;
  SetRunning(true);
  lines_.Clear();
  try {
    takeover::Job job(
        {database_, FromQt(list_.text()), FromQt(report_.text()), rehearsal_.isChecked()});
    progress_.setMaximum(static_cast<int>(std::max<std::size_t>(1, job.Size())));
    progress_.setValue(0);
    progress_.setTextVisible(true);
    Run(job);
  } catch (const platform::Error& error) {
    ShowMessageBox({formats::Describe(error), ui::style::kExclamation, "Pactora"}, this);
  }
  SetRunning(false);
}

void TakeoverWindow::Run(takeover::Job& job) {
  outcome_.setText(QStringLiteral("Die Liste wird eingegeben …"));
  // The job is the worker's until that has finished.
  std::size_t sent = 0;
  bulk::Count count;
  std::exception_ptr failure;
  QElapsedTimer since;
  const auto after_line = [&] {
    if (since.elapsed() >= kShowProgressEveryMs) {
      QMetaObject::invokeMethod(
          this, [this, rows = RowsFrom(job, sent)] { ShowRows(rows); }, Qt::QueuedConnection);
      sent = job.Lines().size();
      since.restart();
    }
    if (QThread::currentThread()->isInterruptionRequested()) formats::RaiseInterrupted();
  };
  const std::unique_ptr<QThread> worker(QThread::create([&] {
    since.start();
    try {
      count = job.CarryOut(clock_, after_line);
    } catch (...) {
      failure = std::current_exception();
    }
  }));
  QEventLoop until_finished;
  connect(worker.get(), &QThread::finished, &until_finished, &QEventLoop::quit);
  worker_ = worker.get();
  worker->start();
  until_finished.exec();
  worker->wait();
  worker_ = nullptr;

  ShowRows(RowsFrom(job, sent));
  const auto is_created = [](const bulk::ReportLine& line) {
    return line.outcome == bulk::Outcome::Created;
  };
  if (!rehearsal_.isChecked() && std::ranges::any_of(job.Lines(), is_created)) changed_ = true;
  try {
    if (failure) std::rethrow_exception(failure);
    QString text = ToQt(count.Text());
    if (rehearsal_.isChecked()) text += QStringLiteral(" (%1)").arg(ToQt(workspace::kRehearsed));
    for (const std::string& sentence : job.FilesLeft()) text += QChar(u'\n') + ToQt(sentence);
    outcome_.setText(text);
  } catch (const platform::Error& error) {
    outcome_.setText(QStringLiteral("Angehalten nach %1 von %2 Zeilen; %3")
                         .arg(job.Lines().size())
                         .arg(job.Size())
                         .arg(rehearsal_.isChecked()
                                  ? ToQt(workspace::kRehearsed)
                                  : QStringLiteral("ein neuer Start setzt die Liste fort")));
    if (error.Number() != formats::Number(formats::DoorError::Interrupted)) throw;
  }
}

void TakeoverWindow::ShowRows(std::vector<ListRow> rows) {
  lines_.Add(std::move(rows));
  lines_.Publish();
  table_.scrollToBottom();
  progress_.setValue(static_cast<int>(lines_.All()));
}

void TakeoverWindow::Stop() {
  if (worker_) worker_->requestInterruption();
}

void TakeoverWindow::SetRunning(bool running) {
  running_ = running;
  files_->setEnabled(!running);
  const bool named = !list_.text().isEmpty() && !report_.text().isEmpty();
  start_->setEnabled(!running && named);
  template_->setEnabled(!running);
  stop_->setEnabled(running);
  close_->setEnabled(!running);
}

void TakeoverWindow::reject() {
  if (running_)
    Stop();
  else
    QDialog::reject();
}

}  // namespace pactora::desktop
