// One contract type in memory: changed for a single contract, stored nowhere.
#pragma once

#include <cstdint>
#include <string>

namespace pactora::definitions {

// A plain record without rules; a new one is empty. The properties carry the
// names and codings of the fields of a stored contract type.
class vv_CDefinition {
 public:
  std::string Typ;  // "D" or "K"
  std::string Bezeichnung;
  std::int32_t Art = 0;  // 1 renewable, 2 once, 3 unlimited
  std::string ArtStr;
  std::int32_t Dauer = 0;                // months; 0 for an unlimited contract
  std::int32_t Verlaengerungsdauer = 0;  // months
  std::int32_t Kuendigungsfrist = 0;
  std::string KuendigungsfristEinh;   // "Wochen" or "Monate"
  std::string KuendigungsfristBezug;  // filled by no dialog
  std::int32_t VerlKuendigungsfrist = 0;
  std::string VerlKuendigungsfristEinh;
  std::int32_t Zahlungsperiode = 0;                // months
  std::int32_t VerlaengerungsZahlungsperiode = 0;  // months
  std::int32_t RechnungWann = 0;                   // 0 in advance, 1 in arrears
  bool NoBooking = false;                          // invoiced elsewhere
  double NettoSumme = 0.0;                         // sum of the position totals, not rounded
  std::string ErfordertMerkmalGruppe;              // attribute that the address must have
  std::string ErfordertMerkmal;
  std::string ErfordertWert;       // dates as "yyyy-MM-dd"
  std::string SetztMerkmalGruppe;  // attribute that a new contract sets
  std::string SetztMerkmal;
  std::string SetztWert;              // dates as "yyyy-MM-dd"
  double FirmenProvision = 0.0;       // nobody reads or writes it
  double MitarbeiterProvision = 0.0;  // nobody reads or writes it
  std::string VerlaengerungsWorkflowID;
  bool Dirty = false;  // holds changes that belong to the type in DefOid
  std::string DefOid;  // Oid of the stored type from which the record was made
};

}  // namespace pactora::definitions
