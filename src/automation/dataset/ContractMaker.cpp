#include "automation/dataset/ContractMaker.h"

#include <fmt/format.h>

#include <utility>

#include "automation/formats/errors.h"
#include "host/HostTable.h"
#include "host/row.h"
#include "schema/names.h"
#include "ui/Form.h"

namespace pactora::dataset {

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
  const store::TableId addresses = session_.Store().Catalog().Table(schema::table::Adressen);
  const auto address = addresses_.Find(addresses, order.address);
  if (!address)
    formats::Raise(formats::DoorError::NotCarriedOut,
                   fmt::format("address: keine Adresse mit {}", Describe(order.address)));
  if (!address->only)
    formats::Raise(formats::DoorError::NotCarriedOut,
                   fmt::format("address: mehrere Adressen mit {}; nennen Sie die Oid",
                               Describe(order.address)));
  session_.GoTo(addresses, address->oid);
  const auto contracts = session_.Host().Table(schema::table::vv_Vertraege);
  const std::string oid_before = contracts->Oid();

  messages_.texts.clear();
  try {
    session_.Entry().NewContractDebitor(session_.App(), order.contract, order.articles);
  } catch (...) {
    session_.Host().EndUnit();
    throw;
  }
  session_.Host().EndUnit();
  if (!messages_.texts.empty())
    formats::Raise(formats::DoorError::NotCarriedOut, messages_.texts.front());

  const std::string oid = contracts->Oid();
  if (oid.empty() || oid == oid_before)
    formats::Raise(formats::DoorError::NotCarriedOut, "es ist kein Vertrag entstanden");
  return {host::GetText(*contracts, schema::field::Vertragnummer), oid};
}

}  // namespace pactora::dataset
