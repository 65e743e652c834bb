// A debtor contract as another program describes it.
#pragma once

#include <cstdint>
#include <string>

#include "api/PropertyBag.h"
#include "host/Value.h"

namespace pactora::api {

// A plain record without rules; the properties stand in slot order.
class vv_CContractD final : public Record {
 public:
  std::int32_t lVertragArt = 0;     // 1 renewable, 2 once
  host::Date VertragBeginn;         // first day of the contract
  host::Date VertragGeschlossenAm;  // day of signature; day 0: not yet concluded
  std::string Bezeichnung;
  std::int32_t Dauer = 0;                          // months
  std::int32_t Zahlungsperiode = 0;                // months
  std::int32_t Verlaengerungsdauer = 0;            // months, kind 1
  std::int32_t VerlaengerungsZahlungsperiode = 0;  // months, kind 1
  double dblRabatt = 0.0;                          // percent, 0 to 100
  std::int32_t KuendFristInWochen = 0;             // weeks, kind 1
  std::string Memo;
  bool RabattNurErsteLaufzeit = false;
  std::string SetztMerkmalGruppe;  // address attribute to set
  std::string SetztMerkmal;
  std::string SetztWert;
  std::string Auftragsnummer;

  // Copies the properties by name in slot order, each converted to its type.
  // Raises what Get and the conversions raise; the record then holds what was
  // copied before.
  void CopyFrom(const PropertyBag& source);

  host::Value Get(std::string_view name) const override;
  void Set(std::string_view name, const host::Value& value) override;
  const std::vector<PropertyName>& Properties() const override;
};

}  // namespace pactora::api
