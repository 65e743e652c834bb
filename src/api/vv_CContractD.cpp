#include "api/vv_CContractD.h"

#include "api/property_table.h"

namespace pactora::api {

namespace {

using R = vv_CContractD;

constexpr std::array<Property<R>, 16> kProperties = {{
    {"lVertragArt", &R::lVertragArt},
    {"VertragBeginn", &R::VertragBeginn},
    {"VertragGeschlossenAm", &R::VertragGeschlossenAm},
    {"Bezeichnung", &R::Bezeichnung},
    {"Dauer", &R::Dauer},
    {"Zahlungsperiode", &R::Zahlungsperiode},
    {"Verlaengerungsdauer", &R::Verlaengerungsdauer},
    {"VerlaengerungsZahlungsperiode", &R::VerlaengerungsZahlungsperiode},
    {"dblRabatt", &R::dblRabatt},
    {"KuendFristInWochen", &R::KuendFristInWochen},
    {"Memo", &R::Memo},
    {"RabattNurErsteLaufzeit", &R::RabattNurErsteLaufzeit},
    {"SetztMerkmalGruppe", &R::SetztMerkmalGruppe},
    {"SetztMerkmal", &R::SetztMerkmal},
    {"SetztWert", &R::SetztWert},
    {"Auftragsnummer", &R::Auftragsnummer},
}};

}  // namespace

void vv_CContractD::CopyFrom(const PropertyBag& source) {
  for (const Property<R>& property : kProperties) {
    SetProperty(*this, property, source.Get(property.name));
  }
}

host::Value vv_CContractD::Get(std::string_view name) const {
  return GetProperty(*this, FindProperty(kProperties, name));
}

void vv_CContractD::Set(std::string_view name, const host::Value& value) {
  SetProperty(*this, FindProperty(kProperties, name), value);
}

const std::vector<PropertyName>& vv_CContractD::Properties() const {
  static const std::vector<PropertyName> names = NamesOf(kProperties);
  return names;
}

}  // namespace pactora::api
