// Contracts from contract files, one after the other, through the add-on.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "automation/bulk/report.h"
#include "automation/dataset/contract_file.h"
#include "automation/dataset/row_selector.h"
#include "automation/workspace/Session.h"
#include "platform/Clock.h"
#include "store/RecordStore.h"
#include "ui/Screen.h"

namespace pactora::dataset {

// What one call of the add-on came to.
struct MadeContract {
  // Refused stored nothing, Failed what was stored before the failure: with an Oid a contract
  // that lacks rows, without one none.
  bulk::Outcome outcome = bulk::Outcome::Created;
  std::string number;
  store::Oid oid = 0;
  std::string message;  // why it is not made
};

class ContractMaker {
 public:
  // The clock must outlive the maker.
  ContractMaker(std::unique_ptr<store::RecordStore> store, const platform::Clock& clock);

  // Makes the contract in the open unit of work, which goes on. Raises what concerns the
  // database as a whole.
  MadeContract Make(const ContractOrder& order);

  embedded::Host& Host() { return session_.Host(); }
  store::RecordStore& Store() { return session_.Store(); }

 private:
  // Raises DoorError::NotCarriedOut for an address that is missing or ambiguous.
  void GoToAddress(const RowSelector& selector);

  // No person is there: messages are kept, and dialogs are not expected.
  class Messages final : public ui::Screen {
   public:
    ui::Answer ShowMessage(const ui::Message& message) override;
    void ShowModal(ui::Form& form) override;
    void ProcessPendingMessages() override {}
    std::vector<std::string> texts;
  };

  Messages messages_;
  workspace::Session session_;
  RowFinder addresses_;
};

}  // namespace pactora::dataset
