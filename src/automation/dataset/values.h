// Values of fields, settings and records as JSON.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "automation/formats/JsonWriter.h"
#include "automation/formats/errors.h"
#include "automation/formats/json.h"
#include "host/Value.h"
#include "platform/Date.h"
#include "schema/Catalog.h"
#include "store/RecordStore.h"

namespace pactora::dataset {

// A date as platform::ParseIso reads it, or the number 0 for "no date".
platform::Date ReadDate(const formats::Json& value, const formats::Place& place);

// The value in the field's type, empty for null. Raises DoorError::BadInput for a
// JSON value of another kind and a text longer than the field.
host::Value ReadField(const schema::Field& field, const formats::Json& value,
                      const formats::Place& place);
// A value whose type the JSON decides: settings and persistent variables.
host::Value ReadFree(const formats::Json& value, const formats::Place& place);

// Requires: an object is null or a document of the embedded host.
formats::Json ToJson(const host::Value& value);
// Writes it. Raises DoorError::NotCarriedOut, with what where() gives, for a value that has no
// such form: a number that is not finite.
template <typename Where>
void WriteValue(formats::JsonWriter& out, const host::Value& value, const Where& where) {
  try {
    out.Value(ToJson(value));
  } catch (const platform::Error& error) {
    formats::Raise(formats::DoorError::NotCarriedOut, where() + ": " + error.Description());
  }
}

store::Oid ReadOid(const formats::Json& value, const formats::Place& place);

// As formats::ErrorNumberText writes it.
std::int32_t ReadErrorNumber(const formats::Json& value, const formats::Place& place);

}  // namespace pactora::dataset
