// Attributes of addresses and workflows for the company of a ContractWorld.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "schema/names.h"
#include "support/contract_world.h"

namespace pactora::support {

inline store::Oid AddGroup(ContractWorld& world, std::string_view name, const Values& more = {}) {
  return world.Add(schema::table::MerkmalgruppeAdressen,
                   With({{schema::field::Gruppe, name}}, more));
}

// An attribute of the group with the values that it can take.
inline store::Oid AddAttribute(ContractWorld& world, store::Oid group, std::string_view name,
                               const std::vector<std::string>& values, const Values& more = {}) {
  const store::Oid attribute = world.Add(schema::table::MerkmallisteAdressen,
                                         With({{schema::field::Merkmal, name}}, more), group);
  for (const std::string& value : values) {
    world.Add(schema::table::WerteMerkmalAdressen, {{schema::field::Wert, value}}, attribute);
  }
  return attribute;
}

inline void AddWorkflow(ContractWorld& world, std::string_view id, std::string_view name,
                        std::string_view status = schema::kReleased, const Values& more = {}) {
  world.Add(schema::table::KELDO_Vorgaenge, With({{schema::field::ID, id},
                                                  {schema::field::Betreff, name},
                                                  {schema::field::Status, status}},
                                                 more));
}

}  // namespace pactora::support
