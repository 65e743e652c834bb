#include "automation/lists/details.h"

#include <string>
#include <utility>

#include "contract/modVV.h"
#include "platform/Date.h"
#include "schema/names.h"

namespace pactora::lists {
namespace {

namespace field = schema::field;

class Sheet {
 public:
  explicit Sheet(const store::RowView& row) : row_(row) {}

  // A value that is there: no empty text, and no number that stands for none.
  void Add(std::string_view title, const host::Value& value, CellKind kind = CellKind::Text) {
    if (value.IsEmpty() || (kind == CellKind::Text && host::ToText(value).empty())) return;
    details_.push_back({title, kind, value});
  }
  void Field(std::string_view title, std::string_view name, CellKind kind = CellKind::Text) {
    Add(title, row_[name], kind);
  }
  void Date(std::string_view title, std::string_view name, std::string_view none) {
    if (row_.Date(name))
      Field(title, name, CellKind::Date);
    else
      Add(title, std::string(none));
  }
  // Where it is switched on.
  void Switch(std::string_view title, std::string_view name) {
    if (host::ToBoolean(row_[name])) Field(title, name, CellKind::Mark);
  }
  void Discount(std::string_view name) {
    if (row_.Double(name) != 0.0) Field("Rabatt", name, CellKind::Percent);
  }
  void Span(std::string_view title, std::string_view number, std::string_view unit,
            std::string_view none = {}) {
    const std::int32_t count = row_.Long(number);
    Add(title, count == 0 ? std::string(none) : std::to_string(count) + " " + std::string(unit));
  }
  void Period(std::string_view title, std::string_view name) {
    if (row_.Long(name) != 0) Add(title, contract::GetPeriodName(row_.Long(name)));
  }
  void Attribute(std::string_view title, std::string_view group, std::string_view attribute,
                 std::string_view value) {
    std::string text = row_.Text(attribute);
    if (text.empty()) return;
    text = row_.Text(group) + ", " + text;
    if (row_.Has(value)) text += ": " + row_.Text(value);
    Add(title, text);
  }
  void Invoices() {
    const std::int32_t when = row_.Long(field::RechnungWann);
    Add("Rechnung", std::string(schema::kRechnungWannTexts[when == 0 ? 0 : 1]));
    Field("Nächste Rechnung", field::NaechsteRechnung, CellKind::Date);
  }

  std::vector<Detail> Take() { return std::move(details_); }

 private:
  const store::RowView& row_;
  std::vector<Detail> details_;
};

void AddContract(Sheet& sheet, const store::RowView& row) {
  sheet.Field("Nummer", field::Vertragnummer);
  sheet.Field("Bezeichnung", field::Bezeichnung);
  sheet.Add("Art", std::string(schema::TypText(row.Text(field::Typ))));
  sheet.Field("Dauer", field::ArtStr);
  sheet.Field("Verantwortlich", field::Verantwortlich);
  sheet.Date("Beginn", field::VertragBeginn, {});
  sheet.Date("Ende", field::VertragEnde, "unbefristet");
  sheet.Date("Unterschrieben", field::GeschlossenAm, "noch nicht");
  sheet.Span("Vertragsdauer", field::Dauer, "Monate");
  sheet.Span("Kündigungsfrist", field::Kuendigungsfrist, row.Text(field::KuendigungsfristEinh),
             "keine");
  if (row.Long(field::Art) == schema::kArtRenewable) {
    sheet.Date("Kündigung bis", field::KuendfristDatum, {});
    sheet.Span("Verlängerung", field::Verlaengerungsdauer, "Monate");
    sheet.Span("Kündigungsfrist danach", field::VerlKuendigungsfrist,
               row.Text(field::VerlKuendigungsfristEinh), "keine");
    sheet.Period("Zahlung danach", field::VerlaengerungsZahlungsperiode);
  }
  sheet.Period("Zahlung", field::AktZahlungsperiode);
  sheet.Field("Netto", field::AktValue, CellKind::Money);
  sheet.Field("Nächste Rechnung", field::AktNaechsteRechnung, CellKind::Date);
  sheet.Switch("Fremdfakturierung", field::NoBooking);
  sheet.Switch("Rabatt nur in der ersten Laufzeit", field::RabattNurErsteLaufzeit);
  sheet.Field("Auftragsnummer", field::Auftragsnummer);
  sheet.Attribute("Erfordert das Merkmal", field::ErfordertMerkmalGruppe, field::ErfordertMerkmal,
                  field::ErfordertWert);
  sheet.Attribute("Setzt das Merkmal", field::SetztMerkmalGruppe, field::SetztMerkmal,
                  field::SetztWert);
  sheet.Field("Bearbeitungshinweis", field::Memo);
}

void AddTerm(Sheet& sheet, const store::RowView& row) {
  const bool renewal = row.Text(field::LaufTyp) == schema::kRenewalTerm;
  sheet.Add("Laufzeit", std::string(renewal ? "Verlängerung" : "erste"));
  sheet.Date("Beginn", field::LaufzeitStart, {});
  sheet.Date("Ende", field::LaufzeitEnde, "unbefristet");
  sheet.Period("Zahlung", field::Zahlungsperiode);
  sheet.Field("Netto", field::Value, CellKind::Money);
  sheet.Discount(field::Rabattprozent);
  sheet.Invoices();
  sheet.Switch("Bis zur Übernahme anders fakturiert", field::AlteFakturierung);
}

void AddPosition(Sheet& sheet, const store::RowView& row) {
  sheet.Field("Artikel", field::Artikel);
  sheet.Field("Artikelnummer", field::Artikelnummer);
  sheet.Field("Artikelart", field::Artikelart);
  sheet.Field("Beschreibung", field::Beschreibung);
  sheet.Field("Anzahl", field::Anzahl, CellKind::Number);
  sheet.Field("Einheit", field::Einheit);
  sheet.Field("Einzelpreis", field::Nettopreis, CellKind::Money);
  sheet.Add("Netto", Amount(row), CellKind::Money);
  sheet.Discount(field::Rabattprozent);
  if (row.Double(field::Rabattprozent) != 0.0)
    sheet.Field("Einzelpreis ohne Rabatt", field::NettoOhneRabatt, CellKind::Money);
  sheet.Field("Umsatzsteuer", field::UStSatz, CellKind::Percent);
  if (row.Long(field::Erloeskonto) != 0)
    sheet.Add("Erlöskonto", std::to_string(row.Long(field::Erloeskonto)));
  sheet.Field("Gruppierung", field::Gruppierung);
  sheet.Field("Auftragsnummer", field::Auftragsnummer);
}

}  // namespace

double Amount(const store::RowView& position) {
  return position.Double(field::Nettopreis) * position.Double(field::Anzahl);
}

std::vector<Detail> Details(std::string_view table, const store::RowView& row) {
  Sheet sheet(row);
  if (table == schema::table::vv_Vertraege)
    AddContract(sheet, row);
  else if (table == schema::table::vv_Vertragsstaende)
    AddTerm(sheet, row);
  else
    AddPosition(sheet, row);
  return sheet.Take();
}

}  // namespace pactora::lists
