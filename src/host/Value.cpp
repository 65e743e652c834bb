#include "host/Value.h"

#include <cmath>
#include <limits>

#include "platform/Locale.h"
#include "platform/Text.h"

namespace pactora::host {
namespace {

using platform::Raise;
using platform::RuntimeError;

// Texts of numbers have a decimal comma whatever the user's locale is: they are
// kept in the database and read elsewhere.
constexpr platform::Locale kComma{','};

std::int32_t RoundToLong(double number) {
  const double whole = std::nearbyint(number);
  if (!(whole >= std::numeric_limits<std::int32_t>::min() &&
        whole <= std::numeric_limits<std::int32_t>::max())) {
    Raise(RuntimeError::Overflow);
  }
  return static_cast<std::int32_t>(whole);
}

double NumberOfText(const std::string& text) {
  const auto number = platform::ParseNumber(text, kComma);
  if (!number) Raise(RuntimeError::TypeMismatch);
  return *number;
}

Date DateOfNumber(double days) {
  if (!(days > platform::kFirstDay - 1 && days < platform::kLastDay + 1)) {
    Raise(RuntimeError::Overflow);
  }
  return Date{days};
}

}  // namespace

bool operator==(const Value& a, const Value& b) {
  if (a.GetKind() == Kind::Array && b.GetKind() == Kind::Array) return a.AsArray() == b.AsArray();
  return a.data_ == b.data_;
}

std::int32_t ToLong(const Value& value) {
  switch (value.GetKind()) {
    case Kind::Empty:
      return 0;
    case Kind::Integer:
      return value.AsInteger();
    case Kind::Long:
      return value.AsLong();
    case Kind::Boolean:
      return value.AsBoolean() ? -1 : 0;
    default:
      return RoundToLong(ToDouble(value));
  }
}

double ToDouble(const Value& value) {
  switch (value.GetKind()) {
    case Kind::Empty:
      return 0.0;
    case Kind::Integer:
      return value.AsInteger();
    case Kind::Long:
      return value.AsLong();
    case Kind::Double:
      return value.AsDouble();
    case Kind::Date:
      return value.AsDate().days;
    case Kind::Boolean:
      return value.AsBoolean() ? -1.0 : 0.0;
    case Kind::Text:
      return NumberOfText(value.AsText());
    case Kind::Object:
    case Kind::Array:
      break;
  }
  Raise(RuntimeError::TypeMismatch);
}

Date ToDate(const Value& value) {
  if (value.GetKind() == Kind::Date) return value.AsDate();
  if (value.GetKind() == Kind::Text) Raise(RuntimeError::TypeMismatch);
  return DateOfNumber(ToDouble(value));
}

bool ToBoolean(const Value& value) {
  if (value.GetKind() == Kind::Boolean) return value.AsBoolean();
  if (value.GetKind() == Kind::Text) {
    const std::string& text = value.AsText();
    if (platform::EqualsIgnoringCase(text, "true")) return true;
    if (platform::EqualsIgnoringCase(text, "false")) return false;
  }
  return ToDouble(value) != 0.0;
}

std::string ToText(const Value& value) {
  switch (value.GetKind()) {
    case Kind::Empty:
      return {};
    case Kind::Text:
      return value.AsText();
    case Kind::Boolean:
      return value.AsBoolean() ? "True" : "False";
    case Kind::Integer:
      return std::to_string(value.AsInteger());
    case Kind::Long:
      return std::to_string(value.AsLong());
    case Kind::Double:
      return platform::FormatPlain(value.AsDouble(), kComma);
    case Kind::Date: {
      const Date date = value.AsDate();
      return platform::FormatDate(date, platform::HasTimeOfDay(date) ? platform::kGermanTimePattern
                                                                     : platform::kGermanPattern);
    }
    case Kind::Object:
    case Kind::Array:
      break;
  }
  Raise(RuntimeError::TypeMismatch);
}

ObjectRef ToObject(const Value& value) {
  if (value.IsEmpty()) return nullptr;
  if (value.GetKind() != Kind::Object) Raise(RuntimeError::TypeMismatch);
  return value.AsObject();
}

}  // namespace pactora::host
