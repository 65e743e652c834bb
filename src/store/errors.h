// Failures of the storage, raised as Error with these numbers.
#pragma once

#include <cstdint>
#include <string>

#include "platform/Error.h"

namespace pactora::store {

enum class StoreError : std::uint32_t {
  Locked = 0x80041020,        // another user holds the database beyond the time limit
  NotReachable = 0x80041021,  // the file can't be opened, the connection is lost
  NotADatabase = 0x80041022,  // foreign or damaged file
  OtherVersion = 0x80041023,  // a structure of another version
  Full = 0x80041024,          // no room to write
  UnitLost = 0x80041025,      // the open unit of work was given up
  DuplicateOid = 0x80041026,
  HasChildren = 0x80041027,
  Failed = 0x80041028,        // anything else; the description says what
  DuplicateKey = 0x80041029,  // a unique key is taken
  TextTooLong = 0x8004102A,   // a text longer than its field
  ReadOnly = 0x8004102B,      // the file or its folder is write-protected
  Uncertain = 0x8004102C,     // a commit broke off: it may have been carried out or not
};

constexpr std::int32_t Number(StoreError error) {
  return platform::ErrorNumber(static_cast<std::uint32_t>(error));
}

// The German description of the failure.
std::string Text(StoreError error);

inline constexpr const char* kErrorSource = "Pactora.Store";

// Raises it with that source; detail, if any, follows the text in
// brackets.
[[noreturn]] void Raise(StoreError error, const std::string& detail = {});

}  // namespace pactora::store
