#include "definitions/position_columns.h"

#include <array>
#include <string_view>
#include <utility>
#include <variant>

#include "contract/money.h"
#include "contract/position_groups.h"
#include "definitions/number_text.h"
#include "definitions/tables.h"
#include "host/row.h"
#include "schema/names.h"

namespace pactora::definitions {
namespace {

using platform::Locale;

// How a column shows its value.
enum class Form { Text, Plain, Fixed };

using Member =
    std::variant<std::string vv_CPosition::*, double vv_CPosition::*, std::int32_t vv_CPosition::*>;

struct Field {
  std::int32_t column;
  std::string_view name;
  Form form;
  Member member;
};

// In the order of writing.
constexpr std::array kFields = {
    Field{column::Artikel, schema::field::Artikel, Form::Text, &vv_CPosition::Artikel},
    Field{column::Nettopreis, schema::field::Nettopreis, Form::Fixed, &vv_CPosition::Nettopreis},
    Field{column::Artikelnummer, schema::field::Artikelnummer, Form::Text,
          &vv_CPosition::Artikelnummer},
    Field{column::Artikelart, schema::field::Artikelart, Form::Text, &vv_CPosition::Artikelart},
    Field{column::Einheit, schema::field::Einheit, Form::Text, &vv_CPosition::Einheit},
    Field{column::USTSatz, schema::field::UStSatz, Form::Plain, &vv_CPosition::UStSatz},
    Field{column::Beschreibung, schema::field::Beschreibung, Form::Text,
          &vv_CPosition::Beschreibung},
    Field{column::Anzahl, schema::field::Anzahl, Form::Fixed, &vv_CPosition::Anzahl},
    Field{column::Erloeskonto, schema::field::Erloeskonto, Form::Plain, &vv_CPosition::Erloeskonto},
    Field{column::ArtikelID, schema::field::ArtikelID, Form::Text, &vv_CPosition::ArtikelID},
    Field{column::PreisM1, schema::field::PreisM1, Form::Plain, &vv_CPosition::PreisM1},
    Field{column::PreisM1 + 1, schema::field::PreisM3, Form::Plain, &vv_CPosition::PreisM3},
    Field{column::PreisM1 + 2, schema::field::PreisM6, Form::Plain, &vv_CPosition::PreisM6},
    Field{column::PreisM1 + 3, schema::field::PreisM12, Form::Plain, &vv_CPosition::PreisM12},
    Field{column::PreisM1 + 4, schema::field::PreisM24, Form::Plain, &vv_CPosition::PreisM24},
    Field{column::PreisM1 + 5, schema::field::PreisM36, Form::Plain, &vv_CPosition::PreisM36},
    Field{column::PreisM1 + 6, schema::field::PreisM48, Form::Plain, &vv_CPosition::PreisM48},
    Field{column::PreisM1 + 7, schema::field::PreisM60, Form::Plain, &vv_CPosition::PreisM60},
    Field{column::Preis, schema::field::Preis, Form::Plain, &vv_CPosition::Preis},
    Field{column::PreisOhne, schema::field::NettoOhneRabatt, Form::Plain,
          &vv_CPosition::NettoOhneRabatt},
};

std::string TextOf(const host::Value& value, Form form, const Locale& locale) {
  switch (form) {
    case Form::Fixed:
      return platform::FormatFixed(host::ToDouble(value), locale);
    case Form::Plain:
      return PlainText(value, locale);
    case Form::Text:
      break;
  }
  return host::ToText(value);
}

// The member's value as a field would give it.
host::Value ValueOf(const vv_CPosition& position, const Member& member) {
  return std::visit([&](auto pointer) { return host::Value(position.*pointer); }, member);
}

host::Value FieldValue(const std::string& text, Form form, const Locale& locale) {
  if (form == Form::Text) return text;
  if (text.empty()) return {};
  return NumberOf(text, locale);
}

void SetMember(vv_CPosition& position, const Member& member, const std::string& text,
               const Locale& locale) {
  if (const auto* pointer = std::get_if<std::string vv_CPosition::*>(&member)) {
    position.*(*pointer) = text;
    return;
  }
  const double number = NumberOrZero(text, locale);
  if (const auto* pointer = std::get_if<double vv_CPosition::*>(&member)) {
    position.*(*pointer) = number;
  } else {
    position.*std::get<std::int32_t vv_CPosition::*>(member) = contract::RoundToLong(number);
  }
}

std::string TotalText(double quantity, double price, const Locale& locale) {
  return platform::FormatFixed(contract::RoundCents(quantity * price), locale);
}

std::string& At(PositionTexts& texts, std::int32_t column) {
  return texts[static_cast<std::size_t>(column)];
}

}  // namespace

void AddPositionColumns(ui::ListView& list) {
  list.AddColumn("RecordOID", 0);
  list.AddColumn("Artikel", 40);
  list.AddColumn("Anz.", 10);
  list.AddColumn("Nettopreis", 15);
  list.AddColumn("G-Preis", 15);
  for (const char* caption : {"Artikelnummer", "Artikelart", "Einheit", "USTSatz", "Beschreibung",
                              "Erloeskonto", "ArtikelID"}) {
    list.AddColumn(caption, 0);
  }
  for (const std::string_view price : schema::kPriceFields) list.AddColumn(std::string(price), 0);
  list.AddColumn("Preis", 0);
  list.AddColumn("PreisOhne", 0);
  list.AddColumn("Gruppierung", 20);
}

PositionTexts TextsOfStored(host::HostTable& positions, const Locale& locale) {
  PositionTexts texts(column::kCount);
  At(texts, column::RecordOID) = positions.Oid();
  for (const Field& field : kFields) {
    At(texts, field.column) = TextOf(Get(positions, field.name), field.form, locale);
  }
  At(texts, column::GPreis) = TotalText(GetDouble(positions, schema::field::Anzahl),
                                        GetDouble(positions, schema::field::Nettopreis), locale);
  At(texts, column::Gruppierung) = GetText(positions, schema::field::Gruppierung);
  return texts;
}

PositionTexts TextsOfRecord(const vv_CPosition& position, const Locale& locale) {
  PositionTexts texts(column::kCount);
  for (const Field& field : kFields) {
    At(texts, field.column) = TextOf(ValueOf(position, field.member), field.form, locale);
  }
  At(texts, column::GPreis) = TotalText(position.Anzahl, position.Nettopreis, locale);
  return texts;
}

void AppendRow(ui::ListView& list, PositionTexts texts) {
  std::string first = std::move(texts.front());
  texts.erase(texts.begin());
  list.AddRow(std::move(first), std::move(texts));
}

vv_CPosition RecordOf(const ui::ListView& list, std::int32_t row, const Locale& locale) {
  vv_CPosition position;
  for (const Field& field : kFields) {
    SetMember(position, field.member, list.Text(row, field.column), locale);
  }
  position.Gruppierung = list.Text(row, column::Gruppierung);
  return position;
}

void WriteColumns(const ui::ListView& list, std::int32_t row, host::HostTable& positions,
                  const Locale& locale) {
  for (const Field& field : kFields) {
    Set(positions, field.name, FieldValue(list.Text(row, field.column), field.form, locale));
  }
}

double TotalOf(const ui::ListView& list, std::int32_t row, const Locale& locale) {
  return NumberOf(list.Text(row, column::GPreis), locale);
}

vv_CPosition DummyPosition() {
  vv_CPosition position;
  position.Artikel = "Tragen Sie hier die Bezeichnung ein!";
  position.Artikelnummer = "00000000";
  position.Artikelart = "Verbindlichkeit";
  position.Einheit = "Stück";
  position.Anzahl = 1.0;
  position.ArtikelID = schema::kDummyArticleId;
  return position;
}

void WriteDummyFields(host::HostTable& positions) {
  const vv_CPosition dummy = DummyPosition();
  for (const Field& field : kFields) {
    if (field.column == column::USTSatz || field.column == column::Erloeskonto) continue;
    Set(positions, field.name, ValueOf(dummy, field.member));
  }
  Set(positions, schema::field::Row, contract::RowText(1));
  Set(positions, schema::field::Positionsnummer, "");
  Set(positions, schema::field::Gruppierung, "");
  Set(positions, schema::field::Gruppierungsposition, std::int32_t{0});
}

}  // namespace pactora::definitions
