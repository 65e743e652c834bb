#include "bulk.h"

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <string>
#include <utility>
#include <vector>

#include "automation/bulk/report.h"
#include "automation/dataset/dataset_import.h"
#include "automation/dataset/sample/sample.h"
#include "company.h"

namespace pactora::bench {
namespace {

std::string List(int lines) {
  std::string text = "Schlüssel;Adresse;Vertragstyp;Vertragsbeginn;ZuletztFakturiert\n";
  for (int i = 0; i < lines; ++i)
    text += std::to_string(i) + ";" + std::to_string(1 + i % 40) +
            ";Hotline-Abonnement;01.01.2025;01.02.2025\n";
  return text;
}

std::string Record(int number) {
  std::string articles;
  for (int i = 1; i <= kPositions; ++i)
    articles += (i > 1 ? "," : "") + (R"({"sArtikelID":")" + ArticleId(i)) +
                R"(","lPreisDauer":12,"dblAnzahl":)" + std::to_string(i) + "}";
  return R"({"key":"K)" + std::to_string(number) + R"(","address":{"Name":"Kunde )" +
         std::to_string(1 + number % kAddresses) +
         R"("},"contract":{"lVertragArt":1,"VertragBeginn":"2024-03-01",)"
         R"("VertragGeschlossenAm":"2024-03-01","Bezeichnung":"Wartungsvertrag","Dauer":12,)"
         R"("Verlaengerungsdauer":12,"Zahlungsperiode":1,"VerlaengerungsZahlungsperiode":12,)"
         R"("dblRabatt":10,"KuendFristInWochen":6,"SetztMerkmalGruppe":"Verträge",)"
         R"("SetztMerkmal":"Wartung","SetztWert":"ja"},"articles":[)" +
         articles + "]}\n";
}

void RequireAllMade(const std::vector<bulk::ReportLine>& lines) {
  const auto is_created = [](const auto& line) { return line.outcome == bulk::Outcome::Created; };
  if (std::ranges::all_of(lines, is_created)) return;
  std::cerr << bulk::TextOf(lines);
  std::exit(1);
}

std::unique_ptr<store::RecordStore> Sample(std::unique_ptr<store::RecordStore> store) {
  FillSample(*store);
  return store;
}

std::unique_ptr<store::RecordStore> Company(std::unique_ptr<store::RecordStore> store) {
  FillCompany(*store);
  return store;
}

}  // namespace

void FillSample(store::RecordStore& store) {
  const auto source = formats::MemorySource("sample", std::string(dataset::SampleDataset()));
  dataset::ImportDataset(store, source, dataset::SurveyDataset(source), "FIRMA");
}

TakeoverOffice::TakeoverOffice(std::unique_ptr<store::RecordStore> store, int lines)
    : clock_(platform::FromCivil(2026, 3, 15)),
      list_(takeover::ReadList(List(lines), "list")),
      run_(Sample(std::move(store)), clock_, "bench", false) {}

void TakeoverOffice::TakeOver() {
  for (takeover::Line& line : list_.lines) line.key += '+';
  std::vector<bulk::ReportLine> lines;
  run_.CarryOut(list_, lines, [] {});
  RequireAllMade(lines);
}

ContractFileOffice::ContractFileOffice(std::unique_ptr<store::RecordStore> store, int contracts)
    : contracts_(contracts),
      clock_(platform::FromCivil(2024, 3, 1)),
      run_(Company(std::move(store)), clock_, false) {}

void ContractFileOffice::WriteFile() {
  std::string text;
  for (int i = 0; i < contracts_; ++i) text += Record(++made_);
  file_ = formats::MemorySource("bench", std::move(text));
}

void ContractFileOffice::MakeContracts() {
  std::vector<bulk::ReportLine> lines;
  run_.CarryOut(
      {file_}, {}, [] { return false; },
      [&](const dataset::ContractRun::Results& results) {
        for (const auto& result : results) lines.push_back(result.line);
      });
  RequireAllMade(lines);
}

}  // namespace pactora::bench
