// Contracts and their numbers.
#include <fmt/format.h>

#include <algorithm>
#include <optional>
#include <string_view>
#include <unordered_map>

#include "automation/checks/check.h"
#include "automation/workspace/contract_numbers.h"
#include "automation/workspace/row_walk.h"
#include "platform/Date.h"
#include "platform/Text.h"
#include "schema/names.h"
#include "store/RowView.h"

namespace pactora::checks {

namespace {

namespace table = schema::table;
namespace field = schema::field;

using store::RowView;

// The text field beside a date field holds the same day.
bool SaysSameDay(const RowView& row, std::string_view date, std::string_view text) {
  return !row.Has(date) ||
         platform::FormatDate(host::ToDate(row[date]), platform::kSortPattern) == row.Text(text);
}

class ContractCheck {
 public:
  ContractCheck(store::RecordStore& store, const Finding& found)
      : store_(store),
        catalog_(store.Catalog()),
        contracts_(catalog_.Table(table::vv_Vertraege)),
        terms_(catalog_.Table(table::vv_Vertragsstaende)),
        positions_(catalog_.Table(table::vv_Vertragspositionen)),
        found_(found) {}

  void Check(const store::Record& record) {
    const RowView contract(catalog_.tables[contracts_], record);
    name_ = fmt::format("Vertrag {} ({}, Oid {})", contract.Text(field::Vertragnummer),
                        table::vv_Vertraege, record.oid);
    CheckContract(contract);
    store::Record term;
    bool any = false;
    for (std::int64_t after = 0; store_.NextInParent(terms_, record.oid, after, term);
         after = term.order) {
      any = true;
      CheckTerm(contract, term);
    }
    if (!any) Found("hat keinen Vertragsstand");
  }

 private:
  void Found(const std::string& what) { found_(name_ + " " + what); }

  void CheckContract(const RowView& contract) {
    if (contract.Text(field::Vertragnummer).empty()) Found("hat keine Nummer");
    const std::string typ = contract.Text(field::Typ);
    if (typ != schema::kTypDebtor && typ != schema::kTypCreditor)
      Found(fmt::format("hat im Feld Typ „{}“", typ));
    for (const std::string_view name :
         {field::Art, field::VertragBeginn, field::VertragEnde, field::AktValue,
          field::AktZahlungsperiode, field::AktNaechsteRechnung})
      if (!contract.Has(name)) Found(fmt::format("hat ein leeres Feld {}", name));
    const std::int32_t art = contract.Long(field::Art);
    if (schema::ArtText(art).empty())
      Found(fmt::format("hat im Feld Art {}", art));
    else if (schema::ArtText(art) != contract.Text(field::ArtStr))
      Found(fmt::format("hat im Feld Art {}, aber in {} „{}“", art, field::ArtStr,
                        contract.Text(field::ArtStr)));
    if (art == schema::kArtRenewable && !contract.Has(field::KuendfristDatum))
      Found(fmt::format("hat ein leeres Feld {}", field::KuendfristDatum));
    if (!SaysSameDay(contract, field::AktNaechsteRechnung, field::AktNaechsteRechnungStr))
      Found(fmt::format("hat ein {}, das nicht zum Datum passt", field::AktNaechsteRechnungStr));
  }

  void CheckTerm(const RowView& contract, const store::Record& record) {
    const RowView term(catalog_.tables[terms_], record);
    const auto in_term = [&](const std::string& what) {
      Found(fmt::format("hat im Vertragsstand ab {} (Oid {}) {}", term.Text(field::LaufzeitStart),
                        record.oid, what));
    };
    for (const std::string_view name : {field::LaufzeitStart, field::LaufzeitEnde, field::Value,
                                        field::RechnungWann, field::NaechsteRechnung})
      if (!term.Has(name)) in_term(fmt::format("ein leeres Feld {}", name));
    for (const auto& [date, text] :
         {std::pair(field::LaufzeitStart, field::LaufzeitStartStr),
          std::pair(field::LaufzeitEnde, field::LaufzeitEndeStr),
          std::pair(field::NaechsteRechnung, field::NaechsteRechnungStr)})
      if (!SaysSameDay(term, date, text))
        in_term(fmt::format("ein {}, das nicht zum Datum passt", text));
    // A type without positions makes contracts without value; every other contract
    // that is invoiced has positions.
    if (contract.Text(field::Typ) == schema::kTypDebtor && term.Double(field::Value) != 0.0 &&
        store_.CountInParent(positions_, record.oid) == 0)
      in_term("keine Positionen");
  }

  store::RecordStore& store_;
  const schema::Catalog& catalog_;
  store::TableId contracts_;
  store::TableId terms_;
  store::TableId positions_;
  const Finding& found_;
  std::string name_;
};

// The counter of this database's contract numbers, empty where there is none; none
// where it is no number.
std::optional<std::string> CounterNumber(store::RecordStore& store, const Finding& found) {
  std::optional<std::string> number = "";
  bool known = false;
  workspace::ForEachNumberCounter(
      store, [&](const store::Record& counter, const std::string& text) {
        const bool is_number = workspace::IsNumber(text);
        if (!is_number)
          found(fmt::format("{}, Oid {}, {}: der Zähler „{}“ ist keine Zahl", table::KELM_Nummern,
                            counter.oid, field::Nummer, text));
        if (known || !workspace::IsOwnCounter(store, counter)) return;
        known = true;
        number = is_number ? std::optional(text) : std::nullopt;
      });
  return number;
}

}  // namespace

void CheckContracts(store::RecordStore& store, const Finding& found,
                    const std::function<void()>& at_row) {
  ContractCheck check(store, found);
  const store::TableId contracts = store.Catalog().Table(table::vv_Vertraege);
  workspace::ForEachRow(store, contracts, [&](const store::Record& record) {
    if (at_row) at_row();
    check.Check(record);
    return true;
  });
}

void CheckCounters(store::RecordStore& store, const Finding& found) {
  const schema::Catalog& catalog = store.Catalog();
  const store::TableId contracts = catalog.Table(table::vv_Vertraege);
  std::string largest;
  workspace::ForEachRow(store, contracts, [&](const store::Record& record) {
    const std::string number =
        RowView(catalog.tables[contracts], record).Text(field::Vertragnummer);
    if (workspace::LooksDrawn(number) && workspace::IsLess(largest, number)) largest = number;
    return true;
  });
  const auto counter = CounterNumber(store, found);
  if (counter && !largest.empty() && workspace::IsLess(*counter, largest))
    found(fmt::format("{}: der Zähler für {} steht auf „{}“, vergeben ist schon {}",
                      table::KELM_Nummern, field::Vertragnummer, *counter, largest));
}

void CheckNumbers(store::RecordStore& store, const Finding& hint) {
  const schema::Catalog& catalog = store.Catalog();
  const store::TableId contracts = catalog.Table(table::vv_Vertraege);
  std::unordered_map<std::string, store::Oid> holders;
  workspace::ForEachRow(store, contracts, [&](const store::Record& record) {
    const std::string number =
        RowView(catalog.tables[contracts], record).Text(field::Vertragnummer);
    const auto [holder, first] = holders.emplace(number, record.oid);
    if (!first && !number.empty())
      hint(fmt::format("{}, Oid {}, {}: „{}“ hat auch Oid {}", table::vv_Vertraege, record.oid,
                       field::Vertragnummer, number, holder->second));
    return true;
  });
}

}  // namespace pactora::checks
