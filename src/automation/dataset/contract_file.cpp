#include "automation/dataset/contract_file.h"

#include <fmt/format.h>

#include <filesystem>
#include <utility>

#include "automation/dataset/records.h"
#include "automation/dataset/values.h"
#include "automation/formats/JsonWriter.h"
#include "schema/names.h"

namespace pactora::dataset {

namespace {

RowSelector ReadAddress(const formats::Json& address, const formats::Place& place) {
  if (address.is_string()) return {ReadOid(address, place), {}};
  if (!address.is_object()) place.Fail("eine Oid oder ein Objekt mit Feldern wird erwartet");
  const schema::Catalog& catalog = schema::WholeCatalog();
  return ReadWhere(catalog.tables[catalog.Table(schema::table::Adressen)], address, place);
}

// A property's value as a key; empty for none.
std::string KeyText(const formats::Json& value) {
  if (value.is_null()) return {};
  return value.is_string() ? value.get<std::string>() : formats::OneLine(value);
}

std::string ReadKey(const formats::Json& order, std::string_view field,
                    const formats::Place& place) {
  if (const formats::Json* key = formats::Find(order, "key")) {
    const formats::Place here = place.Key("key");
    std::string text = formats::RequireText(*key, here);
    if (text.empty()) here.Fail("ein Schlüssel ist nicht leer");
    return text;
  }
  if (field.empty()) return {};
  const formats::Json* value = formats::Find(order["contract"], field);
  std::string text = value ? KeyText(*value) : std::string();
  if (text.empty()) place.Key("contract").Key(field).Fail("der Schlüssel fehlt");
  return text;
}

// Whatever the order of the members and the blanks between them.
std::string ValuesOf(const formats::Json& order) {
  nlohmann::json values(order);
  values.erase("key");
  return values.dump();
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

ContractOrder ReadContractOrder(const formats::Json& order, const std::string& source,
                                std::string_view key_field) {
  const formats::Place place(source);
  formats::AllowKeys(formats::RequireObject(order, place),
                     {"key", "address", "contract", "articles"}, place);
  ContractOrder result;
  result.source = source;
  result.address = ReadAddress(formats::Require(order, "address", place), place.Key("address"));
  result.contract = ReadContract(formats::Require(order, "contract", place), place.Key("contract"));
  result.articles = ReadArticles(formats::Require(order, "articles", place), place.Key("articles"));
  result.key = ReadKey(order, key_field, place);
  if (!result.key.empty()) result.values = ValuesOf(order);
  return result;
}

void ForEachContract(const formats::TextSource& file,
                     const std::function<void(ContractOrder)>& take, std::string_view key_field) {
  const auto in = file.open();
  const auto take_one = [&](const formats::Json& record, const std::string& source,
                            std::size_t number) {
    ContractOrder order = ReadContractOrder(record, source, key_field);
    order.list = std::filesystem::path(file.name).filename().string();
    order.line = number;
    take(std::move(order));
  };
  if (!HasOneContractALine(file)) {
    take_one(formats::ParseJson(*in, file.name), file.name, 1);
    return;
  }
  std::string line;
  for (std::size_t number = 1; std::getline(*in, line); ++number) {
    if (IsBlank(line)) continue;
    const std::string source = fmt::format("{}, Zeile {}", file.name, number);
    take_one(formats::ParseJsonLine(line, source), source, number);
  }
}

}  // namespace pactora::dataset
