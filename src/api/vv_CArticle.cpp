#include "api/vv_CArticle.h"

#include <array>

namespace pactora::api {

namespace {

constexpr std::array<host::Member<vv_CArticle>, 10> kArticleProperties = {{
    {"sArtikelID", &vv_CArticle::sArtikelID},
    {"dblAnzahl", &vv_CArticle::dblAnzahl},
    {"lPreisDauer", &vv_CArticle::lPreisDauer},
    {"bSonderpreisVerwenden", &vv_CArticle::bSonderpreisVerwenden},
    {"dblPreis", &vv_CArticle::dblPreis},
    {"sBeschreibung", &vv_CArticle::sBeschreibung},
    {"bUseCustomDiscount", &vv_CArticle::bUseCustomDiscount},
    {"dblCustomDiscount", &vv_CArticle::dblCustomDiscount},
    {"sAuftragsnummer", &vv_CArticle::sAuftragsnummer},
    {"sGruppierung", &vv_CArticle::sGruppierung},
}};

}  // namespace

host::Value vv_CArticle::Get(std::string_view name) const {
  return host::Read(*this, host::FindMember(kArticleProperties, name));
}

void vv_CArticle::Set(std::string_view name, const host::Value& value) {
  host::Write(*this, host::FindMember(kArticleProperties, name), value);
}

const std::vector<PropertyName>& vv_CArticle::Properties() const {
  static const std::vector<PropertyName> names = NamesOf(kArticleProperties);
  return names;
}

}  // namespace pactora::api
