// One position of a contract as another program describes it.
#pragma once

#include <cstdint>
#include <string>

#include "api/PropertyBag.h"
#include "host/Value.h"

namespace pactora::api {

// A plain record without rules; the properties stand in slot order.
class vv_CArticle final : public Record {
 public:
  std::string sArtikelID;              // key of the article
  double dblAnzahl = 0.0;              // quantity
  std::int32_t lPreisDauer = 0;        // months that the price pays for
  bool bSonderpreisVerwenden = false;  // dblPreis instead of the article's own price
  double dblPreis = 0.0;
  std::string sBeschreibung;        // empty: the article's own description
  bool bUseCustomDiscount = false;  // dblCustomDiscount instead of the contract's discount
  double dblCustomDiscount = 0.0;   // percent
  std::string sAuftragsnummer;
  std::string sGruppierung;

  host::Value Get(std::string_view name) const override;
  void Set(std::string_view name, const host::Value& value) override;
  const std::vector<PropertyName>& Properties() const override;
};

}  // namespace pactora::api
