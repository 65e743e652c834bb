// What the main window's lists and its timeline are made of.
#include <gmock/gmock.h>

#include <QAbstractItemModelTester>
#include <algorithm>
#include <random>

#include "desktop/main_window/ListLoader.h"
#include "desktop/main_window/ListModel.h"
#include "desktop/main_window/search_key.h"
#include "desktop/main_window/timeline.h"
#include "desktop/text.h"

namespace pactora::desktop {
namespace {

using platform::Date;

TEST(SearchKey, TextsThatPeopleTakeForTheSameAreEqual) {
  const std::vector<std::vector<QString>> same = {{"Müller", "MÜLLER", "muller", "Mu\u0308ller"},
                                                  {"Straße", "STRASSE", "strasse"},
                                                  {"Övelgrün", "ovelgrun"},
                                                  {"Café", "CAFE"}};
  for (const auto& texts : same)
    for (const QString& text : texts) EXPECT_EQ(SearchKey(text), SearchKey(texts[0]));
  EXPECT_NE(SearchKey("Müller"), SearchKey("Möller"));
}

// Rows in any number of portions, searched and sorted in any order of calls, against
// the plain way to do it.
TEST(ListModel, ShowsWhatAPlainSearchAndSortWouldShow) {
  std::mt19937 random(7);
  const std::vector<std::string> words = {"Öl", "ol", "Haus", "haus 7", "", "Straße", "hausx"};
  for (int round = 0; round < 200; ++round) {
    ListModel model(
        {{"Name", CellKind::Text, 10}, {"Zahl", CellKind::Number, 5}, {"Ort", CellKind::Text, 5}});
    const QAbstractItemModelTester tester(&model,
                                          QAbstractItemModelTester::FailureReportingMode::Fatal);
    std::vector<ListRow> rows;
    const std::vector<std::string> names = {"Ölhaus", "Haus", "Strasse", "Ohne", "Haus 7"};
    int column = -1;
    bool up = true;
    std::string search;
    for (int step = 0; step < 8; ++step) {
      switch (random() % 3) {
        case 0: {
          std::vector<ListRow> more;
          for (auto i = random() % 6; i > 0; --i) {
            const auto key = static_cast<std::int64_t>(rows.size() + more.size());
            const auto number = static_cast<std::int32_t>(random() % 9);
            more.push_back({key, key, {names[random() % names.size()], number, "x"}});
          }
          rows.insert(rows.end(), more.begin(), more.end());
          model.Add(more);
          model.Publish();
          break;
        }
        case 1:
          column = static_cast<int>(random() % 2);
          up = random() % 2 == 0;
          model.sort(column, up ? Qt::AscendingOrder : Qt::DescendingOrder);
          break;
        default:
          search = words[random() % words.size()];
          model.SetWords(ToQt(search));
      }
    }
    const QStringList wanted = SearchKey(ToQt(search)).split(' ', Qt::SkipEmptyParts);
    std::vector<std::int64_t> expected;
    for (const ListRow& row : rows) {
      const QString text = SearchKey(ToQt(row.cells[0].AsText()));
      const auto stands_there = [&](const QString& word) { return text.contains(word); };
      if (std::ranges::all_of(wanted, stands_there)) expected.push_back(row.key);
    }
    std::vector<std::int64_t> shown;
    for (int row = 0; row < model.rowCount(); ++row) shown.push_back(model.Row(row).key);
    EXPECT_THAT(shown, testing::UnorderedElementsAreArray(expected));
    for (int row = 1; column >= 0 && row < model.rowCount(); ++row) {
      const auto& lower = model.Row(up ? row - 1 : row).cells;
      const auto& upper = model.Row(up ? row : row - 1).cells;
      if (column == 1) {
        EXPECT_LE(lower[1].AsLong(), upper[1].AsLong());
      } else {
        EXPECT_LE(SearchKey(ToQt(lower[0].AsText())), SearchKey(ToQt(upper[0].AsText())));
      }
    }
    for (const auto key : shown) EXPECT_EQ(model.Row(model.Find(key)).key, key);
  }
}

TEST(ListLoader, ReportsAReadThatFails) {
  ListModel model({{"Name", CellKind::Text, 10}});
  ListLoader feed(model);
  std::string failed;
  feed.Failed = [&](const platform::Error& error) { failed = error.Description(); };
  feed.Start([](std::vector<ListRow>&) -> bool { throw platform::Error(7, "Platte kaputt"); });
  feed.Finish();
  EXPECT_EQ(failed, "Platte kaputt");
  EXPECT_FALSE(feed.Running());
}

TEST(Cells, ReadTheGermanWay) {
  EXPECT_EQ(CellText(CellKind::Money, 1234.5), "1.234,50");
  EXPECT_EQ(CellText(CellKind::Number, 1234.0), "1.234");
  EXPECT_EQ(CellText(CellKind::Percent, 12.5), "12,50 %");
  EXPECT_EQ(CellText(CellKind::Date, platform::kNoInvoiceDate), "keine");
  EXPECT_EQ(CellText(CellKind::Money, host::Value()), "");
}

// Whatever a contract's dates, all that matters lies on the axis, in order.
TEST(TimeAxis, HasEverythingOnItInOrder) {
  std::mt19937 random(11);
  const auto day = [&] {
    return Date{static_cast<double>(30000 + static_cast<int>(random() % 34000))};
  };
  for (int round = 0; round < 2000; ++round) {
    Timeline line;
    std::vector<Date> days;
    for (auto i = random() % 4; i > 0; --i) {
      TimelineTerm term{day(), std::nullopt, std::nullopt};
      if (random() % 3 > 0) term.end = Date{term.start.days + static_cast<double>(random() % 2000)};
      if (random() % 2 > 0) term.next_invoice = day();
      for (const auto& date : {std::optional(term.start), term.end, term.next_invoice})
        if (date) days.push_back(*date);
      line.terms.push_back(term);
    }
    if (random() % 2 > 0) days.push_back(line.notice.emplace(day()));
    const Date today = day();
    days.push_back(today);
    const TimeAxis axis(line, today);
    std::ranges::sort(days);
    for (std::size_t i = 0; i < days.size(); ++i) {
      EXPECT_GE(days[i], axis.First());
      EXPECT_LT(days[i], axis.Last());
      if (i > 0 && days[i] > days[i - 1]) {
        EXPECT_GT(axis.Place(days[i]), axis.Place(days[i - 1]));
      }
    }
    for (const int most : {2, 5, 12, 40}) {
      const std::vector<TimeTick> ticks = axis.Ticks(most);
      EXPECT_LE(ticks.size(), static_cast<std::size_t>(most));
      for (std::size_t i = 0; i < ticks.size(); ++i) {
        EXPECT_EQ(platform::ToCivil(ticks[i].date).day, 1);
        EXPECT_GE(ticks[i].date, axis.First());
        EXPECT_LT(ticks[i].date, axis.Last());
        EXPECT_TRUE(i == 0 || ticks[i].date > ticks[i - 1].date);
      }
    }
  }
}

}  // namespace
}  // namespace pactora::desktop
