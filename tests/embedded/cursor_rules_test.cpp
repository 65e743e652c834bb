// What the walk over live tables leaves out: names, refusals and expressions.

#include "embedded/Host.h"
#include "schema/names.h"
#include "store/errors.h"
#include "support/error_of.h"
#include "support/store_kinds.h"

namespace pactora::embedded {
namespace {

namespace field = schema::field;
namespace table = schema::table;
using support::ErrorNumberOf;

class CursorRules : public support::StoreTest {
 protected:
  void SetUp() override {
    StoreTest::SetUp();
    if (!IsSkipped())
      host_ = std::make_unique<Host>(GetParam().create(schema::ContractCatalog(true), {}));
  }

  std::shared_ptr<host::HostTable> Get(std::string_view name) { return host_->Table(name); }

  void NewRow(std::string_view name) { Get(name)->GotoRec(Get(name)->NewRecordOid(0)); }
  // Makes a stored row under the parent's current row the current one.
  void Add(std::string_view name,
           std::initializer_list<std::pair<std::string_view, host::Value>> values) {
    NewRow(name);
    for (const auto& [key, value] : values) Get(name)->Fields().Item(key).SetValue(value);
    Get(name)->StoreNew(256);
  }

  std::unique_ptr<Host> host_;
};

TEST_P(CursorRules, EachRefusalHasItsNumber) {
  host::HostTable& addresses = *Get(table::Adressen);
  host::HostTable& contracts = *Get(table::vv_Vertraege);
  addresses.MoveFirst(256);
  EXPECT_EQ(addresses.Oid(), "");
  const auto write = [&](std::string_view name, const host::Value& value) {
    return [&contracts, name, value] { contracts.Fields().Item(name).SetValue(value); };
  };
  const auto expect = [](HostError expected, const std::function<void()>& body) {
    EXPECT_EQ(platform::HexNumber(ErrorNumberOf(body)), platform::HexNumber(Number(expected)));
  };
  expect(HostError::UnknownTable, [&] { Get("Kunden"); });
  expect(HostError::UnknownField, write("Kunde", 1));
  expect(HostError::NoCurrentRow, [&] { addresses.Fields().Item(field::Name).Value(); });
  expect(HostError::NoCurrentRow, write(field::Dauer, 1));
  expect(HostError::NoIndexSelected, [&] { addresses.SeekKey("x", 256); });
  expect(HostError::NoParentRow, [&] { contracts.NewRecordOid(0); });
  expect(HostError::NoParentTable, [&] { addresses.ParentTable(); });
  expect(HostError::RowNotFound, [&] { addresses.GotoOid("77"); });
  expect(HostError::InvalidPosition, [&] { addresses.GotoRec(host::ValueArray{1, 2.0}); });
  NewRow(table::Adressen);
  expect(HostError::RowNotStored, [&] { addresses.Store(256); });
  expect(HostError::NoParentRow, [&] { contracts.NewRecordOid(0); });
  addresses.StoreNew(256);
  expect(HostError::RowAlreadyStored, [&] { addresses.StoreNew(256); });
  NewRow(table::vv_Vertraege);
  EXPECT_EQ(ErrorNumberOf(write(field::Vertragnummer, std::string(20, '1'))), 0);
  EXPECT_EQ(ErrorNumberOf(write(field::Vertragnummer, std::string(21, '1'))),
            store::Number(store::StoreError::TextTooLong));
}

TEST_P(CursorRules, AfterTheHostIsGoneEveryOperationFails) {
  const auto addresses = Get(table::Adressen);
  const auto app = host_->App();
  host_.reset();
  EXPECT_EQ(ErrorNumberOf([&] { addresses->MoveFirst(256); }), Number(HostError::HostClosed));
  EXPECT_EQ(ErrorNumberOf([&] { app->CurrentDb(); }), Number(HostError::HostClosed));
}

INSTANTIATE_TEST_SUITE_P(Stores, CursorRules, testing::ValuesIn(support::StoreKinds()),
                         support::StoreName);

}  // namespace
}  // namespace pactora::embedded
