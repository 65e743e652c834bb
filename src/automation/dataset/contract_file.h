// Contract files: what NewContractDebitor takes, one contract as a JSON object or
// many as one object a line.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>

#include "api/ArticleCollection.h"
#include "api/vv_CContractD.h"
#include "automation/dataset/row_selector.h"
#include "automation/formats/TextSource.h"
#include "automation/formats/json.h"

namespace pactora::dataset {

struct ContractOrder {
  std::string source;  // file, and line where the file has many
  RowSelector address;
  std::shared_ptr<api::vv_CContractD> contract;
  std::shared_ptr<api::ArticleCollection> articles;
};

ContractOrder ReadContractOrder(const formats::Json& order, const std::string& source);

// Calls take for each contract of the file, in order, and skips empty lines. Raises
// DoorError::BadInput at the first fault, and for a file without a contract.
void ForEachContract(const formats::TextSource& file,
                     const std::function<void(ContractOrder)>& take);

}  // namespace pactora::dataset
