// A database file in which others have changed values and bytes.
#include <fmt/format.h>
#include <fuzzer/FuzzedDataProvider.h>
#include <sqlite3.h>

#include <cmath>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "automation/checks/check.h"
#include "automation/dataset/dataset_export.h"
#include "automation/dataset/dataset_files.h"
#include "automation/workspace/database.h"
#include "fuzz/fuzz.h"
#include "support/TemporaryFolder.h"

namespace pactora::fuzz {
namespace {

// Runs the statement, whatever becomes of it; returns the texts of the first column.
std::vector<std::string> Run(sqlite3* file, const std::string& sql) {
  sqlite3_stmt* statement = nullptr;
  sqlite3_prepare_v2(file, sql.c_str(), -1, &statement, nullptr);
  std::vector<std::string> texts;
  while (sqlite3_step(statement) == SQLITE_ROW)
    texts.emplace_back(reinterpret_cast<const char*>(sqlite3_column_text(statement, 0)));
  sqlite3_finalize(statement);
  return texts;
}

const std::string& OneOf(const std::vector<std::string>& texts, FuzzedDataProvider& some) {
  return texts[some.ConsumeIntegralInRange<std::size_t>(0, texts.size() - 1)];
}

// A value in SQL.
std::string Value(FuzzedDataProvider& some) {
  std::string bytes;
  for (const char c : some.ConsumeRandomLengthString(20)) bytes += fmt::format("{:02x}", c & 0xFF);
  const double number = some.ConsumeFloatingPoint<double>();
  return OneOf({"NULL", "9e999", std::to_string(some.ConsumeIntegral<std::int64_t>()),
                fmt::format("{:e}", std::isfinite(number) ? number : 0.0), "x'" + bytes + "'",
                "CAST(x'" + bytes + "' AS TEXT)"},
               some);
}

void ChangeValues(const std::string& path, FuzzedDataProvider& some) {
  sqlite3* file = nullptr;
  sqlite3_open(path.c_str(), &file);
  Run(file, "PRAGMA synchronous = OFF");
  const auto tables = Run(file, "SELECT name FROM sqlite_master WHERE type = 'table'");
  for (int left = some.ConsumeIntegralInRange(0, 3); left > 0; --left) {
    const std::string& table = OneOf(tables, some);
    const auto columns = Run(file, "SELECT name FROM pragma_table_info('" + table + "')");
    Run(file,
        fmt::format("UPDATE {0} SET \"{1}\" = {2} WHERE rowid IN (SELECT rowid FROM {0} "
                    "LIMIT 1 OFFSET {3})",
                    table, OneOf(columns, some), Value(some), some.ConsumeIntegralInRange(0, 3)));
  }
  sqlite3_close(file);
}

void ChangeBytes(const std::string& path, FuzzedDataProvider& some) {
  std::fstream file(path, std::ios::in | std::ios::out | std::ios::binary);
  file.seekg(0, std::ios::end);
  const auto size = static_cast<std::int32_t>(file.tellg());
  while (some.remaining_bytes() > 4) {
    file.seekp(some.ConsumeIntegralInRange(0, size - 1));
    file.put(some.ConsumeIntegral<char>());
  }
}

// What an export says; empty for one that is refused.
std::string Exported(store::RecordStore& store) {
  std::ostringstream out;
  return Ends([&] { dataset::ExportDataset(store, out); }) ? std::move(out).str() : std::string();
}

}  // namespace

void Try(std::string_view input) {
  static const support::TemporaryFolder folder;
  static const std::string sound = [] {
    dataset::ImportDatabase(folder.File("heil.db"), formats::MemorySource("firma", CompanyText()),
                            workspace::Access::Write, [](std::size_t, std::size_t) {});
    return folder.File("heil.db");
  }();
  const std::string path = folder.File("firma.db");
  std::filesystem::remove(path + "-journal");
  std::filesystem::remove(path);
  std::filesystem::copy_file(sound, path);
  FuzzedDataProvider some(reinterpret_cast<const std::uint8_t*>(input.data()), input.size());
  ChangeValues(path, some);
  ChangeBytes(path, some);

  std::vector<std::string> faults;
  workspace::StorageCheck storage;
  const bool is_examined = Ends([&] {
    storage = workspace::CheckStorage(path);
    faults = storage.faults;
    if (!storage.store) return;
    const auto found = [&](const std::string& fault) { faults.push_back(fault); };
    checks::CheckDatabase(*storage.store, found);
    dataset::CheckProfile(*storage.store, found);
  });
  Ends([&] { Exported(*workspace::OpenDatabase(path, workspace::Access::Read)); });
  if (!is_examined || !storage.store || !faults.empty()) return;
  const std::string text = Exported(*storage.store);
  Require(!text.empty() && Reexported(text) == text, "what is sound is exported and imported");
}

}  // namespace pactora::fuzz
