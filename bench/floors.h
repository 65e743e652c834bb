// The same contract written by hand: what the storage itself costs. The floors
// make the same look-ups and leave the same rows, in the same number of
// transactions, with prepared statements, and know nothing of cursors, fields by
// name or rules.
#pragma once

#include <cmath>
#include <memory>
#include <string>

namespace pactora::bench {

inline double Cents(double amount) { return std::nearbyint(amount * 100) / 100; }

class Floor {
 public:
  virtual ~Floor() = default;
  virtual void ConcludeContract() = 0;
};

// Over a database file that CreateSqlite made and FillCompany filled, with the
// settings of the store: on the file itself, or on a copy in memory.
enum class Place { OnDisk, InMemory };
std::unique_ptr<Floor> SqliteFloor(const std::string& path, Place place);

// As many contracts of a bulk run in one transaction, each with the row of its key.
inline constexpr int kGroup = 500;
std::unique_ptr<Floor> SqliteBulkFloor(const std::string& path, Place place);
// The same of a takeover list's lines, over a file with the sample company.
std::unique_ptr<Floor> SqliteTakeoverFloor(const std::string& path, Place place);

// Plain structs in vectors and maps.
std::unique_ptr<Floor> MemoryFloor();

}  // namespace pactora::bench
