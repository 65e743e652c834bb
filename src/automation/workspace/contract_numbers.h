// The numbers of contracts. The add-on draws them from a counter without a look at those that
// were typed; these functions look.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Error.h"
#include "store/RecordStore.h"

namespace pactora::workspace {

// The first row of the index whose field holds that very text and which passes.
std::optional<store::Record> SeekText(store::RecordStore& store, store::TableId table,
                                      std::string_view index, std::string_view field,
                                      const std::string& text,
                                      const std::function<bool(const store::Record&)>& passes = {});

// Whether the text is digits, and whether one such is less than another as a number.
bool IsNumber(std::string_view text);
bool IsLess(std::string_view number, std::string_view other);
// At least eight digits and nothing else: what a counter gives.
bool LooksDrawn(std::string_view number);

// Visits the counters of contract numbers, those of other clients too.
void ForEachNumberCounter(
    store::RecordStore& store,
    const std::function<void(const store::Record& counter, const std::string& number)>& visit);
// Whether the counter belongs to this database's client.
bool IsOwnCounter(store::RecordStore& store, const store::Record& counter);

// Whether another contract has the number of this one.
bool IsNumberTaken(store::RecordStore& store, const store::Record& contract);

// What a person should know of a stored contract's number, as a German clause that names it: that
// another contract has it too, or that the counter will give it out once more. Empty for nothing.
std::string NumberHint(store::RecordStore& store, store::Oid contract);

// A StoreError::Uncertain that names the contracts whose storing is uncertain; any other error as
// it is.
platform::Error NamingUncertain(const platform::Error& error,
                                const std::vector<std::string>& numbers);

}  // namespace pactora::workspace
