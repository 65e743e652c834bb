// The properties of a record described once, as a table of names and members.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "api/PropertyBag.h"
#include "host/Value.h"

namespace pactora::api {

// The alternatives stand in the order of PropertyType.
template <typename T>
using Member =
    std::variant<std::int32_t T::*, double T::*, host::Date T::*, std::string T::*, bool T::*>;

template <typename T>
struct Property {
  std::string_view name;
  Member<T> member;
};

inline void Convert(const host::Value& value, std::int32_t& target) {
  target = host::ToLong(value);
}
inline void Convert(const host::Value& value, double& target) { target = host::ToDouble(value); }
inline void Convert(const host::Value& value, host::Date& target) { target = host::ToDate(value); }
inline void Convert(const host::Value& value, std::string& target) { target = host::ToText(value); }
inline void Convert(const host::Value& value, bool& target) { target = host::ToBoolean(value); }

template <typename T, std::size_t N>
const Property<T>& FindProperty(const std::array<Property<T>, N>& table, std::string_view name) {
  for (const Property<T>& property : table) {
    if (property.name == name) return property;
  }
  platform::Raise(platform::RuntimeError::MemberNotOffered);
}

template <typename T>
host::Value GetProperty(const T& record, const Property<T>& property) {
  return std::visit([&](auto member) { return host::Value(record.*member); }, property.member);
}

template <typename T>
void SetProperty(T& record, const Property<T>& property, const host::Value& value) {
  std::visit([&](auto member) { Convert(value, record.*member); }, property.member);
}

template <typename T, std::size_t N>
std::vector<PropertyName> NamesOf(const std::array<Property<T>, N>& table) {
  std::vector<PropertyName> names;
  names.reserve(N);
  for (const Property<T>& property : table) {
    names.push_back({property.name, static_cast<PropertyType>(property.member.index())});
  }
  return names;
}

}  // namespace pactora::api
