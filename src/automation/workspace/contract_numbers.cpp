#include "automation/workspace/contract_numbers.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <cstddef>
#include <span>

#include "platform/Text.h"
#include "schema/names.h"
#include "store/RowView.h"
#include "store/errors.h"
#include "store/rows.h"

namespace pactora::workspace {
namespace {

namespace table = schema::table;
namespace field = schema::field;

// Calls visit for the rows of that key until it returns true.
void ForKey(store::RecordStore& store, store::TableId table, std::string_view index,
            const std::string& key, const std::function<bool(const store::Record&)>& visit) {
  const store::IndexId id = store.Catalog().tables[table].FindIndex(index).value();
  const std::string folded = store::FoldKey(key);
  store::Record row;
  for (std::int64_t after = 0; store.NextByKey(table, id, folded, after, row); after = row.order)
    if (row.keys[id] != folded || visit(row)) return;
}

// Digits without leading zeros, in an order of their own: by number.
std::string_view Significant(std::string_view digits) {
  const std::size_t first = digits.find_first_not_of('0');
  return first == std::string_view::npos ? std::string_view() : digits.substr(first);
}

}  // namespace

std::optional<store::Record> SeekText(store::RecordStore& store, store::TableId table,
                                      std::string_view index, std::string_view field,
                                      const std::string& text,
                                      const std::function<bool(const store::Record&)>& passes) {
  const schema::Table& schema = store.Catalog().tables[table];
  std::optional<store::Record> found;
  ForKey(store, table, index, text, [&](const store::Record& row) {
    if (store::RowView(schema, row).Text(field) == text && (!passes || passes(row))) found = row;
    return found.has_value();
  });
  return found;
}

bool IsNumber(std::string_view text) {
  return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
}

bool IsLess(std::string_view number, std::string_view other) {
  const auto left = Significant(number);
  const auto right = Significant(other);
  return left.size() != right.size() ? left.size() < right.size() : left < right;
}

bool LooksDrawn(std::string_view number) { return number.size() >= 8 && IsNumber(number); }

void ForEachNumberCounter(
    store::RecordStore& store,
    const std::function<void(const store::Record&, const std::string&)>& visit) {
  const store::TableId counters = store.Catalog().Table(table::KELM_Nummern);
  const std::string key = std::string(table::vv_Vertraege) + std::string(field::Vertragnummer);
  ForKey(store, counters, schema::index::Tabelle_Feld, key, [&](const store::Record& counter) {
    visit(counter, store::RowView(store.Catalog().tables[counters], counter).Text(field::Nummer));
    return false;
  });
}

bool IsOwnCounter(store::RecordStore& store, const store::Record& counter) {
  const store::TableId clients = store.Catalog().Table(table::KELM_Mandanten);
  store::Record client;
  return store.Read(clients, counter.parent, client) &&
         platform::EqualsIgnoringCase(
             store::RowView(store.Catalog().tables[clients], client).Text(field::TessarinName),
             store.ReadProfile().name);
}

bool IsNumberTaken(store::RecordStore& store, const store::Record& contract) {
  const store::TableId contracts = store.Catalog().Table(table::vv_Vertraege);
  const std::string number =
      store::RowView(store.Catalog().tables[contracts], contract).Text(field::Vertragnummer);
  return !number.empty() &&
         SeekText(store, contracts, schema::index::Vertragnummer, field::Vertragnummer, number,
                  [&](const store::Record& other) { return other.oid != contract.oid; });
}

std::string NumberHint(store::RecordStore& store, store::Oid contract) {
  const store::TableId contracts = store.Catalog().Table(table::vv_Vertraege);
  store::Record row;
  if (!store.Read(contracts, contract, row)) return {};
  const std::string number =
      store::RowView(store.Catalog().tables[contracts], row).Text(field::Vertragnummer);
  if (IsNumberTaken(store, row))
    return fmt::format("die Vertragsnummer {} hat schon ein anderer Vertrag", number);
  if (!LooksDrawn(number)) return {};
  bool is_ahead = true;
  std::string counter;
  ForEachNumberCounter(store, [&](const store::Record& record, const std::string& at) {
    if (at == number) is_ahead = false;
    if (!is_ahead || !IsOwnCounter(store, record)) return;
    counter = at;
    is_ahead = IsNumber(at) && IsLess(at, number);
  });
  if (!is_ahead) return {};
  return fmt::format(
      "die Vertragsnummer {} liegt vor dem Zähler („{}“): die automatische Vergabe gibt sie noch "
      "einmal aus, wenn sie dort ankommt",
      number, counter);
}

platform::Error NamingUncertain(const platform::Error& error,
                                const std::vector<std::string>& numbers) {
  constexpr std::size_t kNamed = 5;
  if (error.Number() != store::Number(store::StoreError::Uncertain) || numbers.empty())
    return error;
  const std::span first(numbers.data(), std::min(numbers.size(), kNamed));
  return {
      error.Number(),
      fmt::format("{} Betroffen {} {}{}.", error.Description(),
                  numbers.size() == 1 ? "ist Vertrag" : "sind die Verträge", fmt::join(first, ", "),
                  numbers.size() > kNamed ? fmt::format(" und {} weitere", numbers.size() - kNamed)
                                          : std::string()),
      error.Source()};
}

}  // namespace pactora::workspace
