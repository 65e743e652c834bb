// Contracts from contract files, one after the other, through the add-on.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "automation/dataset/contract_file.h"
#include "automation/dataset/row_selector.h"
#include "automation/workspace/Session.h"
#include "platform/Clock.h"
#include "store/RecordStore.h"
#include "ui/Screen.h"

namespace pactora::dataset {

struct MadeContract {
  std::string number;
  std::string oid;
};

class ContractMaker {
 public:
  // The clock must outlive the maker.
  ContractMaker(std::unique_ptr<store::RecordStore> store, const platform::Clock& clock);

  // Makes the contract in a unit of work of its own. Raises the add-on's refusal or
  // failure; DoorError::NotCarriedOut with the text of a message that the add-on
  // showed, for an address that is missing or ambiguous, and where the call stored no
  // contract.
  // What was stored before a failure stays.
  MadeContract Make(const ContractOrder& order);

  store::RecordStore& Store() { return session_.Store(); }

 private:
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
