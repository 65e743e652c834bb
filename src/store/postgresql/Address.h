// Where a database is: a server's database and a schema in it.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace pactora::store::postgresql {

struct Address {
  std::vector<std::pair<std::string, std::string>> parameters;  // of libpq, by name
  std::string schema;
};

// The schema of an address that names none.
inline constexpr const char* kDefaultSchema = "pactora";

// Reads "postgresql://[user@]host[:port]/database[?PARAMETERS]" or "service=NAME[?PARAMETERS]",
// whose parameters are libpq's and "schema". Raises StoreError::NotReachable for any other text,
// and for one with a password in it: every user of the machine sees a program's arguments.
Address ParseAddress(std::string_view text);

}  // namespace pactora::store::postgresql
