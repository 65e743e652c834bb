#include "newcontract/MemoryDefinition.h"

#include <vector>

#include "contract/modVV.h"
#include "contract/position_groups.h"
#include "definitions/position_columns.h"
#include "host/members.h"
#include "platform/Error.h"
#include "schema/names.h"

namespace pactora::newcontract {

namespace field = schema::field;
using definitions::vv_CDefinition;
using definitions::vv_CPosition;

namespace {

// The properties under the names of the fields that they are copied to.
constexpr host::Member<vv_CDefinition> kDefinitionProperties[] = {
    {field::Bezeichnung, &vv_CDefinition::Bezeichnung},
    {field::Art, &vv_CDefinition::Art},
    {field::ArtStr, &vv_CDefinition::ArtStr},
    {field::Kuendigungsfrist, &vv_CDefinition::Kuendigungsfrist},
    {field::KuendigungsfristEinh, &vv_CDefinition::KuendigungsfristEinh},
    {field::KuendigungsfristBezug, &vv_CDefinition::KuendigungsfristBezug},
    {field::VerlKuendigungsfrist, &vv_CDefinition::VerlKuendigungsfrist},
    {field::VerlKuendigungsfristEinh, &vv_CDefinition::VerlKuendigungsfristEinh},
    {field::NettoSumme, &vv_CDefinition::NettoSumme},
    {field::ErfordertMerkmalGruppe, &vv_CDefinition::ErfordertMerkmalGruppe},
    {field::ErfordertMerkmal, &vv_CDefinition::ErfordertMerkmal},
    {field::ErfordertWert, &vv_CDefinition::ErfordertWert},
    {field::SetztMerkmalGruppe, &vv_CDefinition::SetztMerkmalGruppe},
    {field::SetztMerkmal, &vv_CDefinition::SetztMerkmal},
    {field::SetztWert, &vv_CDefinition::SetztWert},
};

class MemoryPosition final : public DefinitionPosition {
 public:
  // place and running_number count from 1; group is its group's number.
  MemoryPosition(const vv_CPosition& position, std::size_t place, std::size_t running_number,
                 std::int32_t group)
      : position_(position), place_(place), running_number_(running_number), group_(group) {}

  host::Value Field(std::string_view name) override {
    if (name == field::Row) return contract::RowText(place_);
    if (name == field::Positionsnummer) return std::to_string(running_number_);
    if (name == field::Gruppierungsposition) return group_;
    return definitions::FieldOf(position_, name);
  }

 private:
  const vv_CPosition& position_;
  const std::size_t place_;
  const std::size_t running_number_;
  const std::int32_t group_;
};

}  // namespace

vv_CDefinition& MemoryDefinition::Definition() const {
  if (!module_.gDefinition) platform::Raise(platform::RuntimeError::ObjectNotSet);
  return *module_.gDefinition;
}

host::Value MemoryDefinition::Field(std::string_view name) {
  return host::Read(Definition(), host::FindMember(kDefinitionProperties, name));
}

SetAttribute MemoryDefinition::AttributeToSet() {
  const vv_CDefinition& definition = Definition();
  return {definition.SetztMerkmalGruppe, definition.SetztMerkmal, definition.SetztWert};
}

host::Value MemoryDefinition::RenewalWorkflowId() { return Definition().VerlaengerungsWorkflowID; }

std::string MemoryDefinition::FirstPeriodName(std::int32_t zahlungsperiode) {
  return contract::GetPeriodName(zahlungsperiode);
}

std::string MemoryDefinition::AttributeTitle(const std::string&) {
  return Definition().Bezeichnung;
}

void MemoryDefinition::ForEachPosition(PositionOrder order,
                                       const std::function<void(DefinitionPosition&)>& visit) {
  if (!module_.gPositions) return;
  const shell::PositionCollection& positions = *module_.gPositions;
  std::vector<std::string> groups;
  // Without regard to groups the list is one group.
  for (const auto& position : positions) {
    groups.push_back(order == PositionOrder::ByGroup ? position->Gruppierung : std::string());
  }
  std::size_t running_number = 0;
  for (const contract::GroupedPosition& place : contract::WritingOrder(groups)) {
    MemoryPosition position(*positions[place.index], place.index + 1, ++running_number,
                            place.group);
    visit(position);
  }
}

}  // namespace pactora::newcontract
