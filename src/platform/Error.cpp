#include "platform/Error.h"

#include <array>
#include <charconv>

#include "platform/current_error.h"

namespace pactora::platform {
namespace {

constexpr std::int32_t kInternalError = 51;

}  // namespace

std::string HexNumber(std::int32_t number) {
  std::array<char, 8> digits{};
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(),
                                 static_cast<std::uint32_t>(number), 16);
  std::string text(digits.data(), end.ptr);
  for (char& digit : text) {
    if (digit >= 'a') digit = static_cast<char>(digit - ('a' - 'A'));
  }
  return text;
}

std::string RuntimeErrorText(RuntimeError error) {
  switch (error) {
    case RuntimeError::InvalidArgument:
      return "Ungültiger Prozeduraufruf oder ungültiges Argument";
    case RuntimeError::Overflow:
      return "Überlauf";
    case RuntimeError::IndexOutOfRange:
      return "Index außerhalb des gültigen Bereichs";
    case RuntimeError::DivisionByZero:
      return "Division durch Null";
    case RuntimeError::TypeMismatch:
      return "Typen unverträglich";
    case RuntimeError::ObjectNotSet:
      return "Objektvariable nicht festgelegt";
    case RuntimeError::ValueNotInList:
      return "Ungültiger Eigenschaftswert";
    case RuntimeError::MemberNotOffered:
      return "Objekt unterstützt diese Eigenschaft oder Methode nicht";
  }
  return "Laufzeitfehler " + std::to_string(static_cast<std::int32_t>(error));
}

void Raise(RuntimeError error) {
  throw Error(static_cast<std::int32_t>(error), RuntimeErrorText(error));
}

Error CurrentError() {
  try {
    throw;
  } catch (const Error& error) {
    return error;
  } catch (...) {
    return Error(kInternalError, "Interner Fehler");
  }
}

}  // namespace pactora::platform
