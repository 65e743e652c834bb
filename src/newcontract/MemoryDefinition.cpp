#include "newcontract/MemoryDefinition.h"

#include <variant>
#include <vector>

#include "contract/modVV.h"
#include "contract/position_groups.h"
#include "definitions/vv_CPosition.h"
#include "platform/Error.h"
#include "schema/names.h"

namespace pactora::newcontract {

namespace field = schema::field;
using definitions::vv_CDefinition;
using definitions::vv_CPosition;

namespace {

// A property of a record under the name of the field that it is copied to.
template <typename Record>
struct Property {
  std::string_view field;
  std::variant<std::string Record::*, std::int32_t Record::*, double Record::*> member;
};

constexpr Property<vv_CDefinition> kDefinitionProperties[] = {
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

constexpr Property<vv_CPosition> kPositionProperties[] = {
    {field::Artikel, &vv_CPosition::Artikel},
    {field::Artikelnummer, &vv_CPosition::Artikelnummer},
    {field::Artikelart, &vv_CPosition::Artikelart},
    {field::Einheit, &vv_CPosition::Einheit},
    {field::UStSatz, &vv_CPosition::UStSatz},
    {field::Beschreibung, &vv_CPosition::Beschreibung},
    {field::Anzahl, &vv_CPosition::Anzahl},
    {field::Erloeskonto, &vv_CPosition::Erloeskonto},
    {field::ArtikelID, &vv_CPosition::ArtikelID},
    {field::PreisM1, &vv_CPosition::PreisM1},
    {field::PreisM3, &vv_CPosition::PreisM3},
    {field::PreisM6, &vv_CPosition::PreisM6},
    {field::PreisM12, &vv_CPosition::PreisM12},
    {field::PreisM24, &vv_CPosition::PreisM24},
    {field::PreisM36, &vv_CPosition::PreisM36},
    {field::PreisM48, &vv_CPosition::PreisM48},
    {field::PreisM60, &vv_CPosition::PreisM60},
    {field::Preis, &vv_CPosition::Preis},
    {field::NettoOhneRabatt, &vv_CPosition::NettoOhneRabatt},
    {field::Gruppierung, &vv_CPosition::Gruppierung},
};

template <typename Record, std::size_t kCount>
host::Value Read(const Property<Record> (&properties)[kCount], const Record& record,
                 std::string_view name) {
  for (const Property<Record>& property : properties) {
    if (property.field != name) continue;
    return std::visit([&](auto member) { return host::Value(record.*member); }, property.member);
  }
  platform::Raise(platform::RuntimeError::MemberNotOffered);
}

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
    return Read(kPositionProperties, position_, name);
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
  return Read(kDefinitionProperties, Definition(), name);
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
