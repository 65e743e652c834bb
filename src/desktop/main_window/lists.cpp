#include "desktop/main_window/lists.h"

#include <memory>
#include <utility>

#include "automation/deadlines/deadlines.h"
#include "automation/workspace/row_walk.h"
#include "contract/modVV.h"
#include "schema/names.h"

namespace pactora::desktop {
namespace {

namespace table = schema::table;
namespace field = schema::field;

using Cells = std::vector<host::Value>;

host::Value Count(std::int64_t count) { return static_cast<std::int32_t>(count); }

// Reads the rows of a table one after the other; make gives the list's rows for one.
template <typename Make>
ReadRows ReadTable(Desk& desk, std::string_view name, Make make) {
  const auto walk = std::make_shared<workspace::RowWalk>(desk.Store(), desk.Table(name));
  const auto record = std::make_shared<store::Record>();
  return [walk, record, make = std::move(make)](std::vector<ListRow>& rows) mutable {
    if (!walk->Next(*record)) return false;
    make(*record, rows);
    return true;
  };
}

// Names of the rows that children are read under, which come one after the other.
class ParentText {
 public:
  ParentText(Desk& desk, std::string_view table, std::string_view field)
      : desk_(&desk), table_(desk.Table(table)), field_(field) {}

  const host::Value& Of(store::Oid oid) {
    if (oid != record_.oid && !desk_->Store().Read(table_, oid, record_)) record_ = {};
    static const host::Value kNone;
    return record_.oid == 0 ? kNone : desk_->Cell(table_, record_, field_);
  }
  store::Oid Parent() const { return record_.parent; }

