#include "automation/bulk/contract_keys.h"

#include <fmt/format.h>

#include <utility>

#include "automation/formats/digest.h"
#include "automation/workspace/contract_numbers.h"
#include "platform/Text.h"
#include "schema/names.h"
#include "store/RowView.h"
#include "store/rows.h"

namespace pactora::bulk {
namespace {

namespace field = schema::field;

// Stands before the digest of a contract that lacks rows.
constexpr std::string_view kIncomplete = "unvollständig ";

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

std::optional<EnteredContract> ContractKeys::Find(const std::string& key) {
  const schema::Table& description = store_.Catalog().tables[keys_];
  const auto found =
      workspace::SeekText(store_, keys_, schema::index::Schluessel, field::Schluessel,
                          Fitting(description, field::Schluessel, key));
  if (!found) return std::nullopt;
  const store::RowView row(description, *found);
  std::string digest = row.Text(field::Pruefsumme);
  const bool is_incomplete = digest.starts_with(kIncomplete);
  if (is_incomplete) digest.erase(0, kIncomplete.size());
  return EnteredContract{std::move(digest), row.Text(field::Liste), row.Text(field::Vertragnummer),
                         store::ParseOid(row.Text(field::VertragOid)).value_or(0), is_incomplete};
}

void ContractKeys::Add(const std::string& key, const EnteredContract& entered, platform::Date now) {
  const schema::Table& schema = store_.Catalog().tables[keys_];
  store::Record record;
  record.cells.resize(schema.fields.size());
  const auto set = [&](std::string_view name, const host::Value& value) {
    record.cells[schema.FindField(name).value()] = value;
  };
  set(field::Schluessel, Fitting(schema, field::Schluessel, key));
  set(field::Pruefsumme, (entered.is_incomplete ? std::string(kIncomplete) : "") + entered.digest);
  set(field::Liste, Fitting(schema, field::Liste, entered.list));
  set(field::Vertragnummer, entered.number);
  set(field::VertragOid, entered.oid == 0 ? std::string() : std::to_string(entered.oid));
  set(field::Zeitpunkt, now);
  store::InsertRow(store_, keys_, record, nullptr);
}

ReportLine ContractKeys::Judge(const EnteredContract& entered, const std::string& digest) {
  ReportLine line{0, {}, Outcome::Skipped, entered.number, entered.list, {}};
  store::Record row;
  if (!entered.digest.empty() && entered.digest != digest) {
    line.outcome = Outcome::Refused;
    line.number.clear();
    line.message =
        fmt::format("der Schlüssel gehört mit anderen Werten schon zu Vertrag {}", entered.number);
  } else if (!store_.Read(contracts_, entered.oid, row)) {
    line.message = "den Vertrag gibt es nicht mehr";
  } else if (entered.is_incomplete) {
    line.message = fmt::format(
        "ein früherer Lauf ist daran gescheitert; Vertrag {} ist unvollständig", entered.number);
  }
  return line;
}

store::Oid ContractKeys::ContractOf(const std::string& number) {
  const auto contract = workspace::SeekText(store_, contracts_, schema::index::Vertragnummer,
                                            field::Vertragnummer, number);
  return contract ? contract->oid : 0;
}

}  // namespace pactora::bulk
