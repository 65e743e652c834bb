// The dynamically typed value that a field, a setting or a persistent variable
// holds, and the conversions between its kinds.
#pragma once

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "platform/Date.h"
#include "platform/Error.h"

namespace pactora::host {

using platform::Date;
using platform::Error;

// Base of everything that an object value can refer to: documents, an
// application's current objects, records read by property name.
class Object {
 public:
  virtual ~Object() = default;
};

// A document that the host keeps beside a row. The add-on copies the handle and
// never looks inside.
class Document : public Object {};

class Value;
using ObjectRef = std::shared_ptr<Object>;
using ValueArray = std::vector<Value>;

struct Empty {
  friend bool operator==(Empty, Empty) { return true; }
};

// The kinds in the order of Value's alternatives. True reads as the number -1,
// False as 0.
enum class Kind { Empty, Integer, Long, Double, Date, Text, Boolean, Object, Array };

class Value {
 public:
  Value() = default;  // empty
  Value(std::int16_t number) : data_(number) {}
  Value(std::int32_t number) : data_(number) {}
  Value(double number) : data_(number) {}
  Value(Date date) : data_(date) {}
  Value(bool flag) : data_(flag) {}
  Value(std::string text) : data_(std::move(text)) {}
  Value(std::string_view text) : data_(std::string(text)) {}
  Value(const char* text) : data_(std::string(text)) {}
  Value(ObjectRef object) : data_(std::move(object)) {}
  template <typename T>
  requires std::derived_from<T, Object> Value(std::shared_ptr<T> object)
      : data_(ObjectRef(std::move(object))) {}
  Value(std::nullptr_t) : data_(ObjectRef()) {}
  Value(ValueArray elements) : data_(std::make_shared<const ValueArray>(std::move(elements))) {}

  Kind GetKind() const { return static_cast<Kind>(data_.index()); }
  bool IsEmpty() const { return GetKind() == Kind::Empty; }

  // Direct access. Requires: the value is of that kind.
  std::int16_t AsInteger() const { return std::get<std::int16_t>(data_); }
  std::int32_t AsLong() const { return std::get<std::int32_t>(data_); }
  double AsDouble() const { return std::get<double>(data_); }
  Date AsDate() const { return std::get<Date>(data_); }
  bool AsBoolean() const { return std::get<bool>(data_); }
  const std::string& AsText() const { return std::get<std::string>(data_); }
  const ObjectRef& AsObject() const { return std::get<ObjectRef>(data_); }
  const ValueArray& AsArray() const { return *std::get<std::shared_ptr<const ValueArray>>(data_); }

  // Equal kind and equal content; arrays element by element, objects by identity.
  friend bool operator==(const Value& a, const Value& b);

 private:
  std::variant<Empty, std::int16_t, std::int32_t, double, Date, std::string, bool, ObjectRef,
               std::shared_ptr<const ValueArray>>
      data_;
};

// Conversions. Empty converts to 0, False, day 0 or the empty text. A Boolean is
// -1 or 0 as a number and "True" or "False" as text. A text is a number when it
// has a sign at most, digits and one decimal comma at most. A fraction becomes a
// whole number with halves to the nearest even one.
// All raise error 13 for a value that has no such form (objects and arrays have
// none) and error 6 for a number outside the range of the result.
std::int32_t ToLong(const Value& value);
double ToDouble(const Value& value);
Date ToDate(const Value& value);  // numbers count days; a text raises error 13
// Texts "true" and "false" in any case and numbers; 0 is False.
bool ToBoolean(const Value& value);
// A Date reads as "dd.MM.yyyy", with " HH:mm:ss" behind it if it has a time.
std::string ToText(const Value& value);
// Null for an empty value; error 13 for anything but an object.
ObjectRef ToObject(const Value& value);

}  // namespace pactora::host
