// Contract files: what NewContractDebitor takes, one contract as a JSON object or
// many as one object a line.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "api/ArticleCollection.h"
#include "api/vv_CContractD.h"
#include "automation/dataset/row_selector.h"
#include "automation/formats/TextSource.h"
#include "automation/formats/json.h"

namespace pactora::dataset {

struct ContractOrder {
  std::string source;    // file, and line where the file has many
  std::string list;      // what the database and reports call the file
  std::size_t line = 1;  // of the file
  RowSelector address;
  std::shared_ptr<api::vv_CContractD> contract;
  std::shared_ptr<api::ArticleCollection> articles;
  std::string key;     // the caller's own; empty for none
  std::string values;  // of a record with a key: the same text for the same values
};

// key_field: the property of the contract that is the key of a record without "key"; such a
// record must have it then. Empty for none.
ContractOrder ReadContractOrder(const formats::Json& order, const std::string& source,
                                std::string_view key_field = {});

// Calls take for each contract of the file, in order, and skips empty lines. Raises
// DoorError::BadInput at the first fault, and for a file without a contract.
void ForEachContract(const formats::TextSource& file,
                     const std::function<void(ContractOrder)>& take,
                     std::string_view key_field = {});

}  // namespace pactora::dataset
