#include "automation/takeover_files.h"

#include <fmt/format.h>

#include <filesystem>
#include <iterator>
#include <string_view>
#include <system_error>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "automation/dataset_import.h"
#include "automation/errors.h"
#include "automation/files.h"

namespace pactora::automation {
namespace {

std::string ReadAll(const TextSource& source) {
  const auto in = source.open();
  return {std::istreambuf_iterator<char>(*in), {}};
}

TakeoverList ReadList(const std::string& path) {
  const TextSource source = FileSource(path);
  return ReadTakeoverList(ReadAll(source), source.name);
}

bool IsRejected(TakeoverOutcome outcome) {
  return outcome == TakeoverOutcome::Refused || outcome == TakeoverOutcome::Failed;
}

// The order, if each of its files is one thing only.
TakeoverOrder Checked(TakeoverOrder order) {
  if (order.report == kStandardStream)
    Raise(
        DoorError::BadInput,
        "der Bericht muss eine Datei sein: mit ihm wird eine unterbrochene Übernahme fortgesetzt");
  const std::string rejected = RejectedFile(order.report);
  RequireOutside(order.database, order.report);
  RequireOutside(order.database, rejected);
  if (order.list == kStandardStream) return order;
  if (IsSameFile(order.list, order.report))
    Raise(DoorError::BadInput, order.report + ": das ist die Liste selbst");
  if (IsSameFile(order.list, rejected))
    Raise(DoorError::BadInput,
          rejected +
              ": hierhin kommen die abgelehnten Zeilen; geben Sie der Liste einen anderen Namen");
  return order;
}

}  // namespace

std::string RejectedFile(const std::string& report) { return report + ".abgelehnt.csv"; }

TakeoverJob::TakeoverJob(TakeoverOrder order)
    : order_(Checked(std::move(order))), list_(ReadList(order_.list)), report_(order_.report) {}

TakeoverRun::Count TakeoverJob::Run(const platform::Clock& clock,
                                    const std::function<void()>& after_line) {
  return Naming(order_.database, [&] {
    TakeoverRun run(
        OpenDatabase(order_.database, order_.rehearsal ? Access::Rehearsal : Access::Write), clock);
    const OldRejected old = ReadOldRejected();
    if (!order_.rehearsal) report_.Open();
    const std::string name =
        std::filesystem::weakly_canonical(std::filesystem::absolute(order_.report)).string();
    const TakeoverRun::Count count = run.Run(list_, report_, name, after_line);
    if (!order_.rehearsal) WriteRejected(old);
    run.Finish(report_);
    return count;
  });
}

// A file of rejected lines is known by them: the report says that they were.
TakeoverJob::OldRejected TakeoverJob::ReadOldRejected() const {
  const std::string file = RejectedFile(order_.report);
  OldRejected old = OldRejected::Known;
  std::error_code ignored;
  if (!std::filesystem::exists(file, ignored)) return old;
  std::unordered_set<std::string_view> of_list;
  for (const TakeoverLine& line : list_.lines) of_list.insert(line.text);
  bool is_mine = true;
  try {
    for (const TakeoverLine& line : ReadList(file).lines) {
      is_mine = is_mine && report_.WasRejected(line.key);
      if (!of_list.contains(line.text)) old = OldRejected::Changed;
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
  return old;
}

void TakeoverJob::WriteRejected(OldRejected old) const {
  const std::string file = RejectedFile(order_.report);
  std::error_code ignored;
  if (old == OldRejected::Changed) {
    std::string kept = file + "~";
    for (int i = 2; std::filesystem::exists(kept, ignored); ++i)
      kept = fmt::format("{}~{}", file, i);
    std::filesystem::rename(file, kept, ignored);
  }
  std::unordered_map<std::size_t, const TakeoverLine*> lines;
  for (const TakeoverLine& line : list_.lines) lines[line.line] = &line;
  std::string text;
  for (const ReportLine& line : report_.Lines())
    if (IsRejected(line.outcome)) text += lines.at(line.line)->text + "\n";
  if (!text.empty()) {
    ReplaceFile(file, list_.header + "\n" + text);
  } else {
    std::filesystem::remove(file, ignored);
  }
}

}  // namespace pactora::automation
