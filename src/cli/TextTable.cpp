#include "cli/TextTable.h"

#include <algorithm>

#include "automation/dataset/values.h"
#include "automation/formats/JsonWriter.h"
#include "automation/formats/visible.h"
#include "cli/complain.h"
#include "platform/Date.h"
#include "platform/Locale.h"
#include "platform/Text.h"

namespace pactora::cli {

namespace {

std::string CellText(const host::Value& value) {
  switch (value.GetKind()) {
    case host::Kind::Double:
      return platform::FormatFixed(value.AsDouble(), platform::Locale{});
    case host::Kind::Boolean:
      return value.AsBoolean() ? "ja" : "nein";
    case host::Kind::Date:
      if (value.AsDate() == platform::kNoDate) return {};
      if (value.AsDate() == platform::kNoInvoiceDate) return "keine";
      return host::ToText(value);
    default:
      return formats::Visible(host::ToText(value));
  }
}

bool IsNumber(const host::Value& value) {
  const host::Kind kind = value.GetKind();
  return kind == host::Kind::Integer || kind == host::Kind::Long || kind == host::Kind::Double;
}

std::string Padded(const std::string& text, std::size_t width, bool right) {
  const std::string blanks(width - std::min(width, platform::Length(text)), ' ');
  return right ? blanks + text : text + blanks;
}

void PrintLine(std::ostream& out, const std::vector<std::string>& cells) {
  std::string line;
  for (std::size_t i = 0; i < cells.size(); ++i) line += (i ? "  " : "") + cells[i];
  line.erase(line.find_last_not_of(' ') + 1);
  out << line << '\n';
}

}  // namespace

void TextTable::PrintText(std::ostream& out) const {
  std::vector<std::size_t> widths;
  std::vector<bool> numbers;
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    std::size_t width = platform::Length(columns_[i].title);
    bool number = false;
    for (const auto& row : rows_) {
      width = std::max(width, platform::Length(CellText(row[i])));
      number = number || IsNumber(row[i]);
    }
    widths.push_back(width);
    numbers.push_back(number);
  }
  std::vector<std::string> cells(columns_.size());
  for (std::size_t i = 0; i < cells.size(); ++i)
    cells[i] = Padded(columns_[i].title, widths[i], numbers[i]);
  PrintLine(out, cells);
  for (std::size_t i = 0; i < cells.size(); ++i) cells[i] = std::string(widths[i], '-');
  PrintLine(out, cells);
  for (const auto& row : rows_) {
    for (std::size_t i = 0; i < cells.size(); ++i)
      cells[i] = Padded(CellText(row[i]), widths[i], numbers[i]);
    PrintLine(out, cells);
  }
}

void TextTable::PrintJson(std::ostream& out) const {
  formats::JsonWriter writer(out, formats::JsonWriter::Layout::Indented);
  writer.BeginArray();
  for (const auto& row : rows_) {
    writer.BeginObject();
    for (std::size_t i = 0; i < columns_.size(); ++i) {
      writer.Key(columns_[i].key);
      writer.Value(dataset::ToJson(row[i]));
    }
    writer.EndObject();
  }
  writer.EndArray();
  out << '\n';
}

}  // namespace pactora::cli
