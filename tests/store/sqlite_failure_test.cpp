// Each call of the system that a save makes fails in turn: what was reported as stored is
// there, what was reported as not stored is not, and what is uncertain is there whole or
// not at all.
#include "store/SqliteFile.h"
#include "support/FailingFiles.h"

namespace pactora::store {
namespace {

using support::FailingFiles;

class SqliteFailure : public SqliteFile, public testing::WithParamInterface<FailingFiles::Call> {};

TEST_P(SqliteFailure, OfEachCallOfASaveIsReportedAsItIs) {
  const FailingFiles::Call call = GetParam();
  FailingFiles files;
  int uncertain = 0;
  for (std::size_t nth = 1;; ++nth) {
    SCOPED_TRACE(nth);
    std::filesystem::remove(path_);
    AddAddress(*Create(), "da");
    auto store = Open();
    files.Fail(call, nth);
    const std::int32_t error = ErrorNumberOf([&] { AddAddress(*store, "neu"); });
    const bool failed = files.Stop();
    if (error == Number(StoreError::Uncertain)) {
      ++uncertain;
      EXPECT_EQ(ErrorNumberOf([&] { Addresses(*store); }), error) << "it goes on with the file";
      EXPECT_EQ(ErrorNumberOf([&] { AddAddress(*store, "mehr"); }), error);
      store->Rollback();
    }
    store.reset();
    const auto again = Open();
    const std::int64_t rows = Addresses(*again);
    EXPECT_EQ(CheckSqlite(path_).faults, std::vector<std::string>());
    if (error != Number(StoreError::Uncertain)) {
      EXPECT_EQ(rows, error == 0 ? 2 : 1);
    }
    AddAddress(*again, "danach");
    EXPECT_EQ(Addresses(*again), rows + 1);
    if (!failed) break;
  }
  EXPECT_GT(uncertain, 0);
}

INSTANTIATE_TEST_SUITE_P(Calls, SqliteFailure,
                         testing::Values(FailingFiles::Call::Write, FailingFiles::Call::Sync,
                                         FailingFiles::Call::Truncate));

}  // namespace
}  // namespace pactora::store
