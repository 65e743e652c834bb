// The names of tables, fields and indexes, and the codings of their values. Each
// stands here once; everything else refers to these constants.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace pactora::schema {

// NOLINTBEGIN(readability-identifier-naming): each constant is called what it names.
namespace table {
inline constexpr std::string_view Adressen = "Adressen";
inline constexpr std::string_view Adressmerkmale = "Adressmerkmale";
inline constexpr std::string_view vv_Vertraege = "vv_Vertraege";
inline constexpr std::string_view vv_Vertragsstaende = "vv_Vertragsstaende";
inline constexpr std::string_view vv_Vertragspositionen = "vv_Vertragspositionen";
inline constexpr std::string_view vv_VertragsAktivitaeten = "vv_VertragsAktivitaeten";
inline constexpr std::string_view vv_Vertragsdefinitionen = "vv_Vertragsdefinitionen";
inline constexpr std::string_view vv_Definitionspositionen = "vv_Definitionspositionen";
inline constexpr std::string_view Artikelgruppen = "Artikelgruppen";
inline constexpr std::string_view Artikel = "Artikel";
inline constexpr std::string_view MerkmalgruppeAdressen = "MerkmalgruppeAdressen";
inline constexpr std::string_view MerkmallisteAdressen = "MerkmallisteAdressen";
inline constexpr std::string_view WerteMerkmalAdressen = "WerteMerkmalAdressen";
inline constexpr std::string_view KELDO_Vorgaenge = "KELDO_Vorgaenge";
inline constexpr std::string_view KELM_Mandanten = "KELM_Mandanten";
inline constexpr std::string_view KELM_Nummern = "KELM_Nummern";
inline constexpr std::string_view Vertragsschluessel = "Vertragsschluessel";
}  // namespace table

