#include "automation/bulk/report.h"

#include <fmt/format.h>

#include <array>
#include <filesystem>
#include <iterator>
#include <system_error>
#include <utility>

#include "automation/formats/TextSource.h"
#include "automation/formats/csv.h"
#include "automation/formats/errors.h"
#include "automation/formats/files.h"
#include "automation/formats/visible.h"
#include "automation/workspace/contract_numbers.h"
#include "automation/workspace/database.h"
#include "platform/Error.h"
#include "platform/Text.h"

namespace pactora::bulk {
namespace {

const std::vector<std::string> kColumns = {"Zeile",          "Schlüssel", "Ergebnis",
                                           "Vertragsnummer", "Liste",     "Meldung"};
const std::vector<std::string> kEarlierColumns = {"Zeile", "Schlüssel", "Ergebnis",
                                                  "Vertragsnummer", "Meldung"};

constexpr std::array<std::pair<Outcome, std::string_view>, 4> kTexts = {{
    {Outcome::Created, "angelegt"},
    {Outcome::Refused, "abgelehnt"},
    {Outcome::Failed, "Fehler"},
    {Outcome::Skipped, "übersprungen"},
}};

std::vector<std::string> Cells(const ReportLine& line) {
  return {std::to_string(line.line),
          formats::Shortened(line.key),
          std::string(Text(line.outcome)),
          line.number,
          line.list,
          formats::Shortened(line.message)};
}

std::string ReadAll(const std::string& path) {
  const auto in = formats::FileSource(path).open();
  return {std::istreambuf_iterator<char>(*in), {}};
}

std::vector<ReportedContract> ContractsOf(const std::vector<formats::CsvRow>& rows) {
  std::vector<ReportedContract> contracts;
  for (const formats::CsvRow& row : rows) {
    if (!row.fault.empty() || row.cells.size() != kEarlierColumns.size()) continue;
    const bool is_entered =
        row.cells[2] == Text(Outcome::Created) || row.cells[2] == Text(Outcome::Skipped);
    if (is_entered && !row.cells[3].empty()) contracts.push_back({row.cells[1], row.cells[3]});
  }
  return contracts;
}

// A killed program may have left the last line of the text half written.
std::vector<formats::CsvRow> WholeRows(const std::string& text) {
  const char separator = formats::FormOf(text).separator;
  try {
    return formats::ReadCsv(text, separator);
  } catch (const platform::Error&) {
    return formats::ReadCsv(text.substr(0, text.rfind('\n') + 1), separator);
  }
}

}  // namespace

std::string_view Text(Outcome outcome) {
  for (const auto& [known, text] : kTexts) {
    if (known == outcome) return text;
  }
  return {};
}

bool IsRejected(Outcome outcome) {
  return outcome == Outcome::Refused || outcome == Outcome::Failed;
}

void Count::Add(Outcome outcome) {
  switch (outcome) {
    case Outcome::Created:
      ++created;
      break;
    case Outcome::Skipped:
      ++skipped;
      break;
    case Outcome::Refused:
      ++refused;
      break;
    case Outcome::Failed:
      ++failed;
      break;
  }
}

std::string Count::Text() const {
  const std::string failures = failed == 0 ? std::string() : fmt::format("{} Fehler, ", failed);
  return fmt::format("{} angelegt, {} abgelehnt, {}{} übersprungen", created, refused, failures,
                     skipped);
}

std::string TextOf(const std::vector<ReportLine>& lines) {
  std::string text = formats::CsvLine(kColumns, formats::kSeparator) + "\n";
  for (const ReportLine& line : lines) {
    std::vector<std::string> cells = Cells(line);
    for (std::string& cell : cells) cell = formats::PlainCell(cell);
    text += formats::CsvLine(cells, formats::kSeparator) + "\n";
  }
  return text;
}

void Write(formats::JsonWriter& out, const std::vector<ReportLine>& lines) {
  out.BeginArray();
  for (const ReportLine& line : lines) {
    const std::vector<std::string> cells = Cells(line);
    out.BeginObject();
    out.Key(kColumns[0]);
    out.Integer(static_cast<std::int64_t>(line.line));
    for (std::size_t i = 1; i < kColumns.size(); ++i) {
      out.Key(kColumns[i]);
      out.Text(cells[i]);
    }
    out.EndObject();
  }
  out.EndArray();
}

void LeavingReport(const std::string& path, const std::vector<ReportLine>& lines,
                   const std::function<void()>& run) {
  const auto write = [&] {
    if (!path.empty()) formats::ReplaceFile(path, TextOf(lines));
  };
  try {
    run();
  } catch (...) {
    try {
      write();
    } catch (const platform::Error&) {
      // What stopped the run is the message.
    }
    throw;
  }
  write();
}

platform::Error NamingUncertain(const platform::Error& error,
                                const std::vector<ReportLine>& lines) {
  std::vector<std::string> numbers;
  for (const ReportLine& line : lines)
    if (line.outcome == Outcome::Created) numbers.push_back(line.number);
  return workspace::NamingUncertain(error, numbers);
}

std::vector<ReportedContract> ReadEarlierReport(const std::string& path) {
  std::error_code ignored;
  const std::filesystem::file_status status = std::filesystem::status(path, ignored);
  if (std::filesystem::exists(status) && !std::filesystem::is_regular_file(status))
    formats::Raise(formats::DoorError::BadInput,
                   path + ": der Bericht muss eine gewöhnliche Datei sein");
  formats::RequireWritable(path);
  if (!std::filesystem::exists(status)) return {};
  const std::string text = ReadAll(path);
  std::vector<formats::CsvRow> rows;
  try {
    rows = WholeRows(text);
  } catch (const platform::Error&) {
    rows.clear();
  }
  if (text.empty() || (!rows.empty() && rows.front().cells == kColumns)) return {};
  if (!rows.empty() && rows.front().cells == kEarlierColumns) return ContractsOf(rows);
  formats::Raise(formats::DoorError::BadInput,
                 path + ": kein Bericht, die Datei wird nicht ersetzt");
}

void RequireOwnFile(const std::string& report, const std::string& database,
                    const std::vector<std::string>& lists) {
  if (report == formats::kStandardStream)
    formats::Raise(formats::DoorError::BadInput,
                   "der Bericht muss eine Datei sein, die Standardausgabe ist es nicht");
  workspace::RequireOutside(database, report);
  for (const std::string& list : lists)
    if (list != formats::kStandardStream && formats::IsSameFile(list, report))
      formats::Raise(formats::DoorError::BadInput, report + ": das ist die Liste selbst");
}

}  // namespace pactora::bulk
