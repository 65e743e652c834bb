// The members of a record under names: a table says once which member a property, a
// field or a column of that name is.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

#include "host/Value.h"

namespace pactora::host {

template <typename Record>
struct Member {
  std::string_view name;
  std::variant<std::int32_t Record::*, double Record::*, Date Record::*, std::string Record::*,
               bool Record::*>
      pointer;
};

// The member of that name in a table of members. Raises error 438 where there is none.
template <typename Members>
const auto& FindMember(const Members& members, std::string_view name) {
  for (const auto& member : members)
    if (member.name == name) return member;
  platform::Raise(platform::RuntimeError::MemberNotOffered);
}

template <typename Record>
Value Read(const Record& record, const Member<Record>& member) {
  return std::visit([&](auto pointer) { return Value(record.*pointer); }, member.pointer);
}

inline void Convert(const Value& value, std::int32_t& target) { target = ToLong(value); }
inline void Convert(const Value& value, double& target) { target = ToDouble(value); }
inline void Convert(const Value& value, Date& target) { target = ToDate(value); }
inline void Convert(const Value& value, std::string& target) { target = ToText(value); }
inline void Convert(const Value& value, bool& target) { target = ToBoolean(value); }

// Converts the value to the member's type; raises what the conversion raises.
template <typename Record>
void Write(Record& record, const Member<Record>& member, const Value& value) {
  std::visit([&](auto pointer) { Convert(value, record.*pointer); }, member.pointer);
}

}  // namespace pactora::host
