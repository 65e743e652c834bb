#include "automation/dataset/ContractRun.h"

#include <fmt/format.h>

#include <utility>

#include "automation/formats/errors.h"
#include "automation/workspace/contract_numbers.h"
#include "schema/names.h"
#include "store/RowView.h"

namespace pactora::dataset {

using bulk::Outcome;

namespace {

// What a contract with so many articles lacks whose making failed half-way, in German.
std::string Missing(store::RecordStore& store, store::Oid oid, std::int64_t articles) {
  const schema::Catalog& catalog = store.Catalog();
  const store::TableId contracts = catalog.Table(schema::table::vv_Vertraege);
  store::Record term;
  if (!store.NextInParent(catalog.Table(schema::table::vv_Vertragsstaende), oid, 0, term))
    return "der Vertragsstand mit allen Positionen";
  const std::int64_t there =
      store.CountInParent(catalog.Table(schema::table::vv_Vertragspositionen), term.oid);
  if (there < articles)
    return fmt::format("{} von {} Positionen, der Vertragswert", articles - there, articles);
  store::Record contract;
  if (store.Read(contracts, oid, contract) &&
      !store::RowView(catalog.tables[contracts], contract).Has(schema::field::AktValue))
    return "der Vertragswert";
  return "ein Termin oder das Adressmerkmal";
}

}  // namespace

ContractRun::ContractRun(std::unique_ptr<store::RecordStore> store, const platform::Clock& clock,
                         bool gives_way)
    : clock_(clock),
      maker_(std::move(store), clock),
      keys_(maker_.Store()),
      group_(maker_.Host(), gives_way) {}

void ContractRun::CarryOut(const std::vector<formats::TextSource>& files,
                           std::string_view key_field, const std::function<bool()>& stop_asked,
                           const std::function<void(const Results&)>& after_group) {
  Results of_group;
  const auto end_group = [&] {
    const Results finished = std::exchange(of_group, {});
    try {
      group_.End();
    } catch (const platform::Error& error) {
      std::vector<bulk::ReportLine> lines;
      for (const ContractResult& result : finished) lines.push_back(result.line);
      throw bulk::NamingUncertain(error, lines);
    }
    if (!finished.empty()) after_group(finished);
  };
  for (const formats::TextSource& file : files) {
    const auto take = [&](const ContractOrder& order) {
      if (stop_asked()) formats::RaiseInterrupted();
      try {
        of_group.push_back(Take(order));
      } catch (...) {
        group_.Drop();
        of_group.clear();
        throw;
      }
      if (group_.IsFull()) end_group();
    };
    try {
      ForEachContract(file, take, key_field);
    } catch (...) {
      end_group();
      throw;
    }
  }
  end_group();
}

ContractResult ContractRun::Take(const ContractOrder& order) {
  ContractResult result;
  result.source = order.source;
  if (!IsKnown(order, result)) {
    const bool held_database = maker_.Store().InUnit();
    group_.Begin();
    // Another run may have entered it before this one got the database.
    if (held_database || !IsKnown(order, result)) Enter(order, result);
  }
  result.line.line = order.line;
  result.line.key = order.key;
  return result;
}

bool ContractRun::IsKnown(const ContractOrder& order, ContractResult& result) {
  if (order.key.empty()) return false;
  const auto entered = keys_.Find(order.key);
  if (!entered) return false;
  result.line = keys_.Judge(*entered, bulk::DigestOf(order.values));
  result.oid = entered->oid;
  return true;
}

void ContractRun::Enter(const ContractOrder& order, ContractResult& result) {
  const MadeContract made = maker_.Make(order);
  result.line = {0, {}, made.outcome, made.number, order.list, made.message};
  result.oid = made.oid;
  if (made.oid == 0) return;
  std::string& message = result.line.message;
  const bool is_incomplete = made.outcome == Outcome::Failed;
  if (is_incomplete)
    message += fmt::format("; Vertrag {} ist unvollständig gespeichert, es fehlt: {}", made.number,
                           Missing(maker_.Store(), made.oid, order.articles->Count()));
  if (!order.key.empty())
    keys_.Add(order.key,
              {bulk::DigestOf(order.values), order.list, made.number, made.oid, is_incomplete},
              clock_.Now());
  if (const std::string hint = workspace::NumberHint(maker_.Store(), made.oid); !hint.empty())
    message += (message.empty() ? "" : "; ") + hint;
}

}  // namespace pactora::dataset
