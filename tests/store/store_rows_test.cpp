// What the walk over stores leaves out: every kind of value, and unique fields.
#include <limits>

#include "store/Document.h"
#include "store/StoreSuite.h"

namespace pactora::store {
namespace {

namespace field = schema::field;
namespace table = schema::table;

class StoreRows : public StoreSuite {};

TEST_P(StoreRows, EveryValueComesBackInItsTypeToTheLastBit) {
  constexpr auto kLong = std::numeric_limits<std::int32_t>();
  constexpr auto kDouble = std::numeric_limits<double>();
  const std::pair<std::string_view, host::Value> cases[] = {
      {field::LaufzeitStartStr, ""},
      {field::LaufzeitStartStr, "20240315"},
      {field::LaufzeitStartStr, "12"},  // a text that reads as a number
      {field::LaufzeitStartStr, "1e3"},
      {field::ZahlungsperiodeStr, "Änderung für Müller & \"Söhne\"; 'x' € 𝄞"},
      {field::ZahlungsperiodeStr, std::string("a\0b\0", 4)},
      {field::ZahlungsperiodeStr, "\xFF\xC3"},  // not UTF-8
      {field::ZahlungsperiodeStr, std::string(100000, 'x')},
      {field::Zahlungsperiode, std::int32_t{0}},
      {field::Zahlungsperiode, kLong.min()},
      {field::Zahlungsperiode, kLong.max()},
      {field::Value, 0.0},
      {field::Value, -0.0},
      {field::Value, 1200.0},
      {field::Value, 0.1},
      {field::Value, -1e300},
      {field::Value, 9007199254740993.0},
      {field::Value, 9223372036854775807.0},
      {field::Value, kDouble.denorm_min()},
      {field::Value, kDouble.max()},
      {field::Value, -kDouble.infinity()},
      {field::Value, kDouble.quiet_NaN()},
      {field::LaufzeitEnde, platform::kNoDate},  // written, but no date
      {field::LaufzeitEnde, host::Date{45366.0}},
      {field::LaufzeitEnde, host::Date{45366.0 + 32400.0 / 86400.0}},
      {field::LaufzeitEnde, host::Date{-1.25}},
      {field::LaufzeitEnde, host::Date{-0.0}},
      {field::LaufzeitEnde, platform::kNoInvoiceDate},
      {field::AlteFakturierung, true},
      {field::AlteFakturierung, false},
      {field::Dokument, std::make_shared<NamedDocument>("Vertrag.docx")},
      {field::Dokument, std::make_shared<NamedDocument>("")},
      {field::Dokument, host::Value()},
  };
  const TableId terms = TableOf(*store_, table::vv_Vertragsstaende);
  const Oid contract =
      InsertedOid(*store_, table::vv_Vertraege, InsertedOid(*store_, table::Adressen));
  // A read replaces all that the record held.
  Record found = Row(*store_, table::Artikel, 99, {{field::Id, "A1"}}, {"A1"});
  for (const auto& [name, value] : cases) {
    SCOPED_TRACE(std::string(name) + " " + Text(value).substr(0, 40));
    Record inserted = Row(*store_, table::vv_Vertragsstaende, contract, {{name, value}});
    store_->Insert(terms, inserted);
    ASSERT_TRUE(store_->Read(terms, inserted.oid, found));
    EXPECT_EQ(TextWithKeys(found), TextWithKeys(inserted));

    Record updated = Row(*store_, table::vv_Vertragsstaende, contract);
    store_->Insert(terms, updated);
    Cell(*store_, table::vv_Vertragsstaende, updated, name) = value;
    EXPECT_TRUE(store_->Update(terms, updated));
    ASSERT_TRUE(store_->Read(terms, updated.oid, found));
    EXPECT_EQ(TextWithKeys(found), TextWithKeys(updated));
  }
}

TEST_P(StoreRows, UniqueFieldsAreUniqueUnderTheirParent) {
  const TableId counters = TableOf(*store_, table::KELM_Nummern);
  const Oid one = InsertedOid(*store_, table::KELM_Mandanten);
  const Oid two = InsertedOid(*store_, table::KELM_Mandanten);
  const struct {
    Oid client;
    host::Value table;
    host::Value field;
    bool taken;
  } cases[] = {{one, "T", "F", false}, {one, "T", "F", true}, {two, "T", "F", false},
               {one, "T", "G", false}, {one, {}, {}, false},  {one, "", {}, false},
               {one, {}, {}, true},    {two, "T", "G", false}};
  Record record;
  for (const auto& row : cases) {
    record = Row(*store_, table::KELM_Nummern, row.client,
                 {{field::Tabelle, row.table}, {field::Feld, row.field}});
    EXPECT_EQ(ErrorNumberOf([&] { store_->Insert(counters, record); }),
              row.taken ? Number(StoreError::DuplicateKey) : 0)
        << Text(record);
  }
  EXPECT_EQ(store_->Count(counters), 6);

  Cell(*store_, table::KELM_Nummern, record, field::Feld) = "F";
  EXPECT_EQ(ErrorNumberOf([&] { store_->Update(counters, record); }),
            Number(StoreError::DuplicateKey));
  Cell(*store_, table::KELM_Nummern, record, field::Feld) = "H";
  EXPECT_TRUE(store_->Update(counters, record));
  EXPECT_TRUE(store_->Update(counters, record)) << "a row is no double of its own";
  Record found;
  ASSERT_TRUE(store_->Read(counters, record.oid, found));
  EXPECT_EQ(Text(found), Text(record));
}

INSTANTIATE_TEST_SUITE_P(Stores, StoreRows, testing::ValuesIn(support::AllStoreKinds()),
                         support::StoreName);

}  // namespace
}  // namespace pactora::store
