#include "automation/dataset/ContractMaker.h"

#include <fmt/format.h>

#include <utility>

#include "automation/formats/errors.h"
#include "automation/workspace/exit_status.h"
#include "host/HostTable.h"
#include "host/row.h"
#include "schema/names.h"
#include "shell/handlers.h"
#include "ui/Form.h"

namespace pactora::dataset {
namespace {

bool ConcernsDatabase(const platform::Error& error) {
  return workspace::StatusOf(error) != workspace::Status::Refused;
}

// Whether it is raised before anything is stored.
bool IsRefusal(const platform::Error& error) {
  return error.Number() == Number(formats::DoorError::NotCarriedOut) ||
         error.Source() == shell::module_name::modAPI;
}

}  // namespace

ui::Answer ContractMaker::Messages::ShowMessage(const ui::Message& message) {
  texts.push_back(message.text);
  return ui::DefaultAnswer(message.style);
}

void ContractMaker::Messages::ShowModal(ui::Form& form) {
  texts.push_back(fmt::format("unerwarteter Dialog „{}“", form.Caption()));
}

ContractMaker::ContractMaker(std::unique_ptr<store::RecordStore> store,
                             const platform::Clock& clock)
    : session_(std::move(store), messages_, clock), addresses_(session_.Store()) {}

MadeContract ContractMaker::Make(const ContractOrder& order) {
  const auto contracts = session_.Host().Table(schema::table::vv_Vertraege);
  auto& shown = session_.AddOn().last_shown_error;
  shown.reset();
  messages_.texts.clear();
  MadeContract made;
  std::string oid_before;
  try {
    GoToAddress(order.address);
    oid_before = contracts->Oid();
    session_.Entry().NewContractDebitor(session_.App(), order.contract, order.articles);
    if (!messages_.texts.empty()) made.message = formats::SingleLine(messages_.texts.front());
  } catch (const platform::Error& error) {
    if (ConcernsDatabase(error)) throw;
    made.message = formats::Describe(error);
    if (IsRefusal(error)) made.outcome = bulk::Outcome::Refused;
  }
  if (shown && ConcernsDatabase(*shown)) throw platform::Error(*shown);
  if (made.outcome == bulk::Outcome::Refused) return made;
  const std::string oid = contracts->Oid();
  if (oid != oid_before) made.oid = store::ParseOid(oid).value_or(0);
  if (made.oid != 0)
    made.number = host::GetText(*contracts, schema::field::Vertragnummer);
  else if (made.message.empty())
    made.message = "es ist kein Vertrag entstanden";
  if (!made.message.empty()) made.outcome = bulk::Outcome::Failed;
  // The add-on stores it and says nothing.
  else if (order.articles->Count() == 0)
    made.message = "ohne Artikel: dem Vertrag fehlen Wert und Positionen";
  return made;
}

void ContractMaker::GoToAddress(const RowSelector& selector) {
  const store::TableId addresses = session_.Store().Catalog().Table(schema::table::Adressen);
  const auto address = addresses_.Find(addresses, selector);
  if (!address)
    formats::Raise(formats::DoorError::NotCarriedOut,
                   fmt::format("address: keine Adresse mit {}", Describe(selector)));
  if (!address->only)
    formats::Raise(
        formats::DoorError::NotCarriedOut,
        fmt::format("address: mehrere Adressen mit {}; nennen Sie die Oid", Describe(selector)));
  session_.GoTo(addresses, address->oid);
}

}  // namespace pactora::dataset
