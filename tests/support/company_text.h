// A small company as a dataset, and a contract for it.
#pragma once

namespace pactora::support {

inline constexpr const char* kCompany = R"({
  "database": { "name": "FIRMA", "displayName": "Firma GmbH" },
  "users": [ { "name": "Anna" } ],
  "persistVars": { "lt_Einheit": [ "Stück" ] },
  "tables": {
    "Adressen": [ { "@oid": "1", "Name": "Muster GmbH" }, { "@oid": "2", "Name": "Beispiel AG" } ],
    "Artikelgruppen": [ { "ID": "G1", "Artikel": [
      { "Id": "A1", "Bezeichnung": "Wartung Server", "Nummer": "1000", "Art": "Dienst",
        "Einheit": "Stück", "Nettopreis": 120, "Erloeskonto": 8400, "USTSatz": 19 } ] } ],
    "KELM_Mandanten": [ { "TessarinName": "FIRMA" } ] } })";

// A contract of that company, as a contract file and a script spell it.
inline constexpr const char* kRecord = R"("contract": { "lVertragArt": 2,
    "VertragBeginn": "2024-03-01", "VertragGeschlossenAm": "2024-03-01", "Bezeichnung": "Wartung",
    "Dauer": 12, "Zahlungsperiode": 1 },
  "articles": [ { "sArtikelID": "A1", "dblAnzahl": 2, "lPreisDauer": 12 } ])";

}  // namespace pactora::support
