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

// For messages: „Name = "Muster GmbH"“ or „Oid 7“.
std::string Describe(const RowSelector& selector);

// Finds rows. A selector of the same fields of the same table, used again, costs one
// look-up: the finder keeps what it saw, so it must not outlive a change of those
// rows.
class RowFinder {
 public:
  explicit RowFinder(store::RecordStore& store) : store_(store) {}

  struct Found {
    store::Oid oid = 0;  // of the first row in record order that is selected
    bool only = true;    // no other row is selected
  };
  // Nothing where there is no such row, or where the table of this database lacks
  // the field.
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
