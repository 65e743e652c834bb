// Rows and what they refer to.
#include <fmt/format.h>

#include <cmath>
#include <initializer_list>
#include <set>
#include <string_view>
#include <utility>

#include "automation/checks/check.h"
#include "automation/workspace/row_walk.h"
#include "platform/Date.h"
#include "platform/Error.h"
#include "schema/names.h"
#include "store/RowView.h"
#include "store/rows.h"

namespace pactora::checks {

namespace {

namespace table = schema::table;
namespace field = schema::field;

std::string Name(const schema::Table& schema, const store::Record& record) {
  return fmt::format("{}, Oid {}", schema.name, record.oid);
}

// What an export could not write or an import would refuse; empty for none.
std::string_view FaultOf(const host::Value& cell) {
  if (cell.GetKind() == host::Kind::Double && !std::isfinite(cell.AsDouble()))
    return "keine endliche Zahl";
  if (cell.GetKind() != host::Kind::Date) return {};
  const std::int32_t day = platform::WholeDay(cell.AsDate());
  if (day < platform::kFirstDay || day > platform::kLastDay)
    return "das Datum liegt nicht im Bereich von 01.01.0100 bis 31.12.9999";
  return {};
}

void CheckCells(const schema::Table& schema, const store::Record& record, const Finding& found) {
  for (std::size_t i = 0; i < schema.fields.size(); ++i) {
    try {
      if (const auto fault = FaultOf(record.cells[i]); !fault.empty())
        found(fmt::format("{}, {}: {}", Name(schema, record), schema.fields[i].name, fault));
      else if (store::ConvertToField(schema.fields[i], record.cells[i]) != record.cells[i])
        found(fmt::format("{}, {}: der Wert passt nicht zum Typ des Feldes", Name(schema, record),
                          schema.fields[i].name));
    } catch (const platform::Error& error) {
      found(fmt::format("{}, {}: {}", Name(schema, record), schema.fields[i].name,
                        error.Description()));
    }
  }
}

void CheckKeys(store::RecordStore& store, store::TableId id, const store::Record& record,
               const store::Record* parent, const Finding& found) {
  const schema::Table& schema = store.Catalog().tables[id];
  const auto keys =
      store::MakeKeys(store.Catalog(), id, record.cells, parent ? &parent->cells : nullptr);
  store::Record other;
  for (store::IndexId index = 0; index < schema.indexes.size(); ++index) {
    const std::string& name = schema.indexes[index].name;
    if (record.keys[index] != keys[index])
      found(fmt::format("{}: falscher Schlüssel im Index {}", Name(schema, record), name));
    else if (!store.NextByKey(id, index, keys[index], record.order - 1, other) ||
             other.oid != record.oid)
      found(fmt::format("{}: im Index {} nicht zu finden", Name(schema, record), name));
    const auto& parts = schema.indexes[index].parts;
    const bool is_id = schema.id_field && parts.size() == 1 && !parts[0].of_parent &&
                       parts[0].field == *schema.id_field;
    if (is_id && store.NextByKey(id, index, keys[index], record.order, other) &&
        other.keys[index] == keys[index])
      found(fmt::format("{}: dieselbe {} wie Oid {}", Name(schema, record),
                        schema.fields[*schema.id_field].name, other.oid));
  }
}

// The rows under one parent and all below them.
void CheckRowsUnder(store::RecordStore& store, store::TableId id, const store::Record* parent,
                    std::vector<std::int64_t>& visited, const Finding& found,
                    const std::function<void()>& at_row) {
  const schema::Table& schema = store.Catalog().tables[id];
  store::Record record;
  for (std::int64_t after = 0; store.NextInParent(id, parent ? parent->oid : 0, after, record);
       after = record.order) {
    if (at_row) at_row();
    ++visited[id];
    CheckCells(schema, record, found);
    CheckKeys(store, id, record, parent, found);
    for (const store::TableId child : schema.children)
      CheckRowsUnder(store, child, &record, visited, found, at_row);
  }
}

// A field that holds the ID of a row in another table.
struct Reference {
  std::string_view table;
  std::string_view field;
  std::string_view target;
  std::string_view target_index;
};

constexpr std::initializer_list<Reference> kReferences = {
    {table::vv_Vertraege, field::VertragsDefinitionID, table::vv_Vertragsdefinitionen,
     schema::index::ID},
    {table::vv_Vertraege, field::VerlaengerungsWorkflowID, table::KELDO_Vorgaenge,
     schema::index::ID},
    {table::vv_Vertragsdefinitionen, field::WorkflowID, table::KELDO_Vorgaenge, schema::index::ID},
    {table::vv_Vertragspositionen, field::ArtikelID, table::Artikel, schema::index::Id},
    {table::vv_Definitionspositionen, field::ArtikelID, table::Artikel, schema::index::Id},
    {table::MerkmalgruppeAdressen, field::KELDO_WorkflowID, table::KELDO_Vorgaenge,
     schema::index::ID},
    {table::MerkmallisteAdressen, field::KELDO_WorkflowID, table::KELDO_Vorgaenge,
     schema::index::ID},
    {table::WerteMerkmalAdressen, field::KELDO_WorkflowID, table::KELDO_Vorgaenge,
     schema::index::ID},
};

void CheckReference(store::RecordStore& store, const Reference& reference, const Finding& found,
                    const std::function<void()>& at_row) {
  const schema::Catalog& catalog = store.Catalog();
  const auto source = catalog.FindTable(reference.table);
  const auto target = catalog.FindTable(reference.target);
  // A database without the workflow add-on refers to no workflows.
  if (!source || !target) return;
  const schema::Table& schema = catalog.tables[*source];
  const auto column = schema.FindField(reference.field);
  const auto index = catalog.tables[*target].FindIndex(reference.target_index);
  if (!column || !index) return;
  store::Record other;
  std::set<std::string> known;
  workspace::ForEachRow(store, *source, [&](const store::Record& record) {
    if (at_row) at_row();
    const std::string id = host::ToText(record.cells[*column]);
    // The one position of a liability has no article.
    if (id.empty() || id == schema::kDummyArticleId || known.contains(id)) return true;
    const std::string key = store::FoldKey(id);
    if (store.NextByKey(*target, *index, key, 0, other) && other.keys[*index] == key)
      known.insert(id);
    else
      found(fmt::format("{}: {} „{}“ gibt es nicht in {}", Name(schema, record), reference.field,
                        id, reference.target));
    return true;
  });
}

void CheckAlarms(store::RecordStore& store, const Finding& found) {
  const schema::Catalog& catalog = store.Catalog();
  const store::TableId contracts = catalog.Table(table::vv_Vertraege);
  const store::TableId appointments = catalog.Table(table::vv_VertragsAktivitaeten);
  store::Record other;
  workspace::ForEachRow(store, contracts, [&](const store::Record& record) {
    const std::string text =
        store::RowView(catalog.tables[contracts], record).Text(field::AlarmOID);
    if (text.empty()) return true;
    const auto oid = store::ParseOid(text);
    if (!oid || !store.Read(appointments, *oid, other) || other.parent != record.oid)
      found(fmt::format("{}: {} „{}“ ist kein Termin dieses Vertrags",
                        Name(catalog.tables[contracts], record), field::AlarmOID, text));
    return true;
  });
}

}  // namespace

void CheckRows(store::RecordStore& store, const Finding& found,
               const std::function<void()>& at_row) {
  const auto& tables = store.Catalog().tables;
  std::vector<std::int64_t> visited(tables.size());
  for (store::TableId id = 0; id < tables.size(); ++id)
    if (!tables[id].parent) CheckRowsUnder(store, id, nullptr, visited, found, at_row);
  for (store::TableId id = 0; id < tables.size(); ++id)
    if (const std::int64_t lost = store.Count(id) - visited[id]; lost != 0)
      found(fmt::format("{}: {} Zeilen ohne übergeordnete Zeile", tables[id].name, lost));
}

void CheckRelations(store::RecordStore& store, const Finding& found,
                    const std::function<void()>& at_row) {
  for (const Reference& reference : kReferences) CheckReference(store, reference, found, at_row);
  CheckAlarms(store, found);
}

void CheckDatabase(store::RecordStore& store, const Finding& found,
                   const std::function<void()>& at_row) {
  CheckRows(store, found, at_row);
  CheckRelations(store, found, at_row);
  CheckContracts(store, found, at_row);
  CheckCounters(store, found);
}

}  // namespace pactora::checks
