// The company that the benchmarks conclude contracts for.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "api/ArticleCollection.h"
#include "api/vv_CContractD.h"
#include "embedded/Host.h"
#include "platform/Clock.h"
#include "shell/Module.h"
#include "shell/entry/CVV.h"
#include "store/RecordStore.h"
#include "ui/Screen.h"

namespace pactora::bench {

inline constexpr int kAddresses = 1000;
inline constexpr int kArticles = 30;
inline constexpr int kPositions = 5;  // of the contract that is concluded

std::string ArticleId(int number);  // 1 to kArticles

// Addresses, articles and the client with its counter; one unit of work.
store::Profile CompanyProfile();
void FillCompany(store::RecordStore& store);
// Contracts with a term and five positions each, spread over the addresses.
void AddContracts(store::RecordStore& store, std::int64_t count);

// Nobody looks on: a message or a dialog ends the program.
class NobodysScreen final : public ui::Screen {
 public:
  ui::Answer ShowMessage(const ui::Message& message) override;
  void ShowModal(ui::Form& form) override;
  void ProcessPendingMessages() override {}
};

// The add-on over the embedded host, ready to conclude one contract after the
// other for the addresses in turn.
class Office {
 public:
  explicit Office(std::unique_ptr<store::RecordStore> store);

  // One contract of kind 1 with five positions and an attribute, durable when
  // the call returns.
  void ConcludeContract();

 private:
  NobodysScreen screen_;
  platform::FixedClock clock_;
  embedded::Host host_;
  shell::Module module_;
  shell::CVV cvv_;
  std::shared_ptr<host::HostApp> app_;
  std::shared_ptr<host::HostTable> addresses_;
  std::shared_ptr<api::vv_CContractD> contract_;
  std::shared_ptr<api::ArticleList> articles_;
};

}  // namespace pactora::bench
