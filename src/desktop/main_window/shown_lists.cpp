#include "desktop/main_window/shown_lists.h"

#include <string_view>
#include <utility>

#include "automation/lists/ListReader.h"
#include "automation/lists/details.h"
#include "desktop/text.h"
#include "schema/names.h"

namespace pactora::desktop {
namespace {

namespace field = schema::field;

// Columns by their key, with their width in characters.
ListKind Shown(const lists::List& list,
               const std::vector<std::pair<std::string_view, int>>& columns) {
  std::vector<std::string_view> keys;
  keys.reserve(columns.size());
  for (const auto& column : columns) keys.push_back(column.first);
  ListKind kind{lists::ListOf(list, keys), {}};
  for (std::size_t i = 0; i < columns.size(); ++i) {
    const lists::Column& column = kind.list.columns[i];
    kind.columns.push_back({ToQt(column.title), column.kind, columns[i].second});
  }
  return kind;
}

lists::ListReader Reader(OpenDatabase& database, const ListKind& kind, store::Oid address) {
  return {kind.list, database.Store(), database.Clock().Today(), lists::Codes::InWords, address};
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
  static const ListKind kind = Shown(lists::Addresses(), {{field::Name, 26}, {"contracts", 4}});
  return kind;
}

const ListKind& TypeList() {
  static const ListKind kind = Shown(lists::Types(), {{field::Bezeichnung, 36},
                                                      {field::ID, 10},
                                                      {field::Status, 14},
                                                      {field::Typ, 14},
                                                      {field::ArtStr, 14},
                                                      {field::Dauer, 22},
                                                      {field::Zahlungsperiode, 17},
                                                      {field::NettoSumme, 12}});
  return kind;
}

const ListKind& DeadlineList() {
  static const ListKind kind = Shown(lists::Deadlines(), {{field::Datum, 11},
                                                          {"Frist", 11},
                                                          {"Zugang", 17},
                                                          {"Versaeumt", 9},
                                                          {"Adresse", 28},
                                                          {field::Vertragnummer, 13},
                                                          {field::Bezeichnung, 27},
                                                          {field::Typ, 13},
                                                          {field::Verantwortlich, 13}});
  return kind;
}

const ListKind& AppointmentList() {
  static const ListKind kind = Shown(lists::Appointments(), {{field::Datum, 11},
                                                             {field::Betreff, 42},
                                                             {"Adresse", 32},
                                                             {"Vertrag", 14},
                                                             {field::Verantwortlich, 16},
                                                             {field::Erledigt, 9}});
  return kind;
}

const ListKind& AttributeList() {
  static const ListKind kind = Shown(lists::Attributes(), {{field::Gruppe, 20},
                                                           {field::Merkmal, 20},
                                                           {field::Wert, 24},
                                                           {field::GültigVom, 12},
                                                           {field::GültigBis, 12}});
  return kind;
}

ReadRows ReadList(OpenDatabase& database, const ListKind& kind) {
  return [reader = Reader(database, kind, 0)](std::vector<ListRow>& rows) mutable {
    return reader.Next(rows);
  };
}

std::vector<ListRow> RowsOf(OpenDatabase& database, const ListKind& kind, store::Oid address) {
  if (address == 0) return {};
  return Reader(database, kind, address).Rest();
}

const std::vector<ListColumn>& DetailColumns() {
  static const std::vector<ListColumn> columns{{"Angabe", CellKind::Text, 34},
                                               {"Wert", CellKind::Text, 50}};
  return columns;
}

std::vector<ListRow> ReadDetails(OpenDatabase& database, store::TableId table, store::Oid oid,
                                 Shows shows) {
  std::vector<ListRow> rows;
  store::Record record;
  if (!database.Store().Read(table, oid, record)) return rows;
  const auto add = [&](std::string_view title, CellKind kind, const host::Value& value) {
    const QString text = CellText(kind, value);
    if (text.isEmpty()) return;
    const auto key = static_cast<std::int64_t>(rows.size());
    rows.push_back({key, oid, {std::string(title), text.toStdString()}});
  };
  const schema::Table& schema = database.Store().Catalog().tables[table];
  if (shows == Shows::Words) {
    for (const lists::Detail& detail : lists::Details(schema.name, {schema, record}))
      add(detail.title, detail.kind, detail.value);
    return rows;
  }
  for (std::size_t i = 0; i < schema.fields.size(); ++i)
    if (schema.fields[i].type != schema::FieldType::Document)
      add(schema.fields[i].name, KindOf(schema.fields[i]), record.cells[i]);
  return rows;
}

}  // namespace pactora::desktop
