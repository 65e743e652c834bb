#include "desktop/main_window/list_pages.h"

#include <QCheckBox>
#include <QSpinBox>
#include <algorithm>
#include <utility>

#include "automation/deadlines/deadlines.h"
#include "host/HostTable.h"
#include "schema/names.h"

namespace pactora::desktop {
namespace {

namespace table = schema::table;

constexpr int kFirstWeeks = 26;

// Whether one must act on the row so many weeks ahead at most; 0 is any time.
bool Within(const ListRow& row, platform::Date today, int weeks) {
  return weeks == 0 || deadlines::IsWithin(row.act_by, today, weeks);
}

QSpinBox* WeekBox(const QString& name) {
  auto* box = new QSpinBox;
  box->setObjectName(name);
  box->setRange(0, deadlines::kMostWeeks);
  box->setPrefix(QStringLiteral("in den nächsten "));
  box->setSuffix(QStringLiteral(" Wochen"));
  box->setSpecialValueText(QStringLiteral("jederzeit"));
  box->setValue(kFirstWeeks);
  box->setAccessibleName(QStringLiteral("Zeitraum"));
  return box;
}

}  // namespace

TypePage::TypePage(OpenDatabase& database)
    : ListPage(database, TypeList(), QStringLiteral("types"),
               QStringLiteral("Vertragstyp suchen")) {
  Table().Chosen = [this](const ListRow& row) {
    Database().Do([&] { Database().GoTo(table::vv_Vertragsdefinitionen, row.oid); });
    if (ChoiceChanged) ChoiceChanged();
  };
}

void TypePage::ShowCurrent() {
  if (const store::Oid type = Database().Current(table::vv_Vertragsdefinitionen); type != 0)
    Table().ShowChoice(type);
}

DeadlinePage::DeadlinePage(OpenDatabase& database)
    : ListPage(database, DeadlineList(), QStringLiteral("deadlines"),
               QStringLiteral("Frist suchen")) {
  Table().OpenBy(*ShowingContract([](const ListRow& row) { return row.oid; }));
  QSpinBox* weeks = WeekBox(QStringLiteral("deadlines_weeks"));
  const auto select = [this, weeks] {
    SetCondition([today = Database().Clock().Today(), limit = weeks->value()](const ListRow& row) {
      return Within(row, today, limit);
    });
  };
  connect(weeks, &QSpinBox::valueChanged, this, select);
  select();
  AddTool(*weeks);
}

AppointmentPage::AppointmentPage(OpenDatabase& database)
    : ListPage(database, AppointmentList(), QStringLiteral("appointments"),
               QStringLiteral("Termin suchen")) {
  Table().setSelectionMode(QAbstractItemView::ExtendedSelection);
  connect(Table().selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] {
    if (ChoiceChanged) ChoiceChanged();
  });
  Table().OpenBy(*ShowingContract([this](const ListRow& row) {
    store::Record record;
    Database().Read([&] {
      Database().Store().Read(Database().Table(table::vv_VertragsAktivitaeten), row.oid, record);
    });
    return record.parent;
  }));
  QSpinBox* weeks = WeekBox(QStringLiteral("appointments_weeks"));
  auto* done = new QCheckBox(QStringLiteral("auch erledigte"));
  done->setObjectName(QStringLiteral("appointments_done"));
  const auto select = [this, weeks, done] {
    SetCondition([today = Database().Clock().Today(), limit = weeks->value(),
                  all = done->isChecked()](const ListRow& row) {
      return (all || !row.done) && Within(row, today, limit);
    });
  };
  connect(weeks, &QSpinBox::valueChanged, this, select);
  connect(done, &QCheckBox::toggled, this, select);
  select();
  AddTool(*done);
  AddTool(*weeks);
}

int AppointmentPage::Tick() {
  std::vector<ListRow> rows;
  for (const QModelIndex& index : Table().selectionModel()->selectedRows())
    rows.push_back(Model().Row(index.row()));
  const bool done = !std::ranges::all_of(rows, &ListRow::done);
  std::erase_if(rows, [&](const ListRow& row) { return row.done == done; });
  last_tick_.clear();
  for (const ListRow& row : rows) last_tick_.push_back(row.oid);
  last_done_ = done;
  Mark(last_tick_, done);
  return static_cast<int>(rows.size());
}

void AppointmentPage::TakeBack() { Mark(std::exchange(last_tick_, {}), !last_done_); }

void AppointmentPage::Mark(const std::vector<store::Oid>& appointments, bool done) {
  Database().Do([&] {
    const auto live = Database().Session().Host().Table(table::vv_VertragsAktivitaeten);
    for (const store::Oid appointment : appointments) {
      Database().GoTo(table::vv_VertragsAktivitaeten, appointment);
      live->BeginEdit();
      live->Fields().Item(schema::field::Erledigt).SetValue(done);
      live->Store(host::kFlagsUsual);
    }
  });
}

}  // namespace pactora::desktop
