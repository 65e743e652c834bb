// Failures of what is read and carried out from outside: input files, scripts,
// the databases they name. Raised as Error with these numbers.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/Error.h"

namespace pactora::formats {

enum class DoorError : std::uint32_t {
  BadInput = 0x80042001,       // a file that can't be read as what it should be
  NotCarriedOut = 0x80042002,  // readable, but impossible on this database
  NotAvailable = 0x80042003,   // a kind of database that this build does not have
  Interrupted = 0x80042004,    // the user asked to stop
};

constexpr std::int32_t Number(DoorError error) {
  return platform::ErrorNumber(static_cast<std::uint32_t>(error));
}

inline constexpr const char* kErrorSource = "Pactora";

// Raises it with that source and the text as its description: one line that
// names the place.
[[noreturn]] void Raise(DoorError error, const std::string& text);

// The message for a user who asked to stop.
inline constexpr const char* kInterrupted = "abgebrochen";
// Raises DoorError::Interrupted with that text.
[[noreturn]] void RaiseInterrupted();

// Line breaks and tabs become blanks.
std::string SingleLine(std::string_view text);

// A text of a reasonable length: of a longer one its beginning and its end.
std::string Shortened(const std::string& text);

// An error number as files hold it: "0x80045001", upper-case hexadecimal without
// leading zeros.
std::string ErrorNumberText(std::int32_t number);

// The error in one line of a reasonable length for people: of the add-on and the host with its
// number.
std::string Describe(const platform::Error& error);

}  // namespace pactora::formats
