// The dates by which the office must act on a contract: the last day for notice and
// the day on which it ends. They come from the contract rows, not from the
// appointments, which a user may have changed or ticked off.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "automation/workspace/row_walk.h"
#include "platform/Date.h"
#include "store/RecordStore.h"

namespace pactora::deadlines {

inline constexpr std::int32_t kMostWeeks = 5000;  // that callers may ask for

struct Deadline {
  enum class Kind {
    Notice,
    TermEnd,  // of a contract that is renewed unless notice is given
    End,
  };

  Kind kind = Kind::Notice;
  store::Oid contract = 0;
  platform::Date date;
  // For a notice: the last safe day of receipt, one day before.
  std::optional<platform::Date> safe_receipt;
  bool missed = false;  // a notice can no longer arrive in time
  std::string address;
  std::string number;
  std::string name;  // of the contract
  std::string side;  // "D" or "K"
  std::string responsible;

  // The last day on which to act: a notice must have arrived by then.
  platform::Date ActBy() const { return safe_receipt.value_or(date); }
};

// "Kündigung", "Laufzeitende" or "Ende".
std::string Text(Deadline::Kind kind);

// Distinguishes the deadlines of a database: a contract has one notice and one end.
std::int64_t KeyOf(const Deadline& deadline);

// The deadlines from today on of the walk's current contract. A notice that was missed stays
// until the term that it would have ended is over.
std::vector<Deadline> DeadlinesOf(const workspace::RowWalk& contracts, platform::Date today);

// Whether the day is within that many weeks from today.
bool IsWithin(platform::Date day, platform::Date today, std::int32_t weeks);

// Those of all contracts, with weeks only those to be acted on within so many weeks
// from today; what was missed first, then by date, then by contract.
std::vector<Deadline> ReadDeadlines(store::RecordStore& store, platform::Date today,
                                    std::optional<std::int32_t> weeks);

// Whether this build can write calendars.
bool HasCalendars();

// Calendar files have no later day: programs that read them fail on it.
inline constexpr platform::Date kLastCalendarDay = {219512.0};  // 31.12.2500

// The database whose deadlines are published.
struct Publisher {
  std::string id;  // tells the events of several databases apart
  std::string name;
};

// The deadlines up to kLastCalendarDay as a calendar (iCalendar), an all-day event each with
// an alarm; a notice stands on its safe day. The same deadlines give the same events whenever
// they are written, so that a calendar that imports them again replaces them. Raises
// DoorError::NotAvailable where HasCalendars is false.
std::string CalendarText(const std::vector<Deadline>& deadlines, const Publisher& publisher,
                         platform::Date today);

// Writes them into a file, or to standard output for "-". Raises DoorError::BadInput
// for the database itself and for a file that is no calendar.
void WriteCalendar(const std::vector<Deadline>& deadlines, const std::string& database,
                   store::RecordStore& store, platform::Date today, const std::string& file);

}  // namespace pactora::deadlines
