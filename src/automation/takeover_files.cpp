#include "automation/takeover_files.h"

#include <filesystem>
#include <iterator>
#include <string_view>
#include <system_error>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "automation/csv.h"
#include "automation/dataset_import.h"
#include "automation/errors.h"
#include "automation/files.h"

namespace pactora::automation {
namespace {

constexpr const char* kStandard = "-";  // input or output

std::string ReadAll(const TextSource& source) {
  const auto in = source.open();
  return {std::istreambuf_iterator<char>(*in), {}};
}

}  // namespace

std::string RejectedFile(const std::string& report) { return report + ".abgelehnt.csv"; }

TakeoverJob::TakeoverJob(TakeoverOrder order) : order_(std::move(order)) {
  RequireOwnFiles();
  const TextSource source = FileSource(order_.list);
  list_ = ReadTakeoverList(ReadAll(source), source.name);
}

void TakeoverJob::RequireOwnFiles() const {
  if (order_.report == kStandard)
    Raise(
        DoorError::BadInput,
        "der Bericht muss eine Datei sein: mit ihm wird eine unterbrochene Übernahme fortgesetzt");
  const std::string rejected = RejectedFile(order_.report);
  RequireOutside(order_.database, order_.report);
  RequireOutside(order_.database, rejected);
  if (order_.list == kStandard) return;
  if (IsSameFile(order_.list, order_.report))
    Raise(DoorError::BadInput, order_.report + ": das ist die Liste selbst");
  if (IsSameFile(order_.list, rejected))
    Raise(DoorError::BadInput,
          rejected +
              ": hierhin kommen die abgelehnten Zeilen; geben Sie der Liste einen anderen Namen");
}

TakeoverRun::Count TakeoverJob::Run(const platform::Clock& clock,
                                    const std::function<void()>& after_line) {
  return Naming(order_.database, [&] {
    TakeoverRun run(
        OpenDatabase(order_.database, order_.rehearsal ? Access::Rehearsal : Access::Write), clock);
    TakeoverReport report(order_.report);
    RequireOwnRejected(report);
    if (!order_.rehearsal) report.Open();
    const std::string name =
        std::filesystem::weakly_canonical(std::filesystem::absolute(order_.report)).string();
    const TakeoverRun::Count count = run.Run(list_, report, name, [&] {
      lines_.push_back(report.Lines().back());
      after_line();
    });
    if (!order_.rehearsal) WriteRejected();
    run.Finish(report);
    report_text_ = report.Text();
    return count;
  });
}

// The file is known by its lines: the report says that they were rejected.
void TakeoverJob::RequireOwnRejected(const TakeoverReport& report) {
  const std::string file = RejectedFile(order_.report);
  std::error_code ignored;
  if (!std::filesystem::exists(file, ignored)) return;
  std::unordered_set<std::string_view> of_list;
  for (const TakeoverLine& line : list_.lines) of_list.insert(line.text);
  bool is_mine = true;
  try {
    for (const TakeoverLine& line : ReadTakeoverList(ReadAll(FileSource(file)), file).lines) {
      is_mine = is_mine && report.WasRejected(line.key);
      keeps_old_rejected_ = keeps_old_rejected_ || !of_list.contains(line.text);
    }
  } catch (const platform::Error& error) {
    if (error.Number() != Number(DoorError::BadInput)) throw;
    is_mine = false;
  }
  if (!is_mine)
    Raise(DoorError::BadInput,
          file +
              ": hierhin kommen die abgelehnten Zeilen, es steht aber schon anderes da; geben "
              "Sie dieser Datei einen anderen Namen");
}

void TakeoverJob::WriteRejected() const {
  const std::string file = RejectedFile(order_.report);
  std::error_code ignored;
  if (keeps_old_rejected_) std::filesystem::rename(file, file + "~", ignored);
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
    ReplaceFile(file, list_.header + "\n" + text);
  } else {
    std::filesystem::remove(file, ignored);
  }
}

}  // namespace pactora::automation
