// What the suites over stores share: rows made by field name, and rows as text,
// so that a failure shows what the store saw.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "schema/Catalog.h"
#include "schema/names.h"
#include "store/RecordStore.h"
#include "store/errors.h"
#include "support/error_of.h"
#include "support/store_kinds.h"

namespace pactora::store {

using support::ErrorNumberOf;

using Cells = std::vector<std::pair<std::string_view, host::Value>>;

// The position of a table or index. Requires: it exists.
TableId TableOf(const RecordStore& store, std::string_view name);
IndexId IndexOf(const RecordStore& store, std::string_view table, std::string_view index);

// A row with these cells, the others empty, and with these keys, the others
// empty texts.
Record Row(const RecordStore& store, std::string_view table, Oid parent = 0,
           const Cells& cells = {}, std::vector<std::string> keys = {});
Oid InsertedOid(RecordStore& store, std::string_view table, Oid parent = 0, const Cells& cells = {},
                std::vector<std::string> keys = {});

// The row's cell of that field.
host::Value& Cell(const RecordStore& store, std::string_view table, Record& record,
                  std::string_view field);

// Kind and exact content.
std::string Text(const host::Value& value);
// All of the row but its keys: "5 in 3, order 5, version 1: ...".
std::string Text(const Record& record);
std::string TextWithKeys(const Record& record);
// Names, users, macros and settings, a line each.
std::string Text(const Profile& profile);

Profile SampleProfile();

// One case for each kind of store.
class StoreSuite : public testing::TestWithParam<support::StoreKind> {
 protected:
  StoreSuite() : store_(GetParam().create(schema::ContractCatalog(true), SampleProfile())) {}

  // What a walk over the parent's rows or over an index finds, as oids in order.
  std::vector<Oid> Children(std::string_view table, Oid parent);
  std::vector<Oid> ByKey(std::string_view table, std::string_view index, std::string_view from = {},
                         std::int64_t after = 0);

  std::unique_ptr<RecordStore> store_;
};

}  // namespace pactora::store
