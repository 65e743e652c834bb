// The tables in schema order: a parent before its children, fields in the order
// in which exports and lists show them.
#include <initializer_list>
#include <span>
#include <utility>

#include "schema/Catalog.h"
#include "schema/names.h"

namespace pactora::schema {
namespace {

constexpr std::int32_t kIdSize = 38;  // a GUID in braces
constexpr std::int32_t kNameSize = 255;
constexpr std::int32_t kNumberSize = 20;  // contract numbers and counters
constexpr std::int32_t kCodeSize = 20;    // texts of a fixed coding
constexpr std::int32_t kDateTextSize = 8;
constexpr std::int32_t kFreeTextSize = 65535;

struct FieldRow {
  std::string_view name;
  FieldType type;
  std::int32_t size = 0;
};

constexpr FieldRow Text(std::string_view name, std::int32_t size) {
  return {name, FieldType::Text, size};
}
constexpr FieldRow Long(std::string_view name) { return {name, FieldType::Long}; }
constexpr FieldRow Double(std::string_view name) { return {name, FieldType::Double}; }
constexpr FieldRow Date(std::string_view name) { return {name, FieldType::Date}; }
constexpr FieldRow Boolean(std::string_view name) { return {name, FieldType::Boolean}; }
constexpr FieldRow Document(std::string_view name) { return {name, FieldType::Document}; }

constexpr FieldRow kAddress[] = {Text(field::Name, kNameSize), Text(field::Nummer, kNameSize),
                                 Text(field::Anschrift, kFreeTextSize)};

constexpr FieldRow kAddressAttribute[] = {
    Text(field::Gruppe, kNameSize), Text(field::Merkmal, kNameSize),
    Text(field::Wert, kNameSize),   Date(field::GültigVom),
    Date(field::GültigBis),         Text(field::Beschreibung, kFreeTextSize)};

constexpr FieldRow kContract[] = {Text(field::Typ, kCodeSize),
                                  Text(field::Vertragnummer, kNumberSize),
                                  Text(field::Bezeichnung, kNameSize),
                                  Long(field::Art),
                                  Text(field::ArtStr, kCodeSize),
                                  Date(field::VertragBeginn),
                                  Date(field::VertragEnde),
                                  Date(field::GeschlossenAm),
                                  Text(field::Memo, kFreeTextSize),
                                  Text(field::Auftragsnummer, kNameSize),
                                  Long(field::Dauer),
                                  Long(field::Verlaengerungsdauer),
                                  Long(field::Kuendigungsfrist),
                                  Text(field::KuendigungsfristEinh, kNameSize),
                                  Text(field::KuendigungsfristBezug, kNameSize),
                                  Long(field::VerlKuendigungsfrist),
                                  Text(field::VerlKuendigungsfristEinh, kNameSize),
                                  Date(field::KuendfristDatum),
                                  Long(field::Zahlungsperiode),
                                  Long(field::VerlaengerungsZahlungsperiode),
                                  Long(field::AktZahlungsperiode),
                                  Text(field::AktZahlungsperiodeStr, kCodeSize),
                                  Double(field::AktValue),
                                  Date(field::AktNaechsteRechnung),
                                  Text(field::AktNaechsteRechnungStr, kDateTextSize),
                                  Text(field::Verantwortlich, kNameSize),
                                  Text(field::ErfordertMerkmalGruppe, kNameSize),
                                  Text(field::ErfordertMerkmal, kNameSize),
                                  Text(field::ErfordertWert, kNameSize),
                                  Text(field::SetztMerkmalGruppe, kNameSize),
                                  Text(field::SetztMerkmal, kNameSize),
                                  Text(field::SetztWert, kNameSize),
                                  Text(field::VertragsDefinitionID, kIdSize),
                                  Text(field::VerlaengerungsWorkflowID, kIdSize),
                                  Boolean(field::NoBooking),
                                  Boolean(field::RabattNurErsteLaufzeit),
                                  Text(field::AlarmOID, kIdSize)};

constexpr FieldRow kTerm[] = {Date(field::LaufzeitStart),
                              Text(field::LaufzeitStartStr, kDateTextSize),
                              Date(field::LaufzeitEnde),
                              Text(field::LaufzeitEndeStr, kDateTextSize),
                              Long(field::Zahlungsperiode),
                              Text(field::ZahlungsperiodeStr, kCodeSize),
                              Double(field::Value),
                              Long(field::RechnungWann),
                              Date(field::NaechsteRechnung),
                              Text(field::NaechsteRechnungStr, kDateTextSize),
                              Double(field::Rabattprozent),
                              Document(field::Dokument),
                              Boolean(field::AlteFakturierung),
                              Text(field::LaufTyp, kCodeSize)};

// Positions of contract types and of contracts.
constexpr FieldRow kPosition[] = {Text(field::Artikel, kNameSize),
                                  Double(field::Nettopreis),
                                  Text(field::Artikelnummer, kNameSize),
                                  Text(field::Artikelart, kNameSize),
                                  Text(field::Einheit, kNameSize),
                                  Double(field::UStSatz),
                                  Text(field::Beschreibung, kFreeTextSize),
                                  Double(field::Anzahl),
                                  Long(field::Erloeskonto),
                                  Text(field::ArtikelID, kIdSize),
                                  Double(field::PreisM1),
                                  Double(field::PreisM3),
                                  Double(field::PreisM6),
                                  Double(field::PreisM12),
                                  Double(field::PreisM24),
                                  Double(field::PreisM36),
                                  Double(field::PreisM48),
                                  Double(field::PreisM60),
                                  Double(field::Preis),
                                  Double(field::NettoOhneRabatt),
                                  Text(field::Row, kCodeSize),
                                  Text(field::Positionsnummer, kNumberSize),
                                  Text(field::Gruppierung, kNameSize),
                                  Long(field::Gruppierungsposition)};

// What a contract's position has besides.
constexpr FieldRow kContractPosition[] = {Double(field::Rabattprozent),
                                          Text(field::Auftragsnummer, kNameSize)};

constexpr FieldRow kAppointment[] = {Text(field::Typ, kCodeSize), Text(field::Betreff, kNameSize),
                                     Date(field::Datum), Boolean(field::Erledigt),
                                     Text(field::Verantwortlich, kNameSize)};

constexpr FieldRow kContractType[] = {Text(field::ID, kIdSize),
                                      Text(field::Status, kNameSize),
                                      Text(field::Typ, kCodeSize),
                                      Text(field::Bezeichnung, kNameSize),
                                      Long(field::Art),
                                      Text(field::ArtStr, kCodeSize),
                                      Long(field::Dauer),
                                      Long(field::Verlaengerungsdauer),
                                      Long(field::Kuendigungsfrist),
                                      Text(field::KuendigungsfristEinh, kNameSize),
                                      Text(field::KuendigungsfristBezug, kNameSize),
                                      Long(field::VerlKuendigungsfrist),
                                      Text(field::VerlKuendigungsfristEinh, kNameSize),
                                      Long(field::Zahlungsperiode),
                                      Long(field::VerlaengerungsZahlungsperiode),
                                      Long(field::RechnungWann),
                                      Boolean(field::NoBooking),
                                      Double(field::NettoSumme),
                                      Text(field::WorkflowID, kIdSize),
                                      Text(field::ErfordertMerkmalGruppe, kNameSize),
                                      Text(field::ErfordertMerkmal, kNameSize),
                                      Text(field::ErfordertWert, kNameSize),
                                      Text(field::SetztMerkmalGruppe, kNameSize),
                                      Text(field::SetztMerkmal, kNameSize),
                                      Text(field::SetztWert, kNameSize),
                                      Document(field::Dokument)};

constexpr FieldRow kArticleGroup[] = {Text(field::ID, kIdSize),
                                      Text(field::Artikelgruppe, kNameSize)};

// The last two are what the expressions for the revenue account and the VAT rate
// give.
constexpr FieldRow kArticle[] = {Text(field::Id, kIdSize),
                                 Text(field::Bezeichnung, kNameSize),
                                 Text(field::Nummer, kNameSize),
                                 Text(field::Art, kNameSize),
                                 Text(field::Einheit, kNameSize),
                                 Text(field::Beschreibung, kFreeTextSize),
                                 Text(field::Gruppierung, kNameSize),
                                 Double(field::Nettopreis),
                                 Long(field::Erloeskonto),
                                 Double(field::USTSatz)};

constexpr FieldRow kAttributeGroup[] = {Text(field::ID, kIdSize), Text(field::Gruppe, kNameSize)};
constexpr FieldRow kAttribute[] = {Text(field::ID, kIdSize), Text(field::Merkmal, kNameSize)};
constexpr FieldRow kAttributeValue[] = {Text(field::Wert, kNameSize)};

// What the workflow add-on adds to each of the three tables above.
constexpr FieldRow kAttributeWorkflow[] = {Text(field::KELDO_WorkflowID, kIdSize),
                                           Text(field::KELDO_WorkflowName, kNameSize)};

constexpr FieldRow kWorkflow[] = {Text(field::ID, kIdSize), Text(field::Betreff, kNameSize),
                                  Text(field::Status, kNameSize), Boolean(field::benutzerabhaengig),
                                  Boolean(field::voreinstellungaenderbar)};

constexpr FieldRow kClient[] = {Text(field::TessarinName, kNameSize)};

constexpr FieldRow kCounter[] = {Text(field::Tabelle, kNameSize), Text(field::Feld, kNameSize),
                                 Text(field::Nummer, kNumberSize)};

constexpr FieldRow kContractKey[] = {
    Text(field::Schluessel, kNameSize), Text(field::Pruefsumme, kNameSize),
    Text(field::Liste, kNameSize),      Text(field::Vertragnummer, kNumberSize),
    Text(field::VertragOid, kIdSize),   Date(field::Zeitpunkt)};

// A table whose fields are those of the row lists, one list after the other.
Table MakeTable(std::string_view name, std::initializer_list<std::span<const FieldRow>> lists) {
  Table table;
  table.name = name;
  for (const auto& list : lists) {
    for (const FieldRow& row : list) {
      table.fields.push_back({std::string(row.name), row.type, row.size});
    }
  }
  return table;
}

// Requires: the table has the field.
std::size_t Position(const Table& table, std::string_view name) {
  return table.FindField(name).value();
}

void AddIndex(Table& table, std::string_view name, std::initializer_list<std::string_view> fields) {
  Index index{std::string(name), {}};
  for (const std::string_view part : fields) index.parts.push_back({Position(table, part), false});
  table.indexes.push_back(std::move(index));
}

// An index over the parent's ID and then a field of the table.
void AddIndexWithParent(Table& table, std::string_view name, const Table& parent,
                        std::string_view field_name) {
  table.indexes.push_back(
      {std::string(name), {{parent.id_field.value(), true}, {Position(table, field_name), false}}});
}

// Names the ID field and indexes it, so that a row of that ID, or that there is
// none, is found with one look-up.
void SetId(Table& table, std::string_view field_name) {
  table.id_field = Position(table, field_name);
  AddIndex(table, field_name, {field_name});
}

void AddAddresses(Catalog& catalog) {
  const std::size_t addresses = catalog.Add(MakeTable(table::Adressen, {kAddress}), {});
  catalog.Add(MakeTable(table::Adressmerkmale, {kAddressAttribute}), addresses);
  Table contract = MakeTable(table::vv_Vertraege, {kContract});
  AddIndex(contract, index::Vertragnummer, {field::Vertragnummer});
  const std::size_t contracts = catalog.Add(std::move(contract), addresses);
  const std::size_t terms = catalog.Add(MakeTable(table::vv_Vertragsstaende, {kTerm}), contracts);
  catalog.Add(MakeTable(table::vv_Vertragspositionen, {kPosition, kContractPosition}), terms);
  catalog.Add(MakeTable(table::vv_VertragsAktivitaeten, {kAppointment}), contracts);
}

void AddContractTypes(Catalog& catalog) {
  Table types = MakeTable(table::vv_Vertragsdefinitionen, {kContractType});
  AddIndex(types, index::Bezeichnung, {field::Bezeichnung});
  SetId(types, field::ID);
  const std::size_t position = catalog.Add(std::move(types), {});
  catalog.Add(MakeTable(table::vv_Definitionspositionen, {kPosition}), position);
}

void AddArticles(Catalog& catalog) {
  Table groups = MakeTable(table::Artikelgruppen, {kArticleGroup});
  SetId(groups, field::ID);
  const std::size_t position = catalog.Add(std::move(groups), {});
  Table articles = MakeTable(table::Artikel, {kArticle});
  SetId(articles, field::Id);
  catalog.Add(std::move(articles), position);
}

void AddAttributes(Catalog& catalog) {
  std::span<const FieldRow> workflow;
  if (catalog.workflow_add_on) workflow = kAttributeWorkflow;

  Table groups = MakeTable(table::MerkmalgruppeAdressen, {kAttributeGroup, workflow});
  AddIndex(groups, index::Merkmalgruppe, {field::Gruppe});
  SetId(groups, field::ID);

  Table attributes = MakeTable(table::MerkmallisteAdressen, {kAttribute, workflow});
  AddIndex(attributes, index::Merkmal, {field::Merkmal});
  AddIndexWithParent(attributes, index::MerkmalgruppeIDMerkmal, groups, field::Merkmal);
  SetId(attributes, field::ID);

  Table values = MakeTable(table::WerteMerkmalAdressen, {kAttributeValue, workflow});
  AddIndexWithParent(values, index::MerkmalIDWert, attributes, field::Wert);

  const std::size_t group_position = catalog.Add(std::move(groups), {});
  const std::size_t attribute_position = catalog.Add(std::move(attributes), group_position);
  catalog.Add(std::move(values), attribute_position);
}

void AddWorkflows(Catalog& catalog) {
  Table workflows = MakeTable(table::KELDO_Vorgaenge, {kWorkflow});
  SetId(workflows, field::ID);
  catalog.Add(std::move(workflows), {});
}

void AddCounters(Catalog& catalog) {
  Table clients = MakeTable(table::KELM_Mandanten, {kClient});
  AddIndex(clients, index::tessarinName, {field::TessarinName});
  const std::size_t position = catalog.Add(std::move(clients), {});

  Table counters = MakeTable(table::KELM_Nummern, {kCounter});
  AddIndex(counters, index::Tabelle_Feld, {field::Tabelle, field::Feld});
  counters.counter = true;
  counters.unique_fields = {Position(counters, field::Tabelle), Position(counters, field::Feld)};
  catalog.Add(std::move(counters), position);
}

// What callers entered in bulk, by their own keys.
void AddContractKeys(Catalog& catalog) {
  Table keys = MakeTable(table::Vertragsschluessel, {kContractKey});
  AddIndex(keys, index::Schluessel, {field::Schluessel});
  keys.unique_fields = {Position(keys, field::Schluessel)};
  catalog.Add(std::move(keys), {});
}

}  // namespace

Catalog ContractCatalog(bool workflow_add_on) {
  Catalog catalog;
  catalog.workflow_add_on = workflow_add_on;
  AddAddresses(catalog);
  AddContractTypes(catalog);
  AddArticles(catalog);
  AddAttributes(catalog);
  if (workflow_add_on) AddWorkflows(catalog);
  AddCounters(catalog);
  AddContractKeys(catalog);
  return catalog;
}

const Catalog& WholeCatalog() {
  static const Catalog catalog = ContractCatalog(true);
  return catalog;
}

}  // namespace pactora::schema
