#include "takeover.h"

#include <algorithm>
#include <cstdlib>
#include <iostream>

#include "automation/bulk/report.h"
#include "automation/dataset/dataset_import.h"
#include "automation/dataset/sample/sample.h"
#include "automation/takeover/list.h"
#include "automation/takeover/run.h"

namespace pactora::bench {
namespace {

std::string List() {
  std::string text = "Schlüssel;Adresse;Vertragstyp;Vertragsbeginn;ZuletztFakturiert\n";
  for (int i = 0; i < TakeoverOffice::kLines; ++i) {
    text += std::to_string(i) + ";" + std::to_string(1 + i % 40) +
            ";Hotline-Abonnement;01.01.2025;01.02.2025\n";
  }
  return text;
}

std::unique_ptr<store::RecordStore> Filled(std::unique_ptr<store::RecordStore> store) {
  const auto source = formats::MemorySource("sample", std::string(dataset::SampleDataset()));
  dataset::ImportDataset(*store, source, dataset::SurveyDataset(source), "FIRMA");
  return store;
}

}  // namespace

struct TakeoverOffice::Parts {
  explicit Parts(std::unique_ptr<store::RecordStore> store)
      : run(Filled(std::move(store)), clock, "bench", false) {}

  platform::FixedClock clock{platform::FromCivil(2026, 3, 15)};
  takeover::List list = takeover::ReadList(List(), "list");
  takeover::Run run;
};

TakeoverOffice::TakeoverOffice(std::unique_ptr<store::RecordStore> store)
    : parts_(std::make_unique<Parts>(std::move(store))) {}

TakeoverOffice::~TakeoverOffice() = default;

void TakeoverOffice::TakeOver() {
  // Keys that no earlier call has entered.
  for (takeover::Line& line : parts_->list.lines) line.key += '+';
  std::vector<bulk::ReportLine> lines;
  parts_->run.CarryOut(parts_->list, lines, [] {});
  const auto is_created = [](const auto& line) { return line.outcome == bulk::Outcome::Created; };
  if (std::ranges::all_of(lines, is_created)) return;
  std::cerr << bulk::TextOf(lines);
  std::exit(1);
}

}  // namespace pactora::bench
