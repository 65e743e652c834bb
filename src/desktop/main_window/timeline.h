// A contract on a line of time: its terms and the days that matter, and where they
// stand on an axis.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/Date.h"
#include "store/RecordStore.h"

namespace pactora::desktop {

struct TimelineTerm {
  platform::Date start;
  std::optional<platform::Date> end;           // empty: no end is known
  std::optional<platform::Date> next_invoice;  // empty: none will come
};

struct Timeline {
  std::string title;  // number and name of the contract
  std::vector<TimelineTerm> terms;
  std::optional<platform::Date> notice;  // last day for notice
};

// The contract's timeline; empty where there is no such contract.
std::optional<Timeline> ReadTimeline(store::RecordStore& store, store::Oid contract);

struct TimeTick {
  platform::Date date;
  std::string label;  // a year, or month and year
};

// A stretch of time in whole months that has the terms, the days that matter and
// today in it, at most 100 years before and behind today.
class TimeAxis {
 public:
  TimeAxis(const Timeline& line, platform::Date today);

  platform::Date First() const { return first_; }
  platform::Date Last() const { return last_; }  // the day behind the stretch
  // 0 at the beginning, 1 at the end; days outside stand there.
  double Place(platform::Date date) const;
  // At most so many, at the beginnings of months or years, equally many months apart.
  std::vector<TimeTick> Ticks(int most) const;

 private:
  platform::Date first_;
  platform::Date last_;
};

}  // namespace pactora::desktop
