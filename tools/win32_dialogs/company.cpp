#include "win32_dialogs/company.h"

#include <algorithm>
#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>

#include "schema/names.h"
#include "store/memory/MemoryStore.h"
#include "store/rows.h"

namespace pactora::win32 {
namespace {

namespace table = schema::table;

store::Profile MakeProfile() {
  store::Profile profile;
  profile.name = "HASELMOOR";
  profile.display_name = "Haselmoor Systemhaus GmbH";
  profile.users = {"Anna", "Jürgen", "Meral", std::string(schema::kDevelopmentUser)};
  profile.current_user = "Anna";
  const auto list = [&](std::string_view name, host::ValueArray texts) {
    profile.settings.push_back(
        {store::SettingScope::PersistVar, {}, std::string(name), std::move(texts), false});
  };
  list(schema::setting::lt_Einheit, {"Stück", "Stunde", "Platz", "Pauschale", "Lizenz", "GB"});
  list(schema::setting::vv_lt_VertragstypStatus, {"in Arbeit", schema::kReleased, "gesperrt"});
  return profile;
}

class Company {
 public:
  Company() : store_(store::CreateMemoryStore(schema::ContractCatalog(true), MakeProfile())) {}

  // Adds a row of fields like "ID=G1; Bezeichnung=Wartung", below another one.
  store::Oid Add(std::string_view name, std::string_view fields, store::Oid parent = 0) {
    const store::TableId id = store_->Catalog().Table(name);
    const schema::Table& description = store_->Catalog().tables[id];
    store::Record record;
    record.parent = parent;
    record.cells.resize(description.fields.size());
    while (!fields.empty()) {
      const std::string_view entry = fields.substr(0, fields.find("; "));
      fields.remove_prefix(std::min(fields.size(), entry.size() + 2));
      const std::size_t sign = entry.find('=');
      const std::size_t field = description.FindField(entry.substr(0, sign)).value();
      record.cells[field] =
          store::ConvertToField(description.fields[field], std::string(entry.substr(sign + 1)));
    }
    store::Record parent_row;
    if (description.parent) store_->Read(*description.parent, parent, parent_row);
    store::InsertRow(*store_, id, record, description.parent ? &parent_row.cells : nullptr);
    return record.oid;
  }

  std::unique_ptr<store::RecordStore> Take() { return std::move(store_); }

