#include "api/vv_CContractD.h"

#include <array>

namespace pactora::api {

namespace {

constexpr std::array<host::Member<vv_CContractD>, 16> kContractProperties = {{
    {"lVertragArt", &vv_CContractD::lVertragArt},
    {"VertragBeginn", &vv_CContractD::VertragBeginn},
    {"VertragGeschlossenAm", &vv_CContractD::VertragGeschlossenAm},
    {"Bezeichnung", &vv_CContractD::Bezeichnung},
    {"Dauer", &vv_CContractD::Dauer},
    {"Zahlungsperiode", &vv_CContractD::Zahlungsperiode},
    {"Verlaengerungsdauer", &vv_CContractD::Verlaengerungsdauer},
    {"VerlaengerungsZahlungsperiode", &vv_CContractD::VerlaengerungsZahlungsperiode},
    {"dblRabatt", &vv_CContractD::dblRabatt},
    {"KuendFristInWochen", &vv_CContractD::KuendFristInWochen},
    {"Memo", &vv_CContractD::Memo},
    {"RabattNurErsteLaufzeit", &vv_CContractD::RabattNurErsteLaufzeit},
    {"SetztMerkmalGruppe", &vv_CContractD::SetztMerkmalGruppe},
    {"SetztMerkmal", &vv_CContractD::SetztMerkmal},
    {"SetztWert", &vv_CContractD::SetztWert},
    {"Auftragsnummer", &vv_CContractD::Auftragsnummer},
}};

}  // namespace

void vv_CContractD::CopyFrom(const PropertyBag& source) {
  for (const auto& property : kContractProperties)
    host::Write(*this, property, source.Get(property.name));
}

host::Value vv_CContractD::Get(std::string_view name) const {
  return host::Read(*this, host::FindMember(kContractProperties, name));
}

void vv_CContractD::Set(std::string_view name, const host::Value& value) {
  host::Write(*this, host::FindMember(kContractProperties, name), value);
}

const std::vector<PropertyName>& vv_CContractD::Properties() const {
  static const std::vector<PropertyName> names = NamesOf(kContractProperties);
  return names;
}

}  // namespace pactora::api
