#include "automation/contract_file.h"

#include <fmt/format.h>

#include <utility>

#include "automation/records.h"
#include "automation/values.h"
#include "schema/names.h"

namespace pactora::automation {

namespace {

RowChoice ReadAddress(const Json& address, const Place& place) {
  if (address.is_string()) return {ReadOid(address, place), {}};
  if (!address.is_object()) place.Fail("eine Oid oder ein Objekt mit Feldern wird erwartet");
  const schema::Catalog catalog = schema::ContractCatalog(true);
  return ReadWhere(catalog.tables[catalog.FindTable(schema::table::Adressen).value()], address,
                   place);
}

bool IsBlank(const std::string& line) {
  return line.find_first_not_of(" \t\r\n") == std::string::npos;
}

// Whether the first line with content is a whole JSON value: then the file has one
// contract a line.
bool HasOneContractALine(const TextSource& file) {
  const auto in = file.open();
  std::string line;
  while (std::getline(*in, line))
    if (!IsBlank(line)) return Json::accept(line);
  return false;
}

}  // namespace

ContractOrder ReadContractOrder(const Json& order, const std::string& source) {
  const Place place(source);
  AllowKeys(RequireObject(order, place), {"address", "contract", "articles"}, place);
  return {source, ReadAddress(Require(order, "address", place), place.Key("address")),
          ReadContract(Require(order, "contract", place), place.Key("contract")),
          ReadArticles(Require(order, "articles", place), place.Key("articles"))};
}

void ForEachContract(const TextSource& file, const std::function<void(ContractOrder)>& take) {
  const auto in = file.open();
  if (!HasOneContractALine(file)) {
    take(ReadContractOrder(ParseJson(*in, file.name), file.name));
    return;
  }
  std::string line;
  for (std::size_t number = 1; std::getline(*in, line); ++number) {
    if (IsBlank(line)) continue;
    const std::string source = fmt::format("{}, Zeile {}", file.name, number);
    take(ReadContractOrder(ParseJsonLine(line, source), source));
  }
}

}  // namespace pactora::automation
