#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <sstream>
#include <vector>

#include "automation/checks/check.h"
#include "automation/company.h"
#include "automation/dataset/dataset_export.h"
#include "automation/formats/csv.h"
#include "automation/formats/visible.h"
#include "fuzz/fuzz.h"
#include "platform/Text.h"
#include "schema/names.h"

namespace pactora::fuzz {

void Require(bool holds, std::string_view law) {
  if (holds) return;
  std::cerr << "does not hold: " << law << std::endl;
  std::abort();
}

std::string CompanyText() {
  std::string company = support::kCompany;
  return company.insert(company.rfind("\"KELM_Mandanten\""), R"("vv_Vertragsdefinitionen": [
    { "ID": "V1", "Status": "freigegeben", "Typ": "D", "Bezeichnung": "Wartung Server", "Art": 1,
      "ArtStr": "verlängerbar", "Dauer": 12, "Verlaengerungsdauer": 12, "Kuendigungsfrist": 6,
      "KuendigungsfristEinh": "Wochen", "VerlKuendigungsfrist": 6, "Zahlungsperiode": 3,
      "VerlKuendigungsfristEinh": "Wochen", "VerlaengerungsZahlungsperiode": 3, "RechnungWann": 0,
      "NettoSumme": 300, "vv_Definitionspositionen": [
        { "Artikel": "Wartung Server", "Nettopreis": 300, "Artikelnummer": "1000", "Anzahl": 1,
          "Einheit": "Stück", "UStSatz": 19, "Erloeskonto": 8400, "ArtikelID": "A1", "PreisM1": 100,
          "PreisM3": 300, "PreisM6": 600, "PreisM12": 1200, "Preis": 1200, "NettoOhneRabatt": 300,
          "Row": "001", "Positionsnummer": "1", "Gruppierungsposition": 1 } ] } ], )");
}

std::unique_ptr<store::RecordStore> Company() { return support::StoreWith(CompanyText()); }

std::string Reexported(const std::string& dataset) {
  const formats::TextSource source = formats::MemorySource("eingabe", dataset);
  dataset::DatasetSurvey survey;
  if (!Ends([&] { survey = dataset::SurveyDataset(source); })) return {};
  const auto store = store::CreateMemoryStore(schema::ContractCatalog(survey.workflow_add_on),
                                              store::DefaultProfile("P"));
  if (!Ends([&] { dataset::ImportDataset(*store, source, survey, "P"); })) {
    store->Rollback();
    Require(workspace::IsEmpty(*store), "a refused dataset leaves nothing");
    return {};
  }
  std::ostringstream out;
  dataset::ExportDataset(*store, out);
  return std::move(out).str();
}

std::int64_t CountContracts(store::RecordStore& store) {
  return store.Count(store.Catalog().Table(schema::table::vv_Vertraege));
}

void RequireSound(store::RecordStore& store) {
  checks::CheckDatabase(store, [](const std::string& fault) { Require(false, fault); });
}

void RequireVisible(std::string_view text, std::string_view allowed) {
  while (!text.empty()) {
    const auto code = platform::FirstCode(text);
    const bool is_allowed = allowed.find(text.front()) != std::string_view::npos;
    Require(code && (is_allowed || !formats::IsControl(*code)), "every character is seen");
    text.remove_prefix(platform::FirstCharacters(text, 1).size());
  }
}

void RequireReport(const std::string& text, std::size_t lines) {
  RequireVisible(text, "\n");
  const auto rows = formats::ReadCsv(text, formats::kSeparator);
  Require(rows.size() == lines + 1, "a report has its lines");
  for (const formats::CsvRow& row : rows) {
    Require(row.fault.empty() && row.cells.size() == rows.front().cells.size(), "and its cells");
    for (const std::string& cell : row.cells)
      Require(
          cell.find_first_of("=@+-") != 0 || cell.find_first_not_of("+-0123456789,") > cell.size(),
          "no cell is a formula");
  }
}

}  // namespace pactora::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  pactora::fuzz::Try({reinterpret_cast<const char*>(data), size});
  return 0;
}
