#include "automation/takeover/list.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <cstddef>
#include <iterator>

#include "automation/formats/TextSource.h"
#include "automation/formats/csv.h"
#include "automation/formats/errors.h"
#include "platform/Locale.h"
#include "platform/Text.h"

namespace pactora::takeover {
namespace {

// Raised for a value that can't be read; the text says why.
struct Unreadable {
  std::string reason;
};

bool AllDigits(std::string_view text) {
  return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
}

// "1.234.567": one to three digits, then groups of three; at least one group.
bool Grouped(std::string_view text) {
  const std::size_t first = text.find('.');
  if (first > 3 || !AllDigits(text.substr(0, first))) {
    return false;
  }
  for (std::size_t at = first; at < text.size(); at += 4) {
    if (text[at] != '.' || text.substr(at).size() < 4 || !AllDigits(text.substr(at + 1, 3))) {
      return false;
    }
  }
  return true;
}

// Decimal comma. Thousands are grouped with points only before a comma: "1.5" and
// "1,234.56" might be meant otherwise and are not guessed.
double ReadNumber(std::string_view text) {
  std::string_view digits = text;
  if (digits.starts_with('-')) digits.remove_prefix(1);
  const std::size_t comma = digits.find(',');
  const std::string_view whole = digits.substr(0, comma);
  const bool fraction_fits = comma == std::string_view::npos || AllDigits(digits.substr(comma + 1));
  const bool whole_fits = AllDigits(whole) || (comma != std::string_view::npos && Grouped(whole));
  if (!whole_fits || !fraction_fits) {
    throw Unreadable{fmt::format("„{}“ ist keine Zahl wie 1234,56 oder 1.234,56", text)};
  }
  std::string plain;
  for (const char c : text) {
    if (c != '.') plain += c;
  }
  const auto number = platform::ParseNumber(plain, platform::Locale{});
  if (!number) throw Unreadable{fmt::format("„{}“ ist zu groß", text)};
  return *number;
}

platform::Date ReadDate(std::string_view text) {
  const auto date = platform::ParseDate(text);
  if (!date || *date == platform::kNoDate) {
    throw Unreadable{fmt::format("„{}“ ist kein Datum wie 31.12.2024 oder 2024-12-31", text)};
  }
  return *date;
}

bool ReadBoolean(std::string_view text) {
  for (const std::string_view yes : {"ja", "wahr", "1"}) {
    if (platform::EqualsIgnoringCase(text, yes)) return true;
  }
  for (const std::string_view no : {"nein", "falsch", "0"}) {
    if (platform::EqualsIgnoringCase(text, no)) return false;
  }
  throw Unreadable{fmt::format("„{}“ ist weder ja noch nein", text)};
}

struct Column {
  std::string_view name;
  std::string_view example;
  bool required;
  void (*read)(Line& line, const std::string& cell);
};

// A line's values have this order, and keys are made from them: a new column must be
// added at the end, so that the keys of existing reports stay valid.
constexpr std::array kColumns = {
    Column{"Adresse", "Muster GmbH", true, [](Line& l, const std::string& c) { l.address = c; }},
    Column{"Vertragstyp", "Wartung", true, [](Line& l, const std::string& c) { l.type = c; }},
    Column{"Vertragsbeginn", "01.01.2024", true,
           [](Line& l, const std::string& c) { l.begin = ReadDate(c); }},
    Column{"ZuletztFakturiert", "01.04.2026", false,
           [](Line& l, const std::string& c) { l.last_invoiced = ReadDate(c); }},
    Column{"Vertragsnummer", "W-2024-01", false,
           [](Line& l, const std::string& c) { l.number = c; }},
    Column{"GeschlossenAm", "15.12.2023", false,
           [](Line& l, const std::string& c) { l.closed_on = ReadDate(c); }},
    Column{"Verantwortlich", "Anna", false,
           [](Line& l, const std::string& c) { l.responsible = c; }},
    Column{"Rabatt", "12,5", false,
           [](Line& l, const std::string& c) { l.discount = ReadNumber(c); }},
    Column{"RabattNurErsteLaufzeit", "nein", false,
           [](Line& l, const std::string& c) { l.discount_first_term_only = ReadBoolean(c); }},
    Column{"Fremdfakturierung", "nein", false,
           [](Line& l, const std::string& c) { l.no_booking = ReadBoolean(c); }},
    Column{"Bearbeitungshinweis", "Beispielzeile, bitte ersetzen", false,
           [](Line& l, const std::string& c) { l.memo = c; }},
    Column{"Schlüssel", "A-1", false, [](Line& l, const std::string& c) { l.key = c; }},
};

using Columns = std::vector<const Column*>;

// Without the empty cells at the end: spreadsheets end lines with them.
std::vector<std::string> Used(std::vector<std::string> cells) {
  while (!cells.empty() && cells.back().empty()) cells.pop_back();
  return cells;
}

// The line's values in one form, independent of the order, quotes and line breaks with
// which a program saved the list.
std::string ValuesOf(const std::vector<std::string>& cells, const Columns& columns) {
  const bool overfull = cells.size() > columns.size();
  std::vector<std::string> values(std::max(kColumns.size(), cells.size()));
  for (std::size_t i = 0; i < cells.size(); ++i) {
    const auto place = overfull ? i : static_cast<std::size_t>(columns[i] - kColumns.data());
    for (const char c : cells[i])
      if (c != '\r') values[place] += c;
  }
  return formats::CsvLine(Used(std::move(values)), formats::kSeparator);
}

Columns ReadHeader(const formats::CsvRow& header, const std::string& file) {
  Columns columns;
  if (!header.fault.empty())
    formats::Raise(formats::DoorError::BadInput, fmt::format("{}, {}", file, header.fault));
  const auto refuse = [&](const std::string& why) {
    formats::Raise(formats::DoorError::BadInput,
                   fmt::format("{}, Zeile {}: {}", file, header.line, why));
  };
  for (const std::string& name : Used(header.cells)) {
    const Column* known = nullptr;
    for (const Column& column : kColumns) {
      if (column.name == name) known = &column;
    }
    if (known == nullptr)
      refuse(fmt::format("unbekannte Spalte „{}“; es gibt {}", name, ColumnNames()));
    for (const Column* column : columns) {
      if (column == known) refuse(fmt::format("die Spalte „{}“ steht zweimal da", name));
    }
    columns.push_back(known);
  }
  for (const Column& column : kColumns) {
    bool present = !column.required;
    for (const Column* other : columns) present |= other == &column;
    if (!present) refuse(fmt::format("die Spalte „{}“ fehlt", column.name));
  }
  return columns;
}

Line ReadLine(const formats::CsvRow& row, const Columns& columns) {
  Line line;
  line.line = row.line;
  line.text = row.text;
  const std::vector<std::string> cells = Used(row.cells);
  line.refusal = row.fault;
  if (line.refusal.empty() && cells.size() > columns.size())
    line.refusal = "mehr Werte als Spalten";
  line.unclear = !line.refusal.empty();
  line.key = line.values = row.fault.empty() ? ValuesOf(cells, columns) : row.text;
  if (line.unclear) return line;
  const auto refuse = [&](const Column& column, const std::string& why) {
    if (line.refusal.empty()) line.refusal = fmt::format("Spalte {}: {}", column.name, why);
  };
  for (std::size_t i = 0; i < columns.size(); ++i) {
    const std::string cell = i < cells.size() ? cells[i] : std::string();
    if (cell.empty()) {
      if (columns[i]->required) refuse(*columns[i], "der Wert fehlt");
      continue;
    }
    try {
      columns[i]->read(line, cell);
    } catch (const Unreadable& unreadable) {
      refuse(*columns[i], unreadable.reason);
    }
  }
  return line;
}

}  // namespace

List ReadList(std::string_view text, const std::string& name) {
  List list;
  list.form = formats::FormOf(text);
  std::vector<formats::CsvRow> rows;
  try {
    rows = formats::ReadCsv(text, list.form.separator);
  } catch (const platform::Error& error) {
    formats::Raise(formats::DoorError::BadInput, fmt::format("{}, {}", name, error.Description()));
  }
  // A line that names the separator for spreadsheets is no row.
  if (!rows.empty() && rows.front().text == std::string("sep=") + list.form.separator)
    rows.erase(rows.begin());
  if (rows.empty())
    formats::Raise(formats::DoorError::BadInput, fmt::format("{}: die Liste ist leer", name));
  list.header = rows.front().text;
  const Columns columns = ReadHeader(rows.front(), name);
  for (std::size_t i = 1; i < rows.size(); ++i) list.lines.push_back(ReadLine(rows[i], columns));
  return list;
}

List ReadListFile(const std::string& path) {
  const formats::TextSource source = formats::FileSource(path);
  const auto in = source.open();
  return ReadList(std::string(std::istreambuf_iterator<char>(*in), {}), source.name);
}

std::string ColumnNames() {
  std::string names;
  for (const Column& column : kColumns)
    names += (names.empty() ? "" : ", ") + std::string(column.name);
  return names;
}

std::string Template() {
  std::vector<std::string> names;
  std::vector<std::string> examples;
  for (const Column& column : kColumns) {
    names.emplace_back(column.name);
    examples.emplace_back(column.example);
  }
  const formats::CsvForm form{.marked = true, .line_break = "\r\n"};
  std::string text = form.Mark();
  for (const auto& cells : {names, examples})
    text += formats::CsvLine(cells, form.separator) + form.line_break;
  return text;
}

std::string TextOf(const List& list, const std::vector<const Line*>& lines) {
  std::string text = list.form.Mark() + list.header + list.form.line_break;
  for (const Line* line : lines) text += line->text + list.form.line_break;
  return text;
}

}  // namespace pactora::takeover