namespace field {
inline constexpr std::string_view Name = "Name";
inline constexpr std::string_view Gruppe = "Gruppe";
inline constexpr std::string_view Merkmal = "Merkmal";
inline constexpr std::string_view Wert = "Wert";
inline constexpr std::string_view GültigVom = "GültigVom";
inline constexpr std::string_view GültigBis = "GültigBis";
inline constexpr std::string_view Beschreibung = "Beschreibung";
inline constexpr std::string_view Typ = "Typ";
inline constexpr std::string_view Vertragnummer = "Vertragnummer";
inline constexpr std::string_view Bezeichnung = "Bezeichnung";
inline constexpr std::string_view Art = "Art";
inline constexpr std::string_view ArtStr = "ArtStr";
inline constexpr std::string_view VertragBeginn = "VertragBeginn";
inline constexpr std::string_view VertragEnde = "VertragEnde";
inline constexpr std::string_view GeschlossenAm = "GeschlossenAm";
inline constexpr std::string_view Memo = "Memo";
inline constexpr std::string_view Auftragsnummer = "Auftragsnummer";
inline constexpr std::string_view Dauer = "Dauer";
inline constexpr std::string_view Verlaengerungsdauer = "Verlaengerungsdauer";
inline constexpr std::string_view Kuendigungsfrist = "Kuendigungsfrist";
inline constexpr std::string_view KuendigungsfristEinh = "KuendigungsfristEinh";
inline constexpr std::string_view KuendigungsfristBezug = "KuendigungsfristBezug";
inline constexpr std::string_view VerlKuendigungsfrist = "VerlKuendigungsfrist";
inline constexpr std::string_view VerlKuendigungsfristEinh = "VerlKuendigungsfristEinh";
inline constexpr std::string_view KuendfristDatum = "KuendfristDatum";
inline constexpr std::string_view Zahlungsperiode = "Zahlungsperiode";
inline constexpr std::string_view VerlaengerungsZahlungsperiode = "VerlaengerungsZahlungsperiode";
inline constexpr std::string_view AktZahlungsperiode = "AktZahlungsperiode";
inline constexpr std::string_view AktZahlungsperiodeStr = "AktZahlungsperiodeStr";
inline constexpr std::string_view AktValue = "AktValue";
inline constexpr std::string_view AktNaechsteRechnung = "AktNaechsteRechnung";
inline constexpr std::string_view AktNaechsteRechnungStr = "AktNaechsteRechnungStr";
inline constexpr std::string_view Verantwortlich = "Verantwortlich";
inline constexpr std::string_view ErfordertMerkmalGruppe = "ErfordertMerkmalGruppe";
inline constexpr std::string_view ErfordertMerkmal = "ErfordertMerkmal";
inline constexpr std::string_view ErfordertWert = "ErfordertWert";
inline constexpr std::string_view SetztMerkmalGruppe = "SetztMerkmalGruppe";
inline constexpr std::string_view SetztMerkmal = "SetztMerkmal";
inline constexpr std::string_view SetztWert = "SetztWert";
inline constexpr std::string_view VertragsDefinitionID = "VertragsDefinitionID";
inline constexpr std::string_view VerlaengerungsWorkflowID = "VerlaengerungsWorkflowID";
inline constexpr std::string_view NoBooking = "NoBooking";
inline constexpr std::string_view RabattNurErsteLaufzeit = "RabattNurErsteLaufzeit";
inline constexpr std::string_view AlarmOID = "AlarmOID";
inline constexpr std::string_view LaufzeitStart = "LaufzeitStart";
inline constexpr std::string_view LaufzeitStartStr = "LaufzeitStartStr";
inline constexpr std::string_view LaufzeitEnde = "LaufzeitEnde";
inline constexpr std::string_view LaufzeitEndeStr = "LaufzeitEndeStr";
inline constexpr std::string_view ZahlungsperiodeStr = "ZahlungsperiodeStr";
inline constexpr std::string_view Value = "Value";
inline constexpr std::string_view RechnungWann = "RechnungWann";
inline constexpr std::string_view NaechsteRechnung = "NaechsteRechnung";
inline constexpr std::string_view NaechsteRechnungStr = "NaechsteRechnungStr";
inline constexpr std::string_view Rabattprozent = "Rabattprozent";
inline constexpr std::string_view Dokument = "Dokument";
inline constexpr std::string_view AlteFakturierung = "AlteFakturierung";
inline constexpr std::string_view LaufTyp = "LaufTyp";
inline constexpr std::string_view Artikel = "Artikel";
inline constexpr std::string_view Nettopreis = "Nettopreis";
inline constexpr std::string_view Artikelnummer = "Artikelnummer";
inline constexpr std::string_view Artikelart = "Artikelart";
inline constexpr std::string_view Einheit = "Einheit";
inline constexpr std::string_view UStSatz = "UStSatz";
inline constexpr std::string_view Anzahl = "Anzahl";
inline constexpr std::string_view Erloeskonto = "Erloeskonto";
inline constexpr std::string_view ArtikelID = "ArtikelID";
inline constexpr std::string_view PreisM1 = "PreisM1";
inline constexpr std::string_view PreisM3 = "PreisM3";
inline constexpr std::string_view PreisM6 = "PreisM6";
inline constexpr std::string_view PreisM12 = "PreisM12";
inline constexpr std::string_view PreisM24 = "PreisM24";
inline constexpr std::string_view PreisM36 = "PreisM36";
inline constexpr std::string_view PreisM48 = "PreisM48";
inline constexpr std::string_view PreisM60 = "PreisM60";
inline constexpr std::string_view Preis = "Preis";
inline constexpr std::string_view NettoOhneRabatt = "NettoOhneRabatt";
inline constexpr std::string_view Row = "Row";
inline constexpr std::string_view Positionsnummer = "Positionsnummer";
inline constexpr std::string_view Gruppierung = "Gruppierung";
inline constexpr std::string_view Gruppierungsposition = "Gruppierungsposition";
inline constexpr std::string_view Betreff = "Betreff";
inline constexpr std::string_view Datum = "Datum";
inline constexpr std::string_view Erledigt = "Erledigt";
inline constexpr std::string_view ID = "ID";
inline constexpr std::string_view Status = "Status";
inline constexpr std::string_view NettoSumme = "NettoSumme";
inline constexpr std::string_view WorkflowID = "WorkflowID";
inline constexpr std::string_view Artikelgruppe = "Artikelgruppe";
inline constexpr std::string_view Id = "Id";
inline constexpr std::string_view Nummer = "Nummer";
inline constexpr std::string_view USTSatz = "USTSatz";
inline constexpr std::string_view KELDO_WorkflowID = "KELDO_WorkflowID";
inline constexpr std::string_view KELDO_WorkflowName = "KELDO_WorkflowName";
inline constexpr std::string_view benutzerabhaengig = "benutzerabhaengig";
inline constexpr std::string_view voreinstellungaenderbar = "voreinstellungaenderbar";
inline constexpr std::string_view TessarinName = "TessarinName";
inline constexpr std::string_view Tabelle = "Tabelle";
inline constexpr std::string_view Feld = "Feld";
inline constexpr std::string_view Anschrift = "Anschrift";
inline constexpr std::string_view Schluessel = "Schluessel";
inline constexpr std::string_view Pruefsumme = "Pruefsumme";
inline constexpr std::string_view Liste = "Liste";
inline constexpr std::string_view VertragOid = "VertragOid";
inline constexpr std::string_view Zeitpunkt = "Zeitpunkt";
}  // namespace field

