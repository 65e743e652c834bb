// A contract file: carried out twice, each contract with a key is made once.
#include "automation/dataset/contract_file.h"

#include <string>

#include "automation/dataset/ContractRun.h"
#include "fuzz/fuzz.h"

namespace pactora::fuzz {

void Try(std::string_view input) {
  const formats::TextSource file = formats::MemorySource("eingabe", std::string(input));
  std::int64_t keyed = 0;
  std::int64_t all = 0;
  const auto count = [&](const dataset::ContractOrder& order) {
    ++all;
    if (!order.key.empty()) ++keyed;
  };
  if (!Ends([&] { dataset::ForEachContract(file, count); })) return;

  auto owned = Company();
  store::RecordStore& store = *owned;
  dataset::ContractRun run(std::move(owned), kClock, false);
  std::int64_t made = 0;
  std::int64_t again = 0;
  bool is_whole = true;
  const auto carry_out = [&](std::int64_t& stored) {
    run.CarryOut(
        {file}, {}, [] { return false; },
        [&](const dataset::ContractRun::Results& results) {
          for (const dataset::ContractResult& result : results) {
            if (result.oid != 0 && result.line.outcome != bulk::Outcome::Skipped) ++stored;
            is_whole = is_whole && result.line.message.empty();
          }
        });
  };
  carry_out(made);
  Require(CountContracts(store) == made, "each contract is reported");
  carry_out(again);
  Require(CountContracts(store) <= made + all - keyed, "a key is made once");
  if (is_whole) RequireSound(store);
}

}  // namespace pactora::fuzz
