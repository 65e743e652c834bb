// Verifying a database: what holds for every database that this program wrote.
#pragma once

#include <functional>
#include <string>

#include "store/RecordStore.h"

namespace pactora::checks {

// Called with each fault: which row, and what is wrong with it, in one line.
using Finding = std::function<void(const std::string& text)>;

// All of the checks below. at_row runs at each row and may raise to stop.
void CheckDatabase(store::RecordStore& store, const Finding& found,
                   const std::function<void()>& at_row = {});

// Every row is found from its parent and, under the right key, in each index; its
// values fit their fields; no ID occurs twice.
void CheckRows(store::RecordStore& store, const Finding& found,
               const std::function<void()>& at_row = {});

// What a row refers to by ID or Oid exists.
void CheckRelations(store::RecordStore& store, const Finding& found,
                    const std::function<void()>& at_row = {});

// Every contract is whole: a number, a value, a status row, positions where it is
// invoiced, texts that say what the fields beside them hold.
void CheckContracts(store::RecordStore& store, const Finding& found,
                    const std::function<void()>& at_row = {});

// Every counter of contract numbers is a number, and this database's is not below a
// contract number that may have been drawn from it.
void CheckCounters(store::RecordStore& store, const Finding& found);

// Not part of CheckDatabase: contract numbers that occur more than once. Nobody keeps a
// person from typing one, so they are no faults.
void CheckNumbers(store::RecordStore& store, const Finding& hint);

// Neither: values that differ from what others in the contract give (ends, notice dates,
// amounts, numbers of positions). A person or another program may have wanted them so.
void CheckDerived(store::RecordStore& store, const Finding& hint,
                  const std::function<void()>& at_row = {});

}  // namespace pactora::checks
