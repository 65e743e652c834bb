#include "automation/bulk/contract_keys.h"

#include "automation/formats/digest.h"
#include "platform/Text.h"
#include "schema/names.h"
#include "store/RowView.h"
#include "store/rows.h"

namespace pactora::bulk {
namespace {

namespace field = schema::field;

// A longer text stands for itself by its digest.
std::string Fitting(const schema::Table& table, std::string_view name, const std::string& text) {
  const auto size = static_cast<std::size_t>(table.fields[table.FindField(name).value()].size);
  return platform::Length(text) <= size ? text : DigestOf(text);
}

}  // namespace

std::string DigestOf(std::string_view values) { return "sha256:" + formats::Sha256(values); }

ContractKeys::ContractKeys(store::RecordStore& store)
    : store_(store),
      keys_(store.Catalog().Table(schema::table::Vertragsschluessel)),
      contracts_(store.Catalog().Table(schema::table::vv_Vertraege)) {}

template <typename Passes>
bool ContractKeys::Seek(store::TableId table, std::string_view name, const std::string& text,
                        Passes passes, store::Record& row) {
  const schema::Table& schema = store_.Catalog().tables[table];
  const store::IndexId index = schema.FindIndex(name).value();
  const std::string folded = store::FoldKey(text);
  for (std::int64_t after = 0; store_.NextByKey(table, index, folded, after, row);
       after = row.order) {
    if (row.keys[index] != folded) return false;
    if (store::RowView(schema, row).Text(name) == text && passes(row)) return true;
  }
  return false;
}

std::optional<EnteredContract> ContractKeys::Find(const std::string& key) {
  const schema::Table& schema = store_.Catalog().tables[keys_];
  store::Record found;
  const auto any = [](const store::Record&) { return true; };
  if (!Seek(keys_, field::Schluessel, Fitting(schema, field::Schluessel, key), any, found))
    return std::nullopt;
  const store::RowView row(schema, found);
  return EnteredContract{row.Text(field::Pruefsumme), row.Text(field::Liste),
                         row.Text(field::Vertragnummer),
                         store::ParseOid(row.Text(field::VertragOid)).value_or(0)};
}

void ContractKeys::Add(const std::string& key, const EnteredContract& entered, platform::Date now) {
  const schema::Table& schema = store_.Catalog().tables[keys_];
  store::Record record;
  record.cells.resize(schema.fields.size());
  const auto set = [&](std::string_view name, const host::Value& value) {
    record.cells[schema.FindField(name).value()] = value;
  };
  set(field::Schluessel, Fitting(schema, field::Schluessel, key));
  set(field::Pruefsumme, entered.digest);
  set(field::Liste, Fitting(schema, field::Liste, entered.list));
  set(field::Vertragnummer, entered.number);
  set(field::VertragOid, entered.oid == 0 ? std::string() : std::to_string(entered.oid));
  set(field::Zeitpunkt, now);
  store::InsertRow(store_, keys_, record, nullptr);
}

bool ContractKeys::Exists(const EnteredContract& entered) {
  store::Record row;
  return entered.oid != 0 && store_.Read(contracts_, entered.oid, row);
}

store::Oid ContractKeys::ContractOf(const std::string& number) {
  store::Record row;
  const auto any = [](const store::Record&) { return true; };
  return Seek(contracts_, field::Vertragnummer, number, any, row) ? row.oid : 0;
}

bool ContractKeys::IsTaken(const std::string& number, store::Oid own) {
  store::Record row;
  const auto is_other = [&](const store::Record& other) { return other.oid != own; };
  return Seek(contracts_, field::Vertragnummer, number, is_other, row);
}

}  // namespace pactora::bulk
