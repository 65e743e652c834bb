#include "definitions/position_columns.h"

#include <array>
#include <string_view>
#include <utility>

#include "contract/money.h"
#include "contract/position_groups.h"
#include "definitions/number_text.h"
#include "definitions/tables.h"
#include "host/members.h"
#include "host/row.h"
#include "platform/Error.h"
#include "schema/names.h"

namespace pactora::definitions {
namespace {

namespace field = schema::field;
using platform::Locale;

// How a column shows its value.
enum class Form { Text, Plain, Fixed };

struct Column {
  host::Member<vv_CPosition> member;
  std::int32_t index;
  Form form;
};

// In the order of writing.
constexpr std::array<Column, 20> kColumns = {{
    {{field::Artikel, &vv_CPosition::Artikel}, column::Artikel, Form::Text},
    {{field::Nettopreis, &vv_CPosition::Nettopreis}, column::Nettopreis, Form::Fixed},
    {{field::Artikelnummer, &vv_CPosition::Artikelnummer}, column::Artikelnummer, Form::Text},
    {{field::Artikelart, &vv_CPosition::Artikelart}, column::Artikelart, Form::Text},
    {{field::Einheit, &vv_CPosition::Einheit}, column::Einheit, Form::Text},
    {{field::UStSatz, &vv_CPosition::UStSatz}, column::USTSatz, Form::Plain},
    {{field::Beschreibung, &vv_CPosition::Beschreibung}, column::Beschreibung, Form::Text},
    {{field::Anzahl, &vv_CPosition::Anzahl}, column::Anzahl, Form::Fixed},
    {{field::Erloeskonto, &vv_CPosition::Erloeskonto}, column::Erloeskonto, Form::Plain},
    {{field::ArtikelID, &vv_CPosition::ArtikelID}, column::ArtikelID, Form::Text},
    {{field::PreisM1, &vv_CPosition::PreisM1}, column::PreisM1, Form::Plain},
    {{field::PreisM3, &vv_CPosition::PreisM3}, column::PreisM1 + 1, Form::Plain},
    {{field::PreisM6, &vv_CPosition::PreisM6}, column::PreisM1 + 2, Form::Plain},
    {{field::PreisM12, &vv_CPosition::PreisM12}, column::PreisM1 + 3, Form::Plain},
    {{field::PreisM24, &vv_CPosition::PreisM24}, column::PreisM1 + 4, Form::Plain},
    {{field::PreisM36, &vv_CPosition::PreisM36}, column::PreisM1 + 5, Form::Plain},
    {{field::PreisM48, &vv_CPosition::PreisM48}, column::PreisM1 + 6, Form::Plain},
    {{field::PreisM60, &vv_CPosition::PreisM60}, column::PreisM1 + 7, Form::Plain},
    {{field::Preis, &vv_CPosition::Preis}, column::Preis, Form::Plain},
    {{field::NettoOhneRabatt, &vv_CPosition::NettoOhneRabatt}, column::PreisOhne, Form::Plain},
}};

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

// The text of a column in the field's type; a number that was never written stays so.
host::Value FieldValue(const std::string& text, Form form, const Locale& locale) {
  if (form == Form::Text) return text;
  if (text.empty()) return {};
  return NumberOf(text, locale);
}

std::string TotalText(double quantity, double price, const Locale& locale) {
  return platform::FormatFixed(contract::RoundCents(quantity * price), locale);
}

std::string& At(PositionTexts& texts, std::int32_t column) {
  return texts[static_cast<std::size_t>(column)];
}

}  // namespace

host::Value FieldOf(const vv_CPosition& position, std::string_view name) {
  if (name == field::Gruppierung) return position.Gruppierung;
  for (const Column& shown : kColumns)
    if (shown.member.name == name) return host::Read(position, shown.member);
  platform::Raise(platform::RuntimeError::MemberNotOffered);
}

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
  for (const Column& shown : kColumns) {
    At(texts, shown.index) = TextOf(Get(positions, shown.member.name), shown.form, locale);
  }
  At(texts, column::GPreis) = TotalText(GetDouble(positions, field::Anzahl),
                                        GetDouble(positions, field::Nettopreis), locale);
  At(texts, column::Gruppierung) = GetText(positions, field::Gruppierung);
  return texts;
}

PositionTexts TextsOfRecord(const vv_CPosition& position, const Locale& locale) {
  PositionTexts texts(column::kCount);
  for (const Column& shown : kColumns) {
    At(texts, shown.index) = TextOf(host::Read(position, shown.member), shown.form, locale);
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
  for (const Column& shown : kColumns) {
    host::Write(position, shown.member,
                FieldValue(list.Text(row, shown.index), shown.form, locale));
  }
  position.Gruppierung = list.Text(row, column::Gruppierung);
  return position;
}

void WriteColumns(const ui::ListView& list, std::int32_t row, host::HostTable& positions,
                  const Locale& locale) {
  for (const Column& shown : kColumns) {
    Set(positions, shown.member.name, FieldValue(list.Text(row, shown.index), shown.form, locale));
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
  for (const Column& shown : kColumns) {
    if (shown.index == column::USTSatz || shown.index == column::Erloeskonto) continue;
    Set(positions, shown.member.name, host::Read(dummy, shown.member));
  }
  Set(positions, field::Row, contract::RowText(1));
  Set(positions, field::Positionsnummer, "");
  Set(positions, field::Gruppierung, "");
  Set(positions, field::Gruppierungsposition, std::int32_t{0});
}

}  // namespace pactora::definitions