namespace index {
inline constexpr std::string_view Bezeichnung = "Bezeichnung";
inline constexpr std::string_view Id = "Id";
inline constexpr std::string_view ID = "ID";
inline constexpr std::string_view Merkmalgruppe = "Merkmalgruppe";
inline constexpr std::string_view Merkmal = "Merkmal";
inline constexpr std::string_view MerkmalgruppeIDMerkmal = "MerkmalgruppeIDMerkmal";
inline constexpr std::string_view MerkmalIDWert = "MerkmalIDWert";
inline constexpr std::string_view tessarinName = "tessarinName";
inline constexpr std::string_view Tabelle_Feld = "Tabelle_Feld";
inline constexpr std::string_view Vertragnummer = "Vertragnummer";
inline constexpr std::string_view Schluessel = "Schluessel";
}  // namespace index

// The expressions of the host that the add-on evaluates.
namespace expression {
inline constexpr std::string_view Name_ = "Name()";  // name of the current address
inline constexpr std::string_view Erloeskonto =
    "Erloeskonto()";  // revenue account of the current article
inline constexpr std::string_view USTSatzArtikel =
    "USTSatzArtikel()";  // VAT rate of the current article, percent
}  // namespace expression

// Settings and persistent variables.
namespace setting {
inline constexpr std::string_view CreateAppointment4AllContracts = "CreateAppointment4AllContracts";
inline constexpr std::string_view vv_AlarmWochenKuendigung = "vv_AlarmWochenKuendigung";
inline constexpr std::string_view vv_AlarmWochenEnde = "vv_AlarmWochenEnde";
inline constexpr std::string_view g_DateFormat = "g_DateFormat";
inline constexpr std::string_view PactoraKennung = "PactoraKennung";  // never exported
inline constexpr std::string_view vv_lt_VertragstypStatus =
    "vv_lt_VertragstypStatus";                                // lookup list
inline constexpr std::string_view lt_Einheit = "lt_Einheit";  // lookup list
}  // namespace setting

// The host macro that sets an attribute together with its workflow.
namespace macro {
inline constexpr std::string_view Project = "Project";
inline constexpr std::string_view vv_Macros = "vv_Macros";
inline constexpr std::string_view vv_CreateAttribute = "vv_CreateAttribute";
}  // namespace macro
// NOLINTEND(readability-identifier-naming)

// Contract side, field Typ.
inline constexpr std::string_view kTypDebtor = "D";
inline constexpr std::string_view kTypCreditor = "K";

constexpr std::string_view TypText(std::string_view typ) {
  return typ == kTypDebtor ? std::string_view("Forderung") : std::string_view("Verbindlichkeit");
}

// Contract kind, field Art, and its text in ArtStr.
inline constexpr std::int32_t kArtRenewable = 1;
inline constexpr std::int32_t kArtOnce = 2;
inline constexpr std::int32_t kArtUnlimited = 3;
// The empty text for a number that is no kind.
constexpr std::string_view ArtText(std::int32_t art) {
  return art == kArtRenewable   ? std::string_view("verlängerbar")
         : art == kArtOnce      ? std::string_view("einmalig")
         : art == kArtUnlimited ? std::string_view("unbefristet")
                                : std::string_view();
}

// Invoice timing, field RechnungWann: its value is the position in this list.
inline constexpr std::int16_t kInAdvance = 0;
inline constexpr std::int16_t kInArrears = 1;
inline constexpr std::array<std::string_view, 2> kRechnungWannTexts = {"im voraus", "nachträglich"};

// Notice unit; any other text counts as months.
inline constexpr std::string_view kWeeks = "Wochen";
inline constexpr std::string_view kMonths = "Monate";

// Months of the periods that have a price field of their own, and those fields.
inline constexpr std::array<std::int32_t, 8> kPeriods = {1, 3, 6, 12, 24, 36, 48, 60};
inline constexpr std::array<std::string_view, 8> kPriceFields = {
    field::PreisM1,  field::PreisM3,  field::PreisM6,  field::PreisM12,
    field::PreisM24, field::PreisM36, field::PreisM48, field::PreisM60};

inline constexpr std::string_view kReleased =
    "freigegeben";  // Status of a contract type or workflow in use
inline constexpr std::string_view kUserNameValue =
    "<Benutzername>";  // first value: the attribute holds a user
inline constexpr std::string_view kDateValue =
    "<Datum>";  // first value: the attribute holds a date
inline constexpr std::string_view kDevelopmentUser =
    "DEVELOPMENT";  // never offered in a list of users
inline constexpr std::string_view kAppointmentTyp = "Termin";
inline constexpr std::string_view kFirstTerm = "1";             // LaufTyp of the first term
inline constexpr std::string_view kRenewalTerm = "2";           // LaufTyp of a renewal
inline constexpr std::string_view kNoInvoiceText = "99991231";  // date text of "no further invoice"
inline constexpr std::string_view kDummyArticleId = "00000000";

}  // namespace pactora::schema
