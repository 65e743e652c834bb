// An object that is read and written by property name.
#pragma once

#include <iterator>
#include <string_view>
#include <vector>

#include "host/Value.h"
#include "host/members.h"

namespace pactora::api {

// In the order of the types of host::Member.
enum class PropertyType { Long, Double, Date, Text, Boolean };

struct PropertyName {
  std::string_view name;
  PropertyType type;
};

template <typename Members>
std::vector<PropertyName> NamesOf(const Members& members) {
  std::vector<PropertyName> names;
  names.reserve(std::size(members));
  for (const auto& member : members)
    names.push_back({member.name, static_cast<PropertyType>(member.pointer.index())});
  return names;
}

// Names are exact.
class PropertyBag : public host::Object {
 public:
  // Raises error 438 for a property that the object does not offer.
  virtual host::Value Get(std::string_view name) const = 0;
};

// One of the two records: it can be filled by property name as well.
class Record : public PropertyBag {
 public:
  // The value is converted to the property's type; error 13 or 6 for one that the
  // type cannot take, 438 for a property that the record does not have.
  virtual void Set(std::string_view name, const host::Value& value) = 0;
  // In slot order.
  virtual const std::vector<PropertyName>& Properties() const = 0;
};

}  // namespace pactora::api
