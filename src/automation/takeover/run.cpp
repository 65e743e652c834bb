#include "automation/takeover/run.h"

#include <fmt/format.h>

#include <algorithm>
#include <map>

#include "automation/formats/csv.h"
#include "automation/formats/errors.h"
#include "automation/workspace/fatal_store_error.h"
#include "automation/workspace/row_walk.h"
#include "host/HostDb.h"
#include "platform/Text.h"
#include "schema/names.h"
#include "store/RowView.h"
#include "store/errors.h"

namespace pactora::takeover {
namespace {

// The database setting that remembers contracts: a line each with the report, the
// key and the contract number.
constexpr std::string_view kRememberedSetting = "Uebernahmelisten";
// So many contracts are remembered before the report is made safe.
constexpr std::size_t kMostRemembered = 50;

store::TableId AddressTable(const store::RecordStore& store) {
  return store.Catalog().Table(schema::table::Adressen);
}

const schema::Table& Contracts(const schema::Catalog& catalog) {
  return catalog.tables[catalog.Table(schema::table::vv_Vertraege)];
}

}  // namespace

Run::Run(std::unique_ptr<store::RecordStore> store, const platform::Clock& clock)
    : session_(std::move(store), driver_, clock) {
  const schema::Table& contracts = Contracts(session_.Store().Catalog());
  const auto number = contracts.FindField(schema::field::Vertragnummer);
  number_size_ = static_cast<std::size_t>(contracts.fields[number.value()].size);
  ReadAddresses();
}

void Run::ReadAddresses() {
  const store::TableId table = AddressTable(session_.Store());
  const schema::Table& schema = session_.Store().Catalog().tables[table];
  workspace::ForEachRow(session_.Store(), table, [&](const store::Record& row) {
    addresses_[store::RowView(schema, row).Text(schema::field::Name)].push_back(row.oid);
    address_oids_.insert(row.oid);
    return true;
  });
}

Run::FoundAddress Run::FindAddress(const std::string& name) const {
  const auto cannot = [&](const char* why) -> FoundAddress {
    return {std::nullopt, fmt::format("Spalte Adresse: „{}“ {}", name, why)};
  };
  std::optional<store::Oid> oid = store::ParseOid(name);
  if (oid && !address_oids_.contains(*oid)) oid.reset();
  const auto named = addresses_.find(name);
  if (named == addresses_.end()) return oid ? FoundAddress{oid, {}} : cannot("gibt es nicht");
  if (named->second.size() > 1) return cannot("gibt es mehrmals; nennen Sie die Oid");
  if (oid && *oid != named->second.front())
    return cannot("ist der Name einer Adresse und die Oid einer anderen");
  return {named->second.front(), {}};
}

Run::Count Run::CarryOut(const List& list, Report& report, const std::string& report_name,
                         const std::function<void()>& after_line) {
  report_name_ = report_name;
  ReadContracts(report);
  const std::vector<Remembered> mine = ReadRemembered();
  // Without the report this list begins from the start.
  if (report.Resumed()) kept_ = mine;
  for (const Remembered& contract : kept_)
    if (report.CreatedFor(contract.key) == nullptr)
      report.AddEarlier(contract.key, contract.number);
  Count count;
  std::map<std::string_view, const Line*> first_of_key;
  for (const Line& line : list.lines) {
    // The key of an unclear line is not known; it is refused.
    const ReportLine result =
        line.unclear ? Enter(line)
                     : Take(line, *first_of_key.try_emplace(line.key, &line).first->second, report);
    report.Add(result);
    switch (result.outcome) {
      case Outcome::Created:
        ++count.created;
        break;
      case Outcome::Skipped:
        ++count.skipped;
        break;
      case Outcome::Refused:
        ++count.refused;
        break;
      case Outcome::Failed:
        ++count.failed;
        break;
    }
    after_line();
  }
  return count;
}

ReportLine Run::Take(const Line& line, const Line& first, Report& report) {
  if (first.values != line.values)
    return {line.line,
            line.key,
            Outcome::Refused,
            {},
            fmt::format("der Schlüssel steht schon in Zeile {}", first.line)};
  if (const std::string* number = report.CreatedFor(line.key)) {
    ReportLine result = AgainOrAnother(line, report, *number);
    if (&first != &line && result.outcome == Outcome::Skipped)
      result.message = fmt::format("dasselbe steht in Zeile {}", first.line);
    return result;
  }
  if (const Remembered* contract = Recovered(line.key))
    return {line.line, line.key, Outcome::Created, contract->number, {}};
  if (recent_.size() >= kMostRemembered) {
    report.Sync();
    recent_.clear();
  }
  return Enter(line);
}

std::string Run::Count::Text() const {
  const std::string failures = failed == 0 ? std::string() : fmt::format("{} Fehler, ", failed);
  return fmt::format("{} angelegt, {} abgelehnt, {}{} übersprungen", created, refused, failures,
                     skipped);
}

void Run::Finish(Report& report) {
  report.Finish();
  recent_.clear();
  kept_.clear();
  // Read and written in one unit, so that no other run writes in between.
  session_.Store().LockForUpdate();
  WriteRemembered();
  session_.Host().EndUnit();
}

void Run::ReadContracts(const Report& report) {
  store::RecordStore& store = session_.Store();
  const schema::Table& schema = Contracts(store.Catalog());
  workspace::ForEachRow(
      store, store.Catalog().Table(schema.name), [&](const store::Record& record) {
        const store::RowView row(schema, record);
        contracts_.emplace(row.Text(schema::field::Vertragnummer),
                           Known{record.parent, row.Text(schema::field::Bezeichnung),
                                 host::ToDate(row[schema::field::VertragBeginn])});
        return true;
      });
  const auto is_gone = [&](const ReportLine& line) { return !contracts_.contains(line.number); };
  if (!report.Earlier().empty() && std::ranges::all_of(report.Earlier(), is_gone))
    formats::Raise(formats::DoorError::BadInput,
                   report.Path() +
                       ": der Bericht gehört zu einer anderen Datenbank, keinen seiner Verträge "
                       "gibt es in dieser");
}

const Run::Remembered* Run::Recovered(const std::string& key) const {
  const auto found = std::find_if(kept_.begin(), kept_.end(),
                                  [&](const Remembered& contract) { return contract.key == key; });
  return found == kept_.end() ? nullptr : &*found;
}

ReportLine Run::AgainOrAnother(const Line& line, const Report& report,
                               const std::string& number) const {
  ReportLine result{line.line, line.key, Outcome::Skipped, number, {}};
  const auto [first, end] = contracts_.equal_range(number);
  if (first == end) result.message = "den Vertrag gibt es nicht mehr";
  if (!report.WasDoubled(line.key)) return result;
  // Two lines of one list had the key: this may be the one that was not entered.
  const std::optional<store::Oid> address = FindAddress(line.address).oid;
  const bool is_the_one = std::any_of(first, end, [&](const auto& entry) {
    const Known& contract = entry.second;
    return contract.address == address && contract.type == line.type &&
           contract.begin == line.begin;
  });
  if (is_the_one) return result;
  result.outcome = Outcome::Refused;
  result.number.clear();
  result.message = fmt::format("der Schlüssel gehört schon zu Vertrag {}", number);
  return result;
}

ReportLine Run::Enter(const Line& line) {
  ReportLine result{line.line, line.key, Outcome::Refused, {}, line.refusal};
  if (!line.refusal.empty()) return result;
  const FoundAddress address = FindAddress(line.address);
  if (!address.oid) {
    result.message = address.why_not;
    return result;
  }
  if (platform::Length(line.number) > number_size_) {
    result.message = fmt::format("Spalte Vertragsnummer: höchstens {} Zeichen", number_size_);
    return result;
  }
  try {
    session_.GoTo(AddressTable(session_.Store()), *address.oid);
    EnterContract(line, result);
  } catch (const platform::Error& error) {
    session_.Host().DropUnit();
    if (workspace::FatalStoreErrorOf(error.Number())) throw;
    result.outcome = Outcome::Failed;
    result.message =
        fmt::format("Fehler &H{}: {}", platform::HexNumber(error.Number()), error.Description());
  }
  return result;
}

void Run::EnterContract(const Line& line, ReportLine& result) {
  driver_.Begin(line, session_.AddOn());
  bool saved = false;
  std::int32_t terms = 0;
  bool show_definition = false;
  session_.Entry().NewContract(session_.App(), saved, terms, show_definition);
  result.message = driver_.Refusal().empty() ? driver_.JoinedMessages() : driver_.Refusal();
  if (saved) {
    recent_.push_back({line.key, driver_.ContractNumber()});
    WriteRemembered();
    session_.Host().EndUnit();
    result.outcome = Outcome::Created;
    result.number = driver_.ContractNumber();
    if (contracts_.contains(result.number)) {
      result.message += result.message.empty() ? "" : " | ";
      result.message += "die Vertragsnummer hat schon ein anderer Vertrag";
    }
    contracts_.emplace(result.number, Known{});
    return;
  }
  // Nothing half made stays behind: the line can be corrected and entered again.
  session_.Host().DropUnit();
  if (driver_.FatalError()) store::Raise(*driver_.FatalError());
  if (driver_.Failed()) result.outcome = Outcome::Failed;
}

std::vector<Run::Remembered> Run::ReadRemembered() {
  host::HostSettings& settings = session_.App()->CurrentDb()->DbSettings();
  std::string text;
  if (settings.Exists(kRememberedSetting))
    text = host::ToText(settings.Item(kRememberedSetting).Value());
  std::vector<Remembered> mine;
  of_others_.clear();
  for (const formats::CsvRow& row : formats::ReadCsv(text, formats::kSeparator)) {
    if (row.cells.size() != 3) continue;
    if (row.cells[0] == report_name_)
      mine.push_back({row.cells[1], row.cells[2]});
    else
      of_others_ += row.text + "\n";
  }
  remembered_ = std::move(text);
  return mine;
}

void Run::WriteRemembered() {
  host::HostSettings& settings = session_.App()->CurrentDb()->DbSettings();
  const bool exists = settings.Exists(kRememberedSetting);
  // Another run has written meanwhile.
  if (exists && host::ToText(settings.Item(kRememberedSetting).Value()) != remembered_)
    ReadRemembered();
  std::string text = of_others_;
  for (const auto* mine : {&kept_, &recent_})
    for (const Remembered& contract : *mine)
      text += formats::CsvLine({report_name_, contract.key, contract.number}, formats::kSeparator) +
              "\n";
  if (exists) {
    settings.Item(kRememberedSetting).SetValue(text);
  } else if (!text.empty()) {
    settings.Add(kRememberedSetting, text);
  }
  remembered_ = std::move(text);
}

}  // namespace pactora::takeover
