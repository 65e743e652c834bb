#include "automation/takeover/job.h"

#include <fmt/format.h>

#include <algorithm>
#include <filesystem>
#include <memory>

#include "automation/formats/errors.h"
#include "automation/formats/files.h"
#include "automation/takeover/rejected_lines.h"

namespace pactora::takeover {
namespace {

// What the database and the report call the list.
std::string NameOf(const std::string& list) {
  if (list == formats::kStandardStream) return "Standardeingabe";
  return std::filesystem::path(list).filename().string();
}

// The order; raises where one file is named for two purposes.
const Order& Checked(const Order& order) {
  bulk::RequireOwnFile(order.report, order.database, {order.list});
  workspace::RequireOutside(order.database, RejectedFile(order.report));
  return order;
}

}  // namespace

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
    run.AdoptEarlier(earlier_, list_);
    bulk::LeavingReport(order_.rehearsal ? std::string() : order_.report, lines_,
                        [&] { run.CarryOut(list_, lines_, after_line); });
    if (!order_.rehearsal)
      kept_ = WriteRejectedLines(list_, lines_, RejectedFile(order_.report), order_.list);
    if (show) show(*written);
    bulk::Count count;
    for (const bulk::ReportLine& line : lines_) count.Add(line.outcome);
    return count;
  });
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
