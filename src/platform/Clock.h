// Where the program takes today from.
#pragma once

#include "platform/Date.h"

namespace pactora::platform {

class Clock {
 public:
  virtual ~Clock() = default;
  // The current day in local time, without a time of day.
  virtual Date Today() const = 0;
  // The same with the time of day, as far as the clock knows it.
  virtual Date Now() const { return Today(); }
};

// The machine's own calendar.
class SystemClock final : public Clock {
 public:
  Date Today() const override;
  Date Now() const override;
};

// A day that stays what it was set to: rehearsals and tests.
class FixedClock final : public Clock {
 public:
  explicit FixedClock(Date today) : today_(today) {}
  Date Today() const override { return today_; }
  void Set(Date today) { today_ = today; }

 private:
  Date today_;
};

}  // namespace pactora::platform
