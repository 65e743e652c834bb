#include "automation/takeover/run.h"

#include <fmt/format.h>

#include <map>
#include <utility>

#include "automation/formats/csv.h"
#include "automation/formats/errors.h"
#include "automation/workspace/contract_numbers.h"
#include "automation/workspace/fatal_store_error.h"
#include "automation/workspace/row_walk.h"
#include "host/HostDb.h"
#include "platform/Text.h"
#include "schema/names.h"
#include "store/RowView.h"
#include "store/errors.h"

namespace pactora::takeover {

using bulk::Outcome;
using bulk::ReportedContract;
using bulk::ReportLine;

namespace {

// The setting in which earlier releases remembered contracts that their report might lack: a
// line each with the report, the key and the contract number.
constexpr std::string_view kRememberedSetting = "Uebernahmelisten";

store::TableId AddressTable(const store::RecordStore& store) {
  return store.Catalog().Table(schema::table::Adressen);
}

}  // namespace

Run::Run(std::unique_ptr<store::RecordStore> store, const platform::Clock& clock,
         std::string list_name, bool gives_way)
    : session_(std::move(store), driver_, clock),
      clock_(clock),
      list_name_(std::move(list_name)),
      keys_(session_.Store()),
      group_(session_.Host(), gives_way) {
  const schema::Catalog& catalog = session_.Store().Catalog();
  const schema::Table& contracts = catalog.tables[catalog.Table(schema::table::vv_Vertraege)];
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

void Run::AdoptEarlier(const std::vector<ReportedContract>& reported, const List& list) {
  // Another run may adopt the same.
  if (!reported.empty()) session_.Store().LockForUpdate();
  const auto adopt = [&](const ReportedContract& contract, bulk::EnteredContract entered) {
    entered.number = contract.number;
    entered.oid = keys_.ContractOf(contract.number);
    if (entered.oid != 0 && !keys_.Find(contract.key))
      keys_.Add(contract.key, entered, clock_.Now());
  };
  // The report is this list's: another list with the same keys has other values.
  std::map<std::string_view, bulk::EnteredContract> of_list;
  for (const Line& line : list.lines)
    if (!reported.empty() && !line.unclear)
      of_list.try_emplace(
          line.key, bulk::EnteredContract{bulk::DigestOf(line.values), list_name_, {}, 0, false});
  for (const ReportedContract& contract : reported) adopt(contract, of_list[contract.key]);
  for (const ReportedContract& contract : TakeRemembered()) adopt(contract, {});
  group_.End();
}

std::vector<ReportedContract> Run::TakeRemembered() {
  host::HostSettings& settings = session_.App()->CurrentDb()->DbSettings();
  if (!settings.Exists(kRememberedSetting)) return {};
  const std::string text = host::ToText(settings.Item(kRememberedSetting).Value());
  std::vector<ReportedContract> contracts;
  for (const formats::CsvRow& row : formats::ReadCsv(text, formats::kSeparator))
    if (row.cells.size() == 3) contracts.push_back({row.cells[1], row.cells[2]});
  if (!text.empty()) settings.Item(kRememberedSetting).SetValue(std::string());
  return contracts;
}

void Run::CarryOut(const List& list, std::vector<ReportLine>& done,
                   const std::function<void()>& after_line) {
  std::map<std::string_view, const Line*> first_of_key;
  std::vector<ReportLine> of_group;
  const auto end_group = [&] {
    group_.End();
    done.insert(done.end(), of_group.begin(), of_group.end());
    for (std::size_t left = std::exchange(of_group, {}).size(); left > 0; --left) after_line();
  };
  try {
    for (const Line& line : list.lines) {
      // Which cell of an unclear line is its key cannot be said: it is refused without a look
      // at keys.
      const Line& first =
          line.unclear ? line : *first_of_key.try_emplace(line.key, &line).first->second;
      of_group.push_back(line.unclear ? Enter(line) : Take(line, first));
      if (group_.IsFull()) end_group();
    }
    end_group();
  } catch (const platform::Error& error) {
    // Of an uncertain group nothing can be dropped: its store is closed.
    if (error.Number() != store::Number(store::StoreError::Uncertain)) group_.Drop();
    throw bulk::NamingUncertain(error, of_group);
  }
}

ReportLine Run::Take(const Line& line, const Line& first) {
  if (first.values != line.values)
    return {line.line, line.key, Outcome::Refused,
            {},        {},       fmt::format("der Schlüssel steht schon in Zeile {}", first.line)};
  auto entered = keys_.Find(line.key);
  if (!entered && !session_.Store().InUnit()) {
    // Another run may have entered it before this one got the database.
    session_.Store().LockForUpdate();
    entered = keys_.Find(line.key);
  }
  return entered ? TakeKnown(line, first, *entered) : Enter(line);
}

ReportLine Run::TakeKnown(const Line& line, const Line& first,
                          const bulk::EnteredContract& entered) {
  ReportLine result = keys_.Judge(entered, bulk::DigestOf(line.values));
  result.line = line.line;
  result.key = line.key;
  if (result.outcome == Outcome::Skipped && &first != &line)
    result.message = fmt::format("dasselbe steht in Zeile {}", first.line);
  return result;
}

ReportLine Run::Enter(const Line& line) {
  ReportLine result{line.line, line.key, Outcome::Refused, {}, {}, line.refusal};
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
  group_.Begin();
  try {
    session_.GoTo(AddressTable(session_.Store()), *address.oid);
    EnterContract(line, result);
  } catch (const platform::Error& error) {
    if (workspace::FatalStoreErrorOf(error.Number())) throw;
    group_.TakeBack();
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
  if (driver_.FatalError()) throw platform::Error(*driver_.FatalError());
  if (!saved) {
    // Nothing half made stays behind: the line can be corrected and entered again.
    group_.TakeBack();
    if (driver_.Failed()) result.outcome = Outcome::Failed;
    return;
  }
  result.outcome = Outcome::Created;
  result.number = driver_.ContractNumber();
  result.list = list_name_;
  const auto contracts = session_.Host().Table(schema::table::vv_Vertraege);
  const store::Oid oid = store::ParseOid(contracts->Oid()).value_or(0);
  keys_.Add(line.key, {bulk::DigestOf(line.values), list_name_, result.number, oid, false},
            clock_.Now());
  if (const std::string hint = workspace::NumberHint(session_.Store(), oid); !hint.empty())
    result.message += (result.message.empty() ? "" : " | ") + hint;
}

}  // namespace pactora::takeover