 private:
  std::unique_ptr<store::RecordStore> store_;
};

void AddAttributes(Company& company) {
  const store::Oid group = company.Add(table::MerkmalgruppeAdressen, "ID=M01; Gruppe=Kundendaten");
  const auto attribute = [&](const std::string& name, std::initializer_list<const char*> values) {
    const store::Oid added = company.Add(table::MerkmallisteAdressen, "Merkmal=" + name, group);
    for (const char* value : values)
      company.Add(table::WerteMerkmalAdressen, std::string("Wert=") + value, added);
  };
  attribute("Kundenart", {"Interessent", "Kunde", "Lieferant"});
  attribute("Kunde seit", {"<Datum>"});
}

void AddArticles(Company& company) {
  const store::Oid group = company.Add(table::Artikelgruppen, "ID=G01; Artikelgruppe=Wartung");
  for (const char* article :
       {"Id=A0001; Bezeichnung=Wartung Server; Nummer=1000; Nettopreis=1200",
        "Id=A0002; Bezeichnung=Wartung Arbeitsplatz; Nummer=1010; Nettopreis=118,8",
        "Id=A0003; Bezeichnung=Wartung Drucker; Nummer=1020; Nettopreis=96",
        "Id=A0004; Bezeichnung=Wartung Netzwerkverteiler; Nummer=1030; Nettopreis=180",
        "Id=A0005; Bezeichnung=Wartung USV; Nummer=1040; Nettopreis=149,9",
        "Id=A0006; Bezeichnung=Wartung Telefonanlage; Nummer=1050; Nettopreis=420"}) {
    company.Add(
        table::Artikel,
        std::string("Art=Dienstleistung; Einheit=Stück; Erloeskonto=8400; USTSatz=19; ") + article,
        group);
  }
}

void AddTypes(Company& company) {
  constexpr const char* kUsual =
      "Status=freigegeben; Typ=D; Art=1; ArtStr=verlängerbar; Dauer=36; Verlaengerungsdauer=12; "
      "Kuendigungsfrist=3; KuendigungsfristEinh=Monate; VerlKuendigungsfrist=3; "
      "VerlKuendigungsfristEinh=Monate; Zahlungsperiode=3; VerlaengerungsZahlungsperiode=12; "
      "RechnungWann=0; NoBooking=False; NettoSumme=3300,2; ErfordertMerkmalGruppe=Kundendaten; "
      "ErfordertMerkmal=Kundenart; ErfordertWert=Kunde; WorkflowID=W002; ";
  const store::Oid software =
      company.Add(table::vv_Vertragsdefinitionen,
                  std::string(kUsual) + "ID=V005; Bezeichnung=Softwaremiete Warenwirtschaft");
  for (const char* position :
       {"Artikel=Warenwirtschaft Grundmodul; Anzahl=1; Nettopreis=1490; Preis=1490; Row=001; "
        "Positionsnummer=1; Gruppierung=Warenwirtschaft; Gruppierungsposition=1",
        "Artikel=Warenwirtschaft Zusatzplatz; Anzahl=5; Nettopreis=249; Preis=1245; Row=002; "
        "Positionsnummer=2; Gruppierung=Warenwirtschaft; Gruppierungsposition=2",
        "Artikel=Handbuch für Anwender, gebunden und in Farbe; Anzahl=2; Nettopreis=48,6; "
        "Preis=97,2; Row=003; Positionsnummer=3; Gruppierung=Unterlagen; "
        "Gruppierungsposition=3"}) {
    company.Add(table::vv_Definitionspositionen,
                std::string("Artikelnummer=2000; Artikelart=Lizenz; Einheit=Lizenz; UStSatz=19; "
                            "Beschreibung=Miete mit Aktualisierungen und Hotline; "
                            "Erloeskonto=8410; ArtikelID=A0001; PreisM1=124,17; PreisM3=372,5; "
                            "PreisM6=745; PreisM12=1490; PreisM24=2980; PreisM36=4470; "
                            "PreisM48=5960; PreisM60=7450; NettoOhneRabatt=1490; ") +
                    position,
                software);
  }
  for (const char* type :
       {"ID=V003; Bezeichnung=Hotline-Abonnement; Art=3; ArtStr=unbefristet; Dauer=0",
        "ID=V004; Bezeichnung=Umzugsbegleitung; Art=2; ArtStr=einmalig; Dauer=6",
        "ID=V007; Bezeichnung=Stellfläche Rechenzentrum; Typ=K",
        "ID=V001; Bezeichnung=Wartung Server; ErfordertMerkmalGruppe=; ErfordertMerkmal=; "
        "ErfordertWert="}) {
    company.Add(table::vv_Vertragsdefinitionen, std::string(kUsual) + type);
  }
}

}  // namespace

std::unique_ptr<store::RecordStore> MakeCompany() {
  Company company;
  company.Add(table::KELM_Mandanten, "TessarinName=HASELMOOR");
  company.Add(table::Adressen, "Name=Ahornweiler Maschinenbau GmbH");
  for (const char* workflow :
       {"ID=W001; Betreff=Wartungsbeginn vorbereiten", "ID=W002; Betreff=Verlängerung prüfen"})
    company.Add(table::KELDO_Vorgaenge, std::string("Status=freigegeben; ") + workflow);
  AddAttributes(company);
  AddArticles(company);
  AddTypes(company);
  return company.Take();
}

}  // namespace pactora::win32
