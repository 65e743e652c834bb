// A stored record read by field name.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "host/Value.h"
#include "schema/Catalog.h"
#include "store/RecordStore.h"

namespace pactora::store {

// Refers to the record and to the description of its table; both must outlive the
// view. Names are compared without regard to case. Requires: the table has the field.
class RowView {
 public:
  RowView(const schema::Table& schema, const Record& record) : schema_(schema), record_(record) {}

  const host::Value& operator[](std::string_view field) const {
    return record_.cells[schema_.FindField(field).value()];
  }
  bool Has(std::string_view field) const { return !(*this)[field].IsEmpty(); }
  std::string Text(std::string_view field) const { return host::ToText((*this)[field]); }
  std::int32_t Long(std::string_view field) const { return host::ToLong((*this)[field]); }
  double Double(std::string_view field) const { return host::ToDouble((*this)[field]); }
  // Nothing where there is no date.
  std::optional<platform::Date> Date(std::string_view field) const {
    const platform::Date date = host::ToDate((*this)[field]);
    if (date == platform::kNoDate) return std::nullopt;
    return date;
  }

 private:
  const schema::Table& schema_;
  const Record& record_;
};

}  // namespace pactora::store
