#include "automation/dataset/ContractJob.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "api/vv_CContractD.h"
#include "automation/formats/errors.h"
#include "automation/formats/files.h"
#include "automation/workspace/database.h"

namespace pactora::dataset {
namespace {

void CheckKeyField(const std::string& field) {
  const api::vv_CContractD contract;
  const auto is_field = [&](const api::PropertyName& property) { return property.name == field; };
  if (!field.empty() && std::ranges::none_of(contract.Properties(), is_field))
    formats::Raise(formats::DoorError::BadInput,
                   "--key-from: ein Vertrag hat keine Eigenschaft „" + field + "“");
}

void CheckReport(const ContractJobOrder& order) {
  if (order.report.empty()) return;
  bulk::RequireOwnFile(order.report, order.database, order.files);
  if (!bulk::ReadEarlierReport(order.report).empty())
    formats::Raise(formats::DoorError::BadInput,
                   order.report +
                       ": diesen Bericht einer früheren Version braucht noch die Übernahme, die "
                       "Datei wird nicht ersetzt");
}

}  // namespace

ContractJob::ContractJob(ContractJobOrder order) : order_(std::move(order)) {
  CheckKeyField(order_.key_field);
  CheckReport(order_);
  for (const std::string& file : order_.files) files_.push_back(formats::FileSource(file));
  for (const auto& file : files_)
    ForEachContract(
        file, [this](const ContractOrder&) { ++size_; }, order_.key_field);
}

void ContractJob::CarryOut(const platform::Clock& clock, const std::function<bool()>& stop_asked,
                           const std::function<void(const ContractRun::Results&)>& after_group,
                           const std::function<void(WrittenRows&)>& written) {
  const auto take = [&](const ContractRun::Results& results) {
    for (const ContractResult& result : results) {
      count_.Add(result.line.outcome);
      if (!order_.report.empty()) lines_.push_back(result.line);
    }
    after_group(results);
  };
  workspace::Naming(order_.database, [&] {
    auto store =
        workspace::OpenDatabase(order_.database, order_.rehearsal ? workspace::Access::Rehearsal
                                                                  : workspace::Access::Write);
    WrittenRows* rows = order_.rehearsal ? &WrittenRows::Watch(store) : nullptr;
    const bool gives_way =
        size_ > 1 && !order_.rehearsal && order_.database != workspace::kMemoryName;
    ContractRun run(std::move(store), clock, gives_way);
    bulk::LeavingReport(order_.rehearsal ? std::string() : order_.report, lines_,
                        [&] { run.CarryOut(files_, order_.key_field, stop_asked, take); });
    if (rows) written(*rows);
  });
}

}  // namespace pactora::dataset
