// Values of fields, settings and records as JSON.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "automation/json.h"
#include "host/Value.h"
#include "platform/Date.h"
#include "schema/Catalog.h"
#include "store/RecordStore.h"

namespace pactora::automation {

// A date as platform::ParseIso reads it, or the number 0 for "no date".
platform::Date ReadDate(const Json& value, const Place& place);

// The value in the field's type, empty for null. Raises DoorError::BadInput for a
// JSON value of another kind and a text longer than the field.
host::Value ReadField(const schema::Field& field, const Json& value, const Place& place);
// A value whose type the JSON decides: settings and persistent variables.
host::Value ReadFree(const Json& value, const Place& place);

// Requires: an object is null or a document of the embedded host.
Json ToJson(const host::Value& value);

store::Oid ReadOid(const Json& value, const Place& place);

// Error numbers: "0x80045001", upper-case hexadecimal without leading zeros.
std::string ErrorNumberText(std::int32_t number);
std::int32_t ReadErrorNumber(const Json& value, const Place& place);

}  // namespace pactora::automation
