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

// What the database and the report call the list.
std::string NameOf(const std::string& list) {
  if (list == formats::kStandardStream) return "Standardeingabe";
  return std::filesystem::path(list).filename().string();
}

// Whether the file holds anything but lines of the list.
bool HasOtherLines(const std::string& file, const List& list) {
  std::error_code ignored;
  if (!std::filesystem::exists(file, ignored)) return false;
  std::unordered_set<std::string_view> known;
  for (const Line& line : list.lines) known.insert(line.text);
  try {
    const auto is_other = [&](const Line& line) { return !known.contains(line.text); };
    return std::ranges::any_of(ReadListFile(file).lines, is_other);
  } catch (const platform::Error& error) {
    if (error.Number() != Number(formats::DoorError::BadInput)) throw;
    return true;
  }
}

// The order; raises where one file is named for two purposes.
const Order& Checked(const Order& order) {
  if (order.report == formats::kStandardStream)
    formats::Raise(formats::DoorError::BadInput,
                   "der Bericht muss eine Datei sein, die Standardausgabe ist es nicht");
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
      earlier_(bulk::ReadEarlierReport(order_.report)) {}

bulk::Count Job::CarryOut(const platform::Clock& clock, const std::function<void()>& after_line,
                          const std::function<void(dataset::WrittenRows&)>& show) {
  return workspace::Naming(order_.database, [&] {
    auto store =
        workspace::OpenDatabase(order_.database, order_.rehearsal ? workspace::Access::Rehearsal
                                                                  : workspace::Access::Write);
    dataset::WrittenRows* written = nullptr;
    if (show) written = &dataset::WrittenRows::Watch(store);
    Run run(std::move(store), clock, NameOf(order_.list), !order_.rehearsal);
    run.AdoptEarlier(earlier_);
    try {
      run.CarryOut(list_, lines_, after_line);
    } catch (...) {
      try {
        WriteReport();
      } catch (const platform::Error&) {
        // What stopped the run is the message.
      }
      throw;
    }
    WriteReport();
    if (!order_.rehearsal) WriteRejected();
    if (show) show(*written);
    bulk::Count count;
    for (const bulk::ReportLine& line : lines_) count.Add(line.outcome);
    return count;
  });
}

void Job::WriteReport() const {
  if (!order_.rehearsal) formats::ReplaceFile(order_.report, bulk::TextOf(lines_));
}

void Job::WriteRejected() {
  const std::string file = RejectedFile(order_.report);
  std::vector<const Line*> rejected;
  std::unordered_map<std::size_t, const Line*> lines;
  for (const Line& line : list_.lines) lines[line.line] = &line;
  for (const bulk::ReportLine& line : lines_)
    if (IsRejected(line.outcome)) rejected.push_back(lines.at(line.line));

  std::error_code failed;
  if (HasOtherLines(file, list_) && !formats::IsSameFile(file, order_.list)) {
    kept_ = file + "~";
    for (int i = 2; std::filesystem::exists(kept_, failed); ++i)
      kept_ = fmt::format("{}~{}", file, i);
    std::filesystem::rename(file, kept_, failed);
    if (failed) formats::RaiseUnwritable(kept_);
  }
  if (rejected.empty())
    std::filesystem::remove(file, failed);
  else
    formats::ReplaceFile(file, TextOf(list_, rejected));
}

std::vector<std::string> Job::FilesLeft() const {
  std::vector<std::string> left;
  const std::string rejected = RejectedFile(order_.report);
  const auto is_rejected = [](const bulk::ReportLine& line) { return IsRejected(line.outcome); };
  if (!order_.rehearsal && std::ranges::any_of(lines_, is_rejected))
    left.push_back(fmt::format(
        "Abgelehnte Zeilen stehen in {}; verbessert sind sie die nächste Liste", rejected));
  if (!kept_.empty())
    left.push_back(fmt::format("Was vorher in {} stand, steht jetzt in {}", rejected, kept_));
  return left;
}

}  // namespace pactora::takeover
