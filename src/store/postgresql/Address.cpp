#include "store/postgresql/Address.h"

#include <libpq-fe.h>

#include <charconv>
#include <memory>

#include "store/errors.h"

namespace pactora::store::postgresql {
namespace {

constexpr std::string_view kService = "service=";
constexpr std::string_view kSchema = "schema";

constexpr const char* kNoPassword =
    "ein Kennwort gehört nicht in die Adresse, weil andere sie sehen; es steht in ~/.pgpass, in "
    "der Dienstdatei oder in PGPASSWORD";

// "%C3%A4" is "ä".
std::string Decoded(std::string_view text) {
  std::string decoded;
  for (std::size_t i = 0; i < text.size(); ++i) {
    unsigned char byte = 0;
    const char* const digits = text.data() + i + 1;
    if (text[i] == '%' && i + 2 < text.size() &&
        std::from_chars(digits, digits + 2, byte, 16).ptr == digits + 2) {
      decoded += static_cast<char>(byte);
      i += 2;
    } else {
      decoded += text[i];
    }
  }
  return decoded;
}

std::pair<std::string_view, std::string_view> Split(std::string_view text, char at) {
  const std::size_t place = text.find(at);
  if (place == std::string_view::npos) return {text, {}};
  return {text.substr(0, place), text.substr(place + 1)};
}

// What libpq reads from the text without our own parameter.
void AddParsed(Address& address, const std::string& text) {
  char* message = nullptr;
  const std::unique_ptr<PQconninfoOption, void (*)(PQconninfoOption*)> options(
      PQconninfoParse(text.c_str(), &message), PQconninfoFree);
  if (options == nullptr) {
    const std::unique_ptr<char, void (*)(void*)> owned(message, PQfreemem);
    std::string why = message == nullptr ? "" : message;
    while (!why.empty() && why.back() == '\n') why.pop_back();
    Raise(StoreError::NotReachable, "die Adresse ist nicht zu lesen: " + why);
  }
  for (const PQconninfoOption* option = options.get(); option->keyword != nullptr; ++option) {
    if (option->val != nullptr) address.parameters.emplace_back(option->keyword, option->val);
  }
}

}  // namespace

Address ParseAddress(std::string_view text) {
  Address address;
  address.schema = kDefaultSchema;
  auto [place, query] = Split(text, '?');
  std::string rest(place);
  const bool is_service = place.starts_with(kService);
  while (!query.empty()) {
    const auto [parameter, others] = Split(query, '&');
    query = others;
    const auto [name, value] = Split(parameter, '=');
    if (name == kSchema) {
      address.schema = Decoded(value);
    } else if (is_service) {
      address.parameters.emplace_back(Decoded(name), Decoded(value));
    } else {
      rest.append(rest.find('?') == std::string::npos ? "?" : "&").append(parameter);
    }
  }
  if (is_service)
    address.parameters.emplace_back("service", Decoded(place.substr(kService.size())));
  else
    AddParsed(address, rest);
  for (const auto& [name, value] : address.parameters) {
    if (name == "password") Raise(StoreError::NotReachable, kNoPassword);
  }
  if (address.schema.empty()) Raise(StoreError::NotReachable, "das Schema hat keinen Namen");
  return address;
}

}  // namespace pactora::store::postgresql
