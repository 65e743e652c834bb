#include "automation/takeover_files.h"

#include <filesystem>
#include <iterator>
#include <system_error>
#include <unordered_map>
#include <utility>

#include "automation/dataset_import.h"
#include "automation/files.h"

namespace pactora::automation {

std::string RejectedFile(const std::string& report) { return report + ".abgelehnt.csv"; }

TakeoverJob::TakeoverJob(TakeoverOrder order) : order_(std::move(order)) {
  const TextSource source = FileSource(order_.list);
  const auto in = source.open();
  const std::string text{std::istreambuf_iterator<char>(*in), {}};
  list_ = ReadTakeoverList(text, source.name);
}

TakeoverRun::Count TakeoverJob::Run(const platform::Clock& clock,
                                    const std::function<void()>& after_line) {
  TakeoverRun run(
      OpenDatabase(order_.database, order_.rehearsal ? Access::Rehearsal : Access::Write), clock);
  TakeoverReport report(order_.rehearsal ? std::string() : order_.report);
  const std::string report_name =
      std::filesystem::weakly_canonical(std::filesystem::absolute(order_.report)).string();
  const TakeoverRun::Count count = run.Run(list_, report, report_name, [&] {
    lines_.push_back(report.Lines().back());
    after_line();
  });
  if (!order_.rehearsal) WriteRejected();
  return count;
}

void TakeoverJob::WriteRejected() const {
  std::unordered_map<std::size_t, const TakeoverLine*> lines;
  for (const TakeoverLine& line : list_.lines) lines[line.line] = &line;
  std::string text;
  for (const ReportLine& line : lines_) {
    if (line.outcome != TakeoverOutcome::Refused && line.outcome != TakeoverOutcome::Failed) {
      continue;
    }
    text += lines.at(line.line)->text + "\n";
  }
  if (!text.empty()) {
    ReplaceFile(RejectedFile(order_.report), list_.header + "\n" + text);
  } else {
    std::error_code ignored;
    std::filesystem::remove(RejectedFile(order_.report), ignored);
  }
}

}  // namespace pactora::automation
