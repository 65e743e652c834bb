#include "automation/dataset/contract_file.h"

#include <fmt/format.h>

#include <utility>

#include "automation/dataset/records.h"
#include "automation/dataset/values.h"
#include "schema/names.h"

namespace pactora::dataset {

namespace {

RowSelector ReadAddress(const formats::Json& address, const formats::Place& place) {
  if (address.is_string()) return {ReadOid(address, place), {}};
  if (!address.is_object()) place.Fail("eine Oid oder ein Objekt mit Feldern wird erwartet");
  const schema::Catalog catalog = schema::ContractCatalog(true);
  return ReadWhere(catalog.tables[catalog.Table(schema::table::Adressen)], address, place);
}

bool IsBlank(const std::string& line) {
  return line.find_first_not_of(" \t\r\n") == std::string::npos;
}

// Whether the first line with content is a whole JSON value: then the file has one
// contract a line.
bool HasOneContractALine(const formats::TextSource& file) {
  const auto in = file.open();
  std::string line;
  while (std::getline(*in, line))
    if (!IsBlank(line)) return formats::Json::accept(line);
  return false;
}

}  // namespace

ContractOrder ReadContractOrder(const formats::Json& order, const std::string& source) {
  const formats::Place place(source);
  formats::AllowKeys(formats::RequireObject(order, place), {"address", "contract", "articles"},
                     place);
  return {source, ReadAddress(formats::Require(order, "address", place), place.Key("address")),
          ReadContract(formats::Require(order, "contract", place), place.Key("contract")),
          ReadArticles(formats::Require(order, "articles", place), place.Key("articles"))};
}

void ForEachContract(const formats::TextSource& file,
                     const std::function<void(ContractOrder)>& take) {
  const auto in = file.open();
  if (!HasOneContractALine(file)) {
    take(ReadContractOrder(formats::ParseJson(*in, file.name), file.name));
    return;
  }
  std::string line;
  for (std::size_t number = 1; std::getline(*in, line); ++number) {
    if (IsBlank(line)) continue;
    const std::string source = fmt::format("{}, Zeile {}", file.name, number);
    take(ReadContractOrder(formats::ParseJsonLine(line, source), source));
  }
}

}  // namespace pactora::dataset
