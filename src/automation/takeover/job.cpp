#include "automation/takeover/job.h"

#include <fmt/format.h>

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <memory>
#include <string_view>
#include <system_error>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "automation/formats/TextSource.h"
#include "automation/formats/errors.h"
#include "automation/formats/files.h"

namespace pactora::takeover {
namespace {

constexpr const char* kRejectedEnding = ".abgelehnt.csv";

std::string ReadAll(const formats::TextSource& source) {
  const auto in = source.open();
  return {std::istreambuf_iterator<char>(*in), {}};
}

List ReadListFile(const std::string& path) {
  const formats::TextSource source = formats::FileSource(path);
  return ReadList(ReadAll(source), source.name);
}

bool IsRejected(Outcome outcome) {
  return outcome == Outcome::Refused || outcome == Outcome::Failed;
}

// The order; raises where one file is named for two purposes.
const Order& Checked(const Order& order) {
  if (order.report == formats::kStandardStream)
    formats::Raise(
        formats::DoorError::BadInput,
        "der Bericht muss eine Datei sein: mit ihm wird eine unterbrochene Übernahme fortgesetzt");
  const std::string rejected = RejectedFile(order.report);
  workspace::RequireOutside(order.database, order.report);
  workspace::RequireOutside(order.database, rejected);
  if (order.list == formats::kStandardStream) return order;
  if (formats::IsSameFile(order.list, order.report))
    formats::Raise(formats::DoorError::BadInput, order.report + ": das ist die Liste selbst");
  return order;
}

}  // namespace

std::string RejectedFile(const std::string& report) { return report + kRejectedEnding; }

std::string UsualReport(const std::string& list) {
  const std::string ending = kRejectedEnding;
  if (list.size() > ending.size() && list.ends_with(ending))
    return list.substr(0, list.size() - ending.size());
  return list + ".bericht.csv";
}

Job::Job(const Order& order)
    : order_(Checked(order)),
      list_(ReadListFile(order_.list)),
      report_(order_.report),
      list_is_rejected_(order_.list != formats::kStandardStream &&
                        formats::IsSameFile(order_.list, RejectedFile(order_.report))) {
  // Only a file that a run of this report wrote may be replaced.
  if (list_is_rejected_ && !report_.Resumed())
    formats::Raise(
        formats::DoorError::BadInput,
        order_.list +
            ": hierhin kommen die abgelehnten Zeilen; geben Sie der Liste einen anderen Namen");
}

Run::Count Job::CarryOut(const platform::Clock& clock, const std::function<void()>& after_line,
                         const std::function<void(dataset::WrittenRows&)>& show) {
  return workspace::Naming(order_.database, [&] {
    auto store =
        workspace::OpenDatabase(order_.database, order_.rehearsal ? workspace::Access::Rehearsal
                                                                  : workspace::Access::Write);
    dataset::WrittenRows* written = nullptr;
    if (show) written = &dataset::WrittenRows::Watch(store);
    Run run(std::move(store), clock);
    const OldRejected old = ReadOldRejected();
    order_.rehearsal ? formats::RequireWritable(order_.report) : report_.Open();
    const std::string name =
        std::filesystem::weakly_canonical(std::filesystem::absolute(order_.report)).string();
    const Run::Count count = run.CarryOut(list_, report_, name, after_line);
    if (!order_.rehearsal) WriteRejected(old);
    run.Finish(report_);
    if (show) show(*written);
    return count;
  });
}

// A file of rejected lines is known by them: the report says that they were.
Job::OldRejected Job::ReadOldRejected() const {
  const std::string file = RejectedFile(order_.report);
  OldRejected old = OldRejected::Known;
  std::error_code ignored;
  if (list_is_rejected_ || !std::filesystem::exists(file, ignored)) return old;
  std::unordered_set<std::string_view> of_list;
  for (const Line& line : list_.lines) of_list.insert(line.text);
  bool is_mine = true;
  try {
    for (const Line& line : ReadListFile(file).lines) {
      is_mine = is_mine && report_.WasRejected(line.key);
      if (!of_list.contains(line.text)) old = OldRejected::Changed;
    }
  } catch (const platform::Error& error) {
    if (error.Number() != Number(formats::DoorError::BadInput)) throw;
    is_mine = false;
  }
  if (!is_mine)
    formats::Raise(
        formats::DoorError::BadInput,
        file +
            ": hierhin kommen die abgelehnten Zeilen, es steht aber schon anderes da; geben "
            "Sie dieser Datei einen anderen Namen");
  return old;
}

void Job::WriteRejected(OldRejected old) {
  const std::string file = RejectedFile(order_.report);
  std::error_code failed;
  if (old == OldRejected::Changed) {
    kept_ = file + "~";
    for (int i = 2; std::filesystem::exists(kept_, failed); ++i)
      kept_ = fmt::format("{}~{}", file, i);
    std::filesystem::rename(file, kept_, failed);
    if (failed) formats::RaiseUnwritable(kept_);
  }
  std::unordered_map<std::size_t, const Line*> lines;
  for (const Line& line : list_.lines) lines[line.line] = &line;
  std::vector<const Line*> rejected;
  for (const ReportLine& line : report_.Lines())
    if (IsRejected(line.outcome)) rejected.push_back(lines.at(line.line));
  if (rejected.empty())
    std::filesystem::remove(file, failed);
  else
    formats::ReplaceFile(file, TextOf(list_, rejected));
}

std::vector<std::string> Job::FilesLeft() const {
  std::vector<std::string> left;
  const std::string rejected = RejectedFile(order_.report);
  const auto is_rejected = [](const ReportLine& line) { return IsRejected(line.outcome); };
  if (!order_.rehearsal && std::ranges::any_of(report_.Lines(), is_rejected))
    left.push_back(fmt::format(
        "Abgelehnte Zeilen stehen in {}; verbessert sind sie die nächste Liste", rejected));
  if (!kept_.empty())
    left.push_back(fmt::format("Was vorher in {} stand, steht jetzt in {}", rejected, kept_));
  return left;
}

}  // namespace pactora::takeover
