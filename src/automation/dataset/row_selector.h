// How a file names a row: by its Oid or by the values of its fields.
#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "automation/formats/json.h"
#include "schema/Catalog.h"
#include "store/RecordStore.h"

namespace pactora::dataset {

struct RowSelector {
  std::optional<store::Oid> oid;
  // Field and value, as in a dataset; null matches a field never written.
  std::vector<std::pair<std::string, formats::Json>> fields;
};

// The selector by field values; checks names and types of the fields. Raises
// DoorError::BadInput.
RowSelector ReadWhere(const schema::Table& table, const formats::Json& where,
                      const formats::Place& place);

// For messages, such as: Name = "Muster GmbH", or: Oid 7
std::string Describe(const RowSelector& selector);

// Finds rows. From the third selector with the same fields of the same table on, a
// search is a single look-up. The finder keeps what it read, so it must not be used
// after those rows were changed.
class RowFinder {
 public:
  explicit RowFinder(store::RecordStore& store) : store_(store) {}

  struct Found {
    store::Oid oid = 0;  // of the first row in record order that is selected
    bool only = true;    // no other row is selected
  };
  // Empty where there is no such row, or where this database's table lacks the field.
  std::optional<Found> Find(store::TableId table, const RowSelector& selector);

 private:
  struct Known {
    bool complete = false;
    struct Row {
      std::int64_t order = 0;
      Found found;
    };
    std::unordered_map<std::string, Row> rows;  // by their values
  };

  store::RecordStore& store_;
  std::map<std::pair<store::TableId, std::vector<std::size_t>>, Known> known_;
};

}  // namespace pactora::dataset
