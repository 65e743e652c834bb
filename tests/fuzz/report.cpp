// A report of any lines, and what is read as one of an earlier release.
#include "automation/bulk/report.h"

#include <fuzzer/FuzzedDataProvider.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "fuzz/fuzz.h"
#include "support/TemporaryFolder.h"

namespace pactora::fuzz {

void Try(std::string_view input) {
  static const support::TemporaryFolder folder;
  const std::string path = folder.File("bericht.csv");
  const auto contracts_of = [&](const std::string& text) {
    std::vector<bulk::ReportedContract> contracts;
    std::filesystem::remove(path);
    std::ofstream(path) << text;
    Ends([&] { contracts = bulk::ReadEarlierReport(path); });
    return contracts;
  };
  for (const auto& contract :
       contracts_of("Zeile;Schlüssel;Ergebnis;Vertragsnummer;Meldung\n" + std::string(input)))
    Require(input.find(contract.number) < input.size(), "only contracts are read");

  FuzzedDataProvider some(reinterpret_cast<const std::uint8_t*>(input.data()), input.size());
  std::vector<bulk::ReportLine> lines;
  while (some.remaining_bytes() > 0)
    lines.push_back({lines.size(), some.ConsumeRandomLengthString(50), bulk::Outcome::Created,
                     some.ConsumeRandomLengthString(50), some.ConsumeRandomLengthString(50),
                     some.ConsumeRandomLengthString(50)});
  const std::string text = bulk::TextOf(lines);
  RequireReport(text, lines.size());
  Require(contracts_of(text).empty(), "a report of today is replaced");
}

}  // namespace pactora::fuzz