 private:
  Desk* desk_;
  store::TableId table_;
  std::string_view field_;
  store::Record record_;
};

Cells AddressCellsOf(Desk& desk, const store::Record& address) {
  return {desk.Cell(desk.Table(table::Adressen), address, field::Name),
          Count(desk.Store().CountInParent(desk.Table(table::vv_Vertraege), address.oid))};
}

ReadRows ReadAddresses(Desk& desk) {
  return ReadTable(desk, table::Adressen, [&desk](const store::Record& record, auto& rows) {
    rows.push_back({record.oid, record.oid, AddressCellsOf(desk, record)});
  });
}

ReadRows ReadTypes(Desk& desk) {
  const store::TableId types = desk.Table(table::vv_Vertragsdefinitionen);
  return ReadTable(
      desk, table::vv_Vertragsdefinitionen,
      [&desk, types](const store::Record& record, auto& rows) {
        const auto cell = [&](std::string_view name) { return desk.Cell(types, record, name); };
        rows.push_back({record.oid,
                        record.oid,
                        {cell(field::Bezeichnung), cell(field::ID), cell(field::Status),
                         schema::TypText(host::ToText(cell(field::Typ))), cell(field::ArtStr),
                         cell(field::Dauer),
                         contract::GetPeriodName(host::ToLong(cell(field::Zahlungsperiode))),
                         cell(field::NettoSumme)}});
      });
}

ReadRows ReadDeadlines(Desk& desk) {
  const platform::Date today = desk.Clock().Today();
  const store::TableId contracts = desk.Table(table::vv_Vertraege);
  return ReadTable(
      desk, table::vv_Vertraege,
      [&desk, today, contracts, addresses = ParentText(desk, table::Adressen, field::Name)](
          const store::Record& record, auto& rows) mutable {
        const auto found = deadlines::DeadlinesOf(desk.Store().Catalog().tables[contracts], record,
                                                  host::ToText(addresses.Of(record.parent)), today);
        for (const deadlines::Deadline& deadline : found) {
          const bool is_end = deadline.kind != deadlines::Deadline::Kind::Notice;
          rows.push_back(
              {2 * record.oid + (is_end ? 1 : 0),
               record.oid,
               {deadline.date, deadlines::Text(deadline.kind),
                deadline.safe_receipt ? host::Value(*deadline.safe_receipt) : host::Value(),
                deadline.address, deadline.number, deadline.name, schema::TypText(deadline.side),
                deadline.responsible}});
        }
      });
}

ListRow AppointmentRow(Desk& desk, store::TableId appointments, const store::Record& record,
                       const host::Value& address, const host::Value& number) {
  const auto cell = [&](std::string_view name) { return desk.Cell(appointments, record, name); };
  const platform::Date date = host::ToDate(cell(field::Datum));
  const bool done = host::ToBoolean(cell(field::Erledigt));
  const bool due = !done && platform::WholeDay(date) <= platform::WholeDay(desk.Clock().Today());
  const platform::Date day{static_cast<double>(platform::WholeDay(date))};
  return {record.oid,
          record.oid,
          {date == platform::kNoDate ? host::Value() : host::Value(day), cell(field::Betreff),
           address, number, cell(field::Verantwortlich), done},
          due};
}

ReadRows ReadAllAppointments(Desk& desk) {
  const store::TableId appointments = desk.Table(table::vv_VertragsAktivitaeten);
  return ReadTable(
      desk, table::vv_VertragsAktivitaeten,
      [&desk, appointments, contracts = ParentText(desk, table::vv_Vertraege, field::Vertragnummer),
       addresses = ParentText(desk, table::Adressen, field::Name)](const store::Record& record,
                                                                   auto& rows) mutable {
        const host::Value& number = contracts.Of(record.parent);
        rows.push_back(
            AppointmentRow(desk, appointments, record, addresses.Of(contracts.Parent()), number));
      });
}

// Calls visit for each row under the parent.
template <typename Visit>
void ForEachChild(Desk& desk, std::string_view name, store::Oid parent, const Visit& visit) {
  store::Record record;
  for (std::int64_t after = 0; desk.Store().NextInParent(desk.Table(name), parent, after, record);
       after = record.order) {
    visit(record);
  }
}

CellKind KindOf(const schema::Field& field) {
  switch (field.type) {
    case schema::FieldType::Long:
      return CellKind::Number;
    case schema::FieldType::Double:
      return CellKind::Money;
    case schema::FieldType::Date:
      return CellKind::Date;
    case schema::FieldType::Boolean:
      return CellKind::Mark;
    default:
      return CellKind::Text;
  }
}

}  // namespace

const ListKind& AddressList() {
  static const ListKind list{
      "Adressen", {{"Name", CellKind::Text, 26}, {"Verträge", CellKind::Number, 4}}, ReadAddresses};
  return list;
}

std::vector<host::Value> AddressCells(Desk& desk, store::Oid address) {
  store::Record record;
  if (!desk.Store().Read(desk.Table(table::Adressen), address, record)) return {};
  return AddressCellsOf(desk, record);
}

const ListKind& TypeList() {
  static const ListKind list{"Vertragstypen",
                             {{"Bezeichnung", CellKind::Text, 36},
                              {"ID", CellKind::Text, 10},
                              {"Status", CellKind::Text, 14},
                              {"Typ", CellKind::Text, 14},
                              {"Art", CellKind::Text, 14},
                              {"Dauer (Monate)", CellKind::Number, 15},
                              {"Zahlung", CellKind::Text, 17},
                              {"Netto", CellKind::Money, 12}},
                             ReadTypes};
  return list;
}

const ListKind& DeadlineList() {
  static const ListKind list{"Fristen",
                             {{"Datum", CellKind::Date, 11},
                              {"Frist", CellKind::Text, 11},
                              {"Zugang spätestens", CellKind::Date, 18},
                              {"Adresse", CellKind::Text, 32},
                              {"Nummer", CellKind::Text, 14},
                              {"Bezeichnung", CellKind::Text, 30},
                              {"Typ", CellKind::Text, 14},
                              {"Verantwortlich", CellKind::Text, 16}},
                             ReadDeadlines};
  return list;
}

const ListKind& AppointmentList() {
  static const ListKind list{"Termine",
                             {{"Datum", CellKind::Date, 11},
                              {"Betreff", CellKind::Text, 42},
                              {"Adresse", CellKind::Text, 32},
                              {"Vertrag", CellKind::Text, 14},
                              {"Verantwortlich", CellKind::Text, 16},
                              {"Erledigt", CellKind::Mark, 9}},
                             ReadAllAppointments};
  return list;
}

const std::vector<ListColumn>& AttributeColumns() {
  static const std::vector<ListColumn> columns{{"Gruppe", CellKind::Text, 20},
                                               {"Merkmal", CellKind::Text, 20},
                                               {"Wert", CellKind::Text, 24},
                                               {"Gültig vom", CellKind::Date, 12},
                                               {"Gültig bis", CellKind::Date, 12}};
  return columns;
}

std::vector<ListRow> ReadAttributes(Desk& desk, store::Oid address) {
  std::vector<ListRow> rows;
  const store::TableId attributes = desk.Table(table::Adressmerkmale);
  ForEachChild(desk, table::Adressmerkmale, address, [&](const store::Record& record) {
    const auto cell = [&](std::string_view name) { return desk.Cell(attributes, record, name); };
    rows.push_back({record.oid,
                    record.oid,
                    {cell(field::Gruppe), cell(field::Merkmal), cell(field::Wert),
                     cell(field::GültigVom), cell(field::GültigBis)}});
  });
  return rows;
}

std::vector<ListRow> ReadAppointments(Desk& desk, store::Oid address) {
  std::vector<ListRow> rows;
  ParentText names(desk, table::Adressen, field::Name);
  const store::TableId contracts = desk.Table(table::vv_Vertraege);
  const store::TableId appointments = desk.Table(table::vv_VertragsAktivitaeten);
  ForEachChild(desk, table::vv_Vertraege, address, [&](const store::Record& contract) {
    const host::Value number = desk.Cell(contracts, contract, field::Vertragnummer);
    ForEachChild(
        desk, table::vv_VertragsAktivitaeten, contract.oid, [&](const store::Record& record) {
          rows.push_back(AppointmentRow(desk, appointments, record, names.Of(address), number));
        });
  });
  return rows;
}

const std::vector<ListColumn>& FieldColumns() {
  static const std::vector<ListColumn> columns{{"Feld", CellKind::Text, 30},
                                               {"Wert", CellKind::Text, 50}};
  return columns;
}

std::vector<ListRow> ReadFields(Desk& desk, store::TableId table, store::Oid oid) {
  std::vector<ListRow> rows;
  store::Record record;
  if (!desk.Store().Read(table, oid, record)) return rows;
  const auto& fields = desk.Store().Catalog().tables[table].fields;
  for (std::size_t i = 0; i < fields.size(); ++i) {
    if (fields[i].type == schema::FieldType::Document) continue;
    const QString text = CellText(KindOf(fields[i]), record.cells[i]);
    if (text.isEmpty()) continue;
    const auto key = static_cast<std::int64_t>(i);
    rows.push_back({key, oid, {fields[i].name, text.toStdString()}});
  }
  return rows;
}

}  // namespace pactora::desktop
