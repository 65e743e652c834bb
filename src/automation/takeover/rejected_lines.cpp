#include "automation/takeover/rejected_lines.h"

#include <fmt/format.h>

#include <algorithm>
#include <filesystem>
#include <string_view>
#include <system_error>
#include <unordered_map>
#include <unordered_set>

#include "automation/formats/errors.h"
#include "automation/formats/files.h"

namespace pactora::takeover {
namespace {

constexpr const char* kRejectedEnding = ".abgelehnt.csv";

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

// Renames the file; returns its new name.
std::string KeepAside(const std::string& file) {
  std::error_code failed;
  std::string kept = file + "~";
  for (int i = 2; std::filesystem::exists(kept, failed); ++i) kept = fmt::format("{}~{}", file, i);
  std::filesystem::rename(file, kept, failed);
  if (failed) formats::RaiseUnwritable(kept);
  return kept;
}

}  // namespace

std::string RejectedFile(const std::string& report) { return report + kRejectedEnding; }

std::string UsualReport(const std::string& list) {
  const std::string ending = kRejectedEnding;
  if (list.size() > ending.size() && list.ends_with(ending))
    return list.substr(0, list.size() - ending.size());
  return list + ".bericht.csv";
}

std::string WriteRejectedLines(const List& list, const std::vector<bulk::ReportLine>& report,
                               const std::string& file, const std::string& list_file) {
  std::unordered_map<std::size_t, const Line*> lines;
  for (const Line& line : list.lines) lines[line.line] = &line;
  std::vector<const Line*> rejected;
  for (const bulk::ReportLine& line : report)
    if (IsRejected(line.outcome)) rejected.push_back(lines.at(line.line));

  std::string kept;
  if (HasOtherLines(file, list) && !formats::IsSameFile(file, list_file)) kept = KeepAside(file);
  std::error_code failed;
  if (rejected.empty())
    std::filesystem::remove(file, failed);
  else
    formats::ReplaceFile(file, TextOf(list, rejected));
  return kept;
}

}  // namespace pactora::takeover
