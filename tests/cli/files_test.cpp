// The files that commands write: what becomes of what was there before.
#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <string>
#include <utility>

#include "cli/ProgramTest.h"
#include "store/sqlite/Connection.h"

namespace pactora::cli {
namespace {

class Files : public ProgramTest {};

TEST_F(Files, AWrittenFileStaysWhereItWasAndWhoseItWas) {
  const std::string data = Run({"export", db}).out;
  const std::string file = File("bestand.json", "alt");
  const std::string link = folder.File("verweis.json");
  const std::string dangling = folder.File("ins-leere.json");
  std::filesystem::permissions(file, std::filesystem::perms{0600});
  std::filesystem::create_symlink("bestand.json", link);
  std::filesystem::create_symlink("neu.json", dangling);
  const std::string mine = File("bestand.json.neu", "meins");

  EXPECT_EQ(Run({"export", db, link}).status, 0);
  EXPECT_EQ(Run({"export", db, dangling}).status, 0);
  EXPECT_TRUE(std::filesystem::is_symlink(link));
  EXPECT_EQ(Contents(file), data);
  EXPECT_EQ(std::filesystem::status(file).permissions(), std::filesystem::perms{0600});
  EXPECT_EQ(Contents(folder.File("neu.json")), data);
  EXPECT_EQ(Contents(mine), "meins");

  // What is no ordinary file gets the text and stays what it is.
  const std::string pipe = folder.File("rohr");
  ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
  const int end = ::open(pipe.c_str(), O_RDWR | O_NONBLOCK);
  EXPECT_EQ(Run({"list", db, "deadlines", "--ical", pipe}).status, 0);
  EXPECT_TRUE(std::filesystem::is_fifo(pipe));
  std::string begin(5, ' ');
  EXPECT_EQ(::read(end, begin.data(), begin.size()), 5);
  EXPECT_EQ(begin, "BEGIN");
  ::close(end);
}

TEST_F(Files, ADatabaseIsNotMadeThroughALinkThatLeadsNowhere) {
  const std::string dangling = folder.File("verweis.db");
  std::filesystem::create_symlink("nirgends.db", dangling);
  for (const auto& call : {std::vector<std::string>{"init", dangling}, {"import", dangling, "-"}}) {
    const Ended ended = Run(call, support::kCompany);
    EXPECT_EQ(ended.status, 2);
    EXPECT_EQ(ended.error, "pactora: " + dangling + ": der Verweis führt zu keiner Datei\n");
    EXPECT_TRUE(std::filesystem::is_symlink(dangling));
  }
}

TEST_F(Files, ADamagedDatabaseIsNotExportedAsIfItWereWhole) {
  for (const auto& [value, fault] :
       {std::pair("'quatsch'", "der Wert passt nicht"), std::pair("9e999", "Überlauf")}) {
    store::sqlite::Connection(db, store::sqlite::Access::ReadWrite, std::chrono::seconds(20))
        .Run(std::string("UPDATE Artikel SET Nettopreis = ") + value);
    const Ended ended = Run({"export", db, folder.File("bestand.json")});
    EXPECT_EQ(ended.status, 1);
    EXPECT_THAT(ended.error,
                testing::ContainsRegex(std::string("Artikel, Oid [0-9]+, Nettopreis: ") + fault));
  }
  EXPECT_FALSE(std::filesystem::exists(folder.File("bestand.json")));
}

}  // namespace
}  // namespace pactora::cli
