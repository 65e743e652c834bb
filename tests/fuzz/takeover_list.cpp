// A takeover list: carried out twice, no contract is made twice; the report tells of each line.
#include <algorithm>
#include <string>
#include <vector>

#include "automation/bulk/report.h"
#include "automation/takeover/list.h"
#include "automation/takeover/run.h"
#include "fuzz/fuzz.h"

namespace pactora::fuzz {

void Try(std::string_view input) {
  takeover::List list;
  if (!Ends([&] { list = takeover::ReadList(input, "eingabe"); })) return;
  std::vector<const takeover::Line*> lines;
  for (const takeover::Line& line : list.lines) lines.push_back(&line);
  const takeover::List copy = takeover::ReadList(takeover::TextOf(list, lines), "eingabe");
  Require(copy.lines.size() == lines.size(), "refused lines are the same list");
  for (std::size_t i = 0; i < lines.size(); ++i)
    Require(copy.lines[i].values == lines[i]->values && copy.lines[i].key == lines[i]->key,
            "a refused line is the same line");

  auto owned = Company();
  store::RecordStore& store = *owned;
  takeover::Run run(std::move(owned), kClock, "eingabe", false);
  std::vector<bulk::ReportLine> done;
  run.CarryOut(list, done, [] {});
  Require(done.size() == lines.size(), "each line is reported");
  const auto made = std::count_if(done.begin(), done.end(), [](const bulk::ReportLine& line) {
    return line.outcome == bulk::Outcome::Created;
  });
  Require(CountContracts(store) == made, "a line is entered whole or not at all");
  run.CarryOut(list, done, [] {});
  Require(CountContracts(store) == made, "a list that is repeated makes nothing");
  RequireSound(store);
  RequireReport(bulk::TextOf(done), done.size());
}

}  // namespace pactora::fuzz
