#include "automation/takeover_report.h"

#include <fmt/format.h>
#include <unistd.h>

#include <array>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <utility>

#include "automation/csv.h"
#include "automation/errors.h"
#include "automation/files.h"

namespace pactora::automation {
namespace {

constexpr std::string_view kHeader = "Zeile;Schlüssel;Ergebnis;Vertragsnummer;Meldung";
constexpr std::size_t kHeaderColumns = 5;

constexpr std::array<std::pair<TakeoverOutcome, std::string_view>, 4> kTexts = {{
    {TakeoverOutcome::Created, "angelegt"},
    {TakeoverOutcome::Refused, "abgelehnt"},
    {TakeoverOutcome::Failed, "Fehler"},
    {TakeoverOutcome::Skipped, "übersprungen"},
}};

std::string LineText(const ReportLine& line) {
  return CsvLine({std::to_string(line.line), line.key, std::string(Text(line.outcome)), line.number,
                  line.message},
                 kSeparator) +
         "\n";
}

}  // namespace

std::string_view Text(TakeoverOutcome outcome) {
  for (const auto& [known, text] : kTexts) {
    if (known == outcome) return text;
  }
  return {};
}

std::string ReportText(const std::vector<ReportLine>& lines) {
  std::string text = std::string(kHeader) + "\n";
  for (const ReportLine& line : lines) text += LineText(line);
  return text;
}

TakeoverReport::TakeoverReport(std::string path) : path_(std::move(path)) {
  if (path_.empty()) return;
  Load();
  file_ = std::fopen(path_.c_str(), "ab");
  if (file_ == nullptr) {
    RaiseUnwritable(path_);
  }
  if (!resumed_) {
    std::fputs((std::string(kHeader) + "\n").c_str(), file_);
    Sync();
  }
}

TakeoverReport::~TakeoverReport() {
  if (file_ != nullptr) std::fclose(file_);
}

void TakeoverReport::Load() {
  std::ifstream in(path_, std::ios::binary);
  if (!in) return;
  std::string text{std::istreambuf_iterator<char>(in), {}};
  // Without its line break the last line may be half written.
  const std::size_t whole = text.rfind('\n');
  const std::string kept = whole == std::string::npos ? std::string() : text.substr(0, whole + 1);
  if (kept.empty() && std::string_view(kHeader).starts_with(text)) {
    std::filesystem::resize_file(path_, 0);
    return;
  }
  if (!kept.starts_with(kHeader)) {
    Raise(DoorError::BadInput, fmt::format("{}: kein Bericht einer Übernahme", path_));
  }
  resumed_ = true;
  for (const CsvRow& row : ReadCsv(kept, kSeparator)) {
    if (row.cells.size() != kHeaderColumns || row.cells[3].empty()) continue;
    if (row.cells[2] == Text(TakeoverOutcome::Created) ||
        row.cells[2] == Text(TakeoverOutcome::Skipped)) {
      created_.try_emplace(row.cells[1], row.cells[3]);
    }
  }
  if (kept.size() != text.size()) std::filesystem::resize_file(path_, kept.size());
}

const std::string* TakeoverReport::CreatedFor(const std::string& key) const {
  const auto found = created_.find(key);
  return found == created_.end() ? nullptr : &found->second;
}

void TakeoverReport::Add(const ReportLine& line) {
  if (line.outcome == TakeoverOutcome::Created) created_.try_emplace(line.key, line.number);
  lines_.push_back(line);
  if (file_ == nullptr) return;
  const std::string text = LineText(line);
  const bool written =
      std::fwrite(text.data(), 1, text.size(), file_) == text.size() && std::fflush(file_) == 0;
  if (!written) {
    RaiseUnwritable(path_);
  }
}

void TakeoverReport::Sync() {
  if (file_ == nullptr) return;
  if (std::fflush(file_) != 0 || fsync(fileno(file_)) != 0) {
    RaiseUnwritable(path_);
  }
}

void TakeoverReport::Finish() {
  if (file_ == nullptr) return;
  std::fclose(std::exchange(file_, nullptr));
  ReplaceFile(path_, ReportText(lines_));
}

}  // namespace pactora::automation
