#include "automation/lists/lists.h"

#include <algorithm>
#include <string>

#include "contract/modVV.h"
#include "schema/names.h"

namespace pactora::lists {
namespace {

namespace table = schema::table;
namespace field = schema::field;
using deadlines::Deadline;

host::Value SideWords(const host::Value& code) { return schema::TypText(host::ToText(code)); }
host::Value PeriodWords(const host::Value& code) {
  return contract::GetPeriodName(host::ToLong(code));
}

// The titles are the words of the dialogs: "Art" is the side, "Dauer" whether it ends.

// A field of the list's table, or of one above it.
std::function<host::Value(const Place&)> Field(std::string_view of, std::string_view name) {
  return [of, name](const Place& place) { return place.walk.Row(of)[name]; };
}

// Columns under the names of their fields.
class FieldsOf {
 public:
  explicit FieldsOf(std::string_view table) : table_(table) {}
  Column operator()(std::string_view title, std::string_view name, CellKind kind = CellKind::Text,
                    host::Value (*words)(const host::Value&) = nullptr) const {
    return {title, name, kind, Field(table_, name), words};
  }

 private:
  std::string_view table_;
};

Column Oid() {
  return {"Oid", "oid", CellKind::Text,
          [](const Place& place) { return std::to_string(place.walk.Row().oid); }};
}

Column AddressName() {
  return {"Adresse", "Adresse", CellKind::Text, Field(table::Adressen, field::Name)};
}

Column ContractCount() {
  return {"Verträge", "contracts", CellKind::Number, [](const Place& place) {
            const auto contracts = place.store.Catalog().FindTable(table::vv_Vertraege).value();
            return static_cast<std::int32_t>(
                place.store.CountInParent(contracts, place.walk.Row().oid));
          }};
}

template <typename Member>
std::function<host::Value(const Place&)> DeadlineCell(Member Deadline::*member) {
  return [member](const Place& place) { return place.deadline.*member; };
}

void MarkAppointment(const Place& place, Row& row) {
  const auto appointment = place.walk.Row(table::vv_VertragsAktivitaeten);
  row.act_by = appointment.Date(field::Datum).value_or(platform::kNoDate);
  row.done = host::ToBoolean(appointment[field::Erledigt]);
  row.strong = !row.done && platform::WholeDay(row.act_by) <= platform::WholeDay(place.today);
}

void MarkDeadline(const Place& place, Row& row) {
  row.key = deadlines::KeyOf(place.deadline);
  row.act_by = place.deadline.ActBy();
  row.strong = place.deadline.missed;
}

}  // namespace

const List& Addresses() {
  const FieldsOf address(table::Adressen);
  static const List list{
      "Adressen", table::Adressen, {Oid(), ContractCount(), address("Name", field::Name)}};
  return list;
}

const List& Types() {
  const FieldsOf type(table::vv_Vertragsdefinitionen);
  static const List list{
      "Vertragstypen",
      table::vv_Vertragsdefinitionen,
      {Oid(), type("ID", field::ID), type("Bezeichnung", field::Bezeichnung),
       type("Status", field::Status), type("Art", field::Typ, CellKind::Text, SideWords),
       type("Dauer", field::ArtStr), type("Vertragsdauer (Monate)", field::Dauer, CellKind::Number),
       type("Zahlung", field::Zahlungsperiode, CellKind::Text, PeriodWords),
       type("Netto", field::NettoSumme, CellKind::Money)}};
  return list;
}

const List& Contracts() {
  const FieldsOf contract(table::vv_Vertraege);
  static const List list{
      "Verträge",
      table::vv_Vertraege,
      {Oid(), AddressName(), contract("Nummer", field::Vertragnummer),
       contract("Bezeichnung", field::Bezeichnung),
       contract("Art", field::Typ, CellKind::Text, SideWords), contract("Dauer", field::ArtStr),
       contract("Beginn", field::VertragBeginn, CellKind::Date),
       contract("Ende", field::VertragEnde, CellKind::Date),
       contract("Kündigung bis", field::KuendfristDatum, CellKind::Date),
       contract("Zahlung", field::AktZahlungsperiodeStr),
       contract("Netto", field::AktValue, CellKind::Money),
       contract("Nächste Rechnung", field::AktNaechsteRechnung, CellKind::Date),
       contract("Verantwortlich", field::Verantwortlich)}};
  return list;
}

const List& Appointments() {
  const FieldsOf appointment(table::vv_VertragsAktivitaeten);
  static const List list{
      "Termine",
      table::vv_VertragsAktivitaeten,
      {Oid(),
       {"Vertrag", "Vertrag", CellKind::Text, Field(table::vv_Vertraege, field::Vertragnummer)},
       AddressName(),
       appointment("Datum", field::Datum, CellKind::Date),
       appointment("Betreff", field::Betreff),
       appointment("Verantwortlich", field::Verantwortlich),
       appointment("Erledigt", field::Erledigt, CellKind::Mark)},
      field::Datum,
      MarkAppointment};
  return list;
}

const List& Deadlines() {
  static const List list{
      "Fristen",
      table::vv_Vertraege,
      {{"Datum", field::Datum, CellKind::Date, DeadlineCell(&Deadline::date)},
       {"Frist", "Frist", CellKind::Text,
        [](const Place& place) { return deadlines::Text(place.deadline.kind); }},
       {"Zugang spätestens", "Zugang", CellKind::Date,
        [](const Place& place) {
          const auto& receipt = place.deadline.safe_receipt;
          return receipt ? host::Value(*receipt) : host::Value();
        }},
       {"Versäumt", "Versaeumt", CellKind::Mark, DeadlineCell(&Deadline::missed)},
       {"Adresse", "Adresse", CellKind::Text, DeadlineCell(&Deadline::address)},
       {"Nummer", field::Vertragnummer, CellKind::Text, DeadlineCell(&Deadline::number)},
       {"Bezeichnung", field::Bezeichnung, CellKind::Text, DeadlineCell(&Deadline::name)},
       {"Art", field::Typ, CellKind::Text, DeadlineCell(&Deadline::side), SideWords},
       {"Verantwortlich", field::Verantwortlich, CellKind::Text,
        DeadlineCell(&Deadline::responsible)},
       Oid()},
      field::Datum,
      MarkDeadline,
      true};
  return list;
}

const List& Attributes() {
  const FieldsOf attribute(table::Adressmerkmale);
  static const List list{
      "Merkmale",
      table::Adressmerkmale,
      {attribute("Gruppe", field::Gruppe), attribute("Merkmal", field::Merkmal),
       attribute("Wert", field::Wert), attribute("Gültig vom", field::GültigVom, CellKind::Date),
       attribute("Gültig bis", field::GültigBis, CellKind::Date)}};
  return list;
}

List ListOf(const List& list, const std::vector<std::string_view>& keys) {
  List chosen = list;
  chosen.columns.clear();
  for (const std::string_view key : keys)
    chosen.columns.push_back(*std::ranges::find(list.columns, key, &Column::key));
  return chosen;
}

}  // namespace pactora::lists
