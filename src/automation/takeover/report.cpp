#include "automation/takeover/report.h"

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

namespace pactora::takeover {
namespace {

constexpr std::array<std::string_view, 5> kReportColumns = {"Zeile", "Schlüssel", "Ergebnis",
                                                            "Vertragsnummer", "Meldung"};
constexpr const char* kOfEarlierList = "aus einer früheren Liste";

constexpr std::array<std::pair<Outcome, std::string_view>, 4> kTexts = {{
    {Outcome::Created, "angelegt"},
    {Outcome::Refused, "abgelehnt"},
    {Outcome::Failed, "Fehler"},
    {Outcome::Skipped, "übersprungen"},
}};

const std::string& Header() {
  static const std::string header =
      formats::CsvLine({kReportColumns.begin(), kReportColumns.end()}, formats::kSeparator);
  return header;
}

std::vector<std::string> Cells(const ReportLine& line) {
  return {line.line == 0 ? std::string() : std::to_string(line.line), line.key,
          std::string(Text(line.outcome)), line.number, line.message};
}

// Whether a line without a line break has all its cells: an editor may have taken
// the break away, a killed program may have left the line half written.
bool IsWhole(const std::string& line) {
  try {
    const std::vector<formats::CsvRow> rows = formats::ReadCsv(line, formats::kSeparator);
    return rows.size() == 1 && rows.front().fault.empty() &&
           rows.front().cells.size() == kReportColumns.size();
  } catch (const platform::Error&) {
    return false;
  }
}

// Whether the line stands for a contract.
bool HasContract(const ReportLine& line) { return !line.number.empty(); }

std::string LineText(const ReportLine& line) {
  return formats::CsvLine(Cells(line), formats::kSeparator) + "\n";
}

}  // namespace

std::string_view Text(Outcome outcome) {
  for (const auto& [known, text] : kTexts)
    if (known == outcome) return text;
  return {};
}

Report::Report(std::string path) : path_(std::move(path)) {
  std::error_code ignored;
  const std::filesystem::file_status status = std::filesystem::status(path_, ignored);
  if (!std::filesystem::exists(status)) return;
  if (!std::filesystem::is_regular_file(status))
    formats::Raise(formats::DoorError::BadInput,
                   path_ + ": der Bericht muss eine gewöhnliche Datei sein");
  Load();
}

void Report::Open() {
  file_ = std::fopen(path_.c_str(), "ab");
  if (file_ == nullptr) formats::RaiseUnwritable(path_);
  std::error_code failed;
  if (!formats::TryReserve(file_) || std::filesystem::file_size(path_, failed) != size_)
    formats::Raise(formats::DoorError::NotCarriedOut,
                   path_ + ": mit diesem Bericht läuft schon eine Übernahme");
  std::filesystem::resize_file(path_, whole_, failed);
  if (failed) formats::RaiseUnwritable(path_);
  if (lacks_break_) std::fputc('\n', file_);
  if (resumed_) return;
  std::fputs((Header() + "\n").c_str(), file_);
  Sync();
}

Report::~Report() {
  if (file_ != nullptr) std::fclose(file_);
}

void Report::Load() {
  const auto in = formats::FileSource(path_).open();
  const std::string text{std::istreambuf_iterator<char>(*in), {}};
  size_ = text.size();
  if (Header().starts_with(text)) return;  // hardly begun
  if (!text.starts_with(Header()))
    formats::Raise(formats::DoorError::BadInput,
                   fmt::format("{}: kein Bericht einer Übernahme", path_));
  resumed_ = true;
  const std::size_t last = text.rfind('\n') + 1;  // 0 where there is no break
  lacks_break_ = IsWhole(text.substr(last));
  whole_ = lacks_break_ ? size_ : last;
  for (const formats::CsvRow& row : formats::ReadCsv(text.substr(0, whole_), formats::kSeparator)) {
    if (!row.fault.empty())
      formats::Raise(formats::DoorError::BadInput, fmt::format("{}, {}", path_, row.fault));
    LoadLine(row.cells);
  }
}

void Report::LoadLine(const std::vector<std::string>& cells) {
  if (cells.size() != kReportColumns.size()) return;
  const std::string& key = cells[1];
  const std::string& number = cells[3];
  const auto is = [&](Outcome outcome) { return cells[2] == takeover::Text(outcome); };
  if (is(Outcome::Refused) || is(Outcome::Failed)) {
    rejected_.insert(key);
    if (created_.contains(key)) doubled_.insert(key);
  }
  const bool is_created = is(Outcome::Created) || is(Outcome::Skipped);
  if (!is_created || number.empty() || !created_.try_emplace(key, number).second) return;
  // What stands behind the lines of the list is from before it.
  const bool is_earlier = cells[0].empty();
  if (is_earlier && rejected_.contains(key)) doubled_.insert(key);
  AddEarlier(key, number);
}

void Report::AddEarlier(const std::string& key, const std::string& number) {
  earlier_.push_back({0, key, Outcome::Created, number, kOfEarlierList});
}

const std::string* Report::CreatedFor(const std::string& key) const {
  const auto found = created_.find(key);
  return found == created_.end() ? nullptr : &found->second;
}

void Report::Add(const ReportLine& line) {
  if (line.outcome == Outcome::Created) created_.try_emplace(line.key, line.number);
  lines_.push_back(line);
  if (file_ == nullptr) return;
  const std::string text = LineText(line);
  const bool written =
      std::fwrite(text.data(), 1, text.size(), file_) == text.size() && std::fflush(file_) == 0;
  if (!written) formats::RaiseUnwritable(path_);
}

void Report::Sync() {
  if (file_ != nullptr && !formats::Sync(file_)) formats::RaiseUnwritable(path_);
}

void Report::Finish() {
  if (file_ == nullptr) return;
  // Should the machine fail now, the lines are kept nevertheless.
  Sync();
  std::fclose(std::exchange(file_, nullptr));
  formats::ReplaceFile(path_, Text());
}

std::vector<ReportLine> Report::AllLines() const {
  std::vector<ReportLine> lines = lines_;
  std::unordered_set<std::string_view> keys;
  for (const ReportLine& line : lines_)
    if (HasContract(line)) keys.insert(line.key);
  for (const ReportLine& line : earlier_)
    if (!keys.contains(line.key)) lines.push_back(line);
  return lines;
}

std::string Report::Text() const {
  std::string text = Header() + "\n";
  for (const ReportLine& line : AllLines()) text += LineText(line);
  return text;
}

void Report::Write(formats::JsonWriter& out) const {
  out.BeginArray();
  for (const ReportLine& line : AllLines()) {
    const std::vector<std::string> cells = Cells(line);
    out.BeginObject();
    for (std::size_t i = 0; i < kReportColumns.size(); ++i) {
      out.Key(kReportColumns[i]);
      if (i == 0 && line.line == 0)
        out.Null();
      else if (i == 0)
        out.Integer(static_cast<std::int64_t>(line.line));
      else
        out.Text(cells[i]);
    }
    out.EndObject();
  }
  out.EndArray();
}

}  // namespace pactora::takeover
