// The one exception type of the system.
#pragma once

#include <cstdint>
#include <exception>
#include <string>

namespace pactora::platform {

// A failure: a 32-bit number, a description for the user (German) and the name
// of the routine or program it came from. Numbers of the 0x8004.... family are
// negative as signed numbers.
class Error : public std::exception {
 public:
  Error(std::int32_t number, std::string description, std::string source = "Pactora2")
      : number_(number), description_(std::move(description)), source_(std::move(source)) {}

  std::int32_t Number() const { return number_; }
  const std::string& Description() const { return description_; }
  const std::string& Source() const { return source_; }
  const char* what() const noexcept override { return description_.c_str(); }

 private:
  std::int32_t number_;
  std::string description_;
  std::string source_;
};

// The same bits as a signed number: ErrorNumber(0x80045001) is -2147201023.
constexpr std::int32_t ErrorNumber(std::uint32_t bits) { return static_cast<std::int32_t>(bits); }

// The number in upper-case hexadecimal without leading zeros, negative numbers
// as their two's complement: "80040002", "5".
std::string HexNumber(std::int32_t number);

// Run-time errors of the add-on's own code and of value conversions.
enum class RuntimeError : std::int32_t {
  InvalidArgument = 5,
  Overflow = 6,
  IndexOutOfRange = 9,
  DivisionByZero = 11,
  TypeMismatch = 13,
  ObjectNotSet = 91,
  ValueNotInList = 380,
  MemberNotOffered = 438,
};

// The German description of a run-time error, for example "Überlauf" for 6.
std::string RuntimeErrorText(RuntimeError error);
[[noreturn]] void Raise(RuntimeError error);

}  // namespace pactora::platform
