#include "api/vv_CArticle.h"

#include "api/property_table.h"

namespace pactora::api {

namespace {

using R = vv_CArticle;

constexpr std::array<Property<R>, 10> kProperties = {{
    {"sArtikelID", &R::sArtikelID},
    {"dblAnzahl", &R::dblAnzahl},
    {"lPreisDauer", &R::lPreisDauer},
    {"bSonderpreisVerwenden", &R::bSonderpreisVerwenden},
    {"dblPreis", &R::dblPreis},
    {"sBeschreibung", &R::sBeschreibung},
    {"bUseCustomDiscount", &R::bUseCustomDiscount},
    {"dblCustomDiscount", &R::dblCustomDiscount},
    {"sAuftragsnummer", &R::sAuftragsnummer},
    {"sGruppierung", &R::sGruppierung},
}};

}  // namespace

host::Value vv_CArticle::Get(std::string_view name) const {
  return GetProperty(*this, FindProperty(kProperties, name));
}

void vv_CArticle::Set(std::string_view name, const host::Value& value) {
  SetProperty(*this, FindProperty(kProperties, name), value);
}

const std::vector<PropertyName>& vv_CArticle::Properties() const {
  static const std::vector<PropertyName> names = NamesOf(kProperties);
  return names;
}

}  // namespace pactora::api
