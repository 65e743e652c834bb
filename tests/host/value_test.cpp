#include "host/Value.h"

#include <gtest/gtest.h>

#include <functional>
#include <limits>

#include "support/error_of.h"

namespace pactora::host {
namespace {

constexpr std::int32_t kOverflow = 6;
constexpr std::int32_t kTypeMismatch = 13;

using support::ErrorNumberOf;

std::int16_t Integer(int number) { return static_cast<std::int16_t>(number); }

TEST(Values, AreEqualInKindAndContent) {
  const auto object = std::make_shared<Document>();
  const std::vector<std::function<Value()>> makers = {
      [] { return Value(); },
      [] { return Value(Integer(1)); },
      [] { return Value(1); },
      [] { return Value(1.0); },
      [] { return Value(Date{1.0}); },
      [] { return Value(true); },
      [] { return Value(false); },
      [] { return Value("1"); },
      [] { return Value(""); },
      [] { return Value(nullptr); },
      [&] { return Value(object); },
      [] { return Value(std::make_shared<Document>()); },
      [] { return Value(ValueArray{}); },
      [] {
        return Value(ValueArray{"a", ValueArray{1, 2}});
      },
      [] {
        return Value(ValueArray{"a", ValueArray{1, 3}});
      },
      [] { return Value(ValueArray{"a"}); },
  };
  for (std::size_t a = 0; a < makers.size(); ++a) {
    for (std::size_t b = 0; b < makers.size(); ++b) {
      const bool fresh_objects = a == 11 && b == 11;  // two documents are never one
      EXPECT_EQ(makers[a]() == makers[b](), a == b && !fresh_objects) << a << " " << b;
    }
  }
}

TEST(Values, BecomeWholeNumbersWithHalvesToTheEvenOne) {
  struct {
    const char* name;
    Value value;
    std::int32_t number;
  } const rows[] = {
      {"empty", Value(), 0},
      {"integer", Integer(-7), -7},
      {"long", 2147483647, 2147483647},
      {"half down", 0.5, 0},
      {"half up", 1.5, 2},
      {"half down again", 2.5, 2},
      {"negative half", -0.5, 0},
      {"negative half up", -1.5, -2},
      {"above half", 2.5000001, 3},
      {"true", true, -1},
      {"false", false, 0},
      {"date", Date{45366.75}, 45367},
      {"text", " 12,5 ", 12},
      {"signed text", "-3", -3},
      {"just in range", 2147483647.4999, 2147483647},
      {"just in range below", -2147483648.5, INT32_MIN},
  };
  for (const auto& [name, value, number] : rows) EXPECT_EQ(ToLong(value), number) << name;
}

TEST(Values, BecomeFloatingPointNumbers) {
  EXPECT_EQ(ToDouble(Value()), 0.0);
  EXPECT_EQ(ToDouble(Integer(3)), 3.0);
  EXPECT_EQ(ToDouble(-4), -4.0);
  EXPECT_EQ(ToDouble(1.25), 1.25);
  EXPECT_EQ(ToDouble(true), -1.0);
  EXPECT_EQ(ToDouble(Date{0.375}), 0.375);
  EXPECT_EQ(ToDouble("1200,75"), 1200.75);
}

TEST(Values, BecomeDatesByCountingDays) {
  EXPECT_EQ(ToDate(Value()), Date{0.0});
  EXPECT_EQ(ToDate(Integer(0)), Date{0.0});
  EXPECT_EQ(ToDate(45366), Date{45366.0});
  EXPECT_EQ(ToDate(2958465.0), platform::kNoInvoiceDate);
  EXPECT_EQ(ToDate(2958465.75), Date{2958465.75});
  EXPECT_EQ(ToDate(-657434.5), Date{-657434.5});
  EXPECT_EQ(ToDate(Date{1.5}), Date{1.5});
}

TEST(Values, BecomeBooleans) {
  for (const Value& value : {Value(true), Value("True"), Value("tRuE"), Value(-1), Value(0.1),
                             Value("2"), Value(Date{1.0}), Value(Integer(5))}) {
    EXPECT_TRUE(ToBoolean(value)) << ToText(value);
  }
  for (const Value& value : {Value(), Value(false), Value("false"), Value(0), Value(0.0),
                             Value("0"), Value("-0,0"), Value(Date{})}) {
    EXPECT_FALSE(ToBoolean(value)) << ToText(value);
  }
}

TEST(Values, BecomeTexts) {
  struct {
    Value value;
    std::string_view text;
  } const rows[] = {
      {Value(), ""},
      {Integer(-5), "-5"},
      {123456, "123456"},
      {INT32_MIN, "-2147483648"},
      {12.5, "12,5"},
      {0.1, "0,1"},
      {1e15, "1000000000000000"},
      {true, "True"},
      {false, "False"},
      {"äöü", "äöü"},
      {Date{45366.0}, "15.03.2024"},
      {Date{45366.375}, "15.03.2024 09:00:00"},
      {Date{0.0}, "30.12.1899"},
      {Date{-1.25}, "29.12.1899 06:00:00"},
  };
  for (const auto& [value, text] : rows) EXPECT_EQ(ToText(value), text);
}

TEST(Values, WhatHasNoSuchFormIsATypeMismatch) {
  const Value object(std::make_shared<Document>());
  const Value null(nullptr);
  const Value array(ValueArray{1});
  for (const Value& value : {object, null, array}) {
    EXPECT_EQ(ErrorNumberOf([&] { ToLong(value); }), kTypeMismatch);
    EXPECT_EQ(ErrorNumberOf([&] { ToDouble(value); }), kTypeMismatch);
    EXPECT_EQ(ErrorNumberOf([&] { ToDate(value); }), kTypeMismatch);
    EXPECT_EQ(ErrorNumberOf([&] { ToBoolean(value); }), kTypeMismatch);
    EXPECT_EQ(ErrorNumberOf([&] { ToText(value); }), kTypeMismatch);
  }
  for (const char* text : {"", "abc", "wahr", "1.5", "1 000", "01.01.2024"}) {
    EXPECT_EQ(ErrorNumberOf([&] { ToLong(text); }), kTypeMismatch) << text;
    EXPECT_EQ(ErrorNumberOf([&] { ToDouble(text); }), kTypeMismatch) << text;
    EXPECT_EQ(ErrorNumberOf([&] { ToBoolean(text); }), kTypeMismatch) << text;
  }
  EXPECT_EQ(ErrorNumberOf([] { ToDate("15.03.2024"); }), kTypeMismatch);
  EXPECT_EQ(ErrorNumberOf([] { ToDate("0"); }), kTypeMismatch);
  for (const Value& value : {Value(0), Value("x"), array}) {
    EXPECT_EQ(ErrorNumberOf([&] { ToObject(value); }), kTypeMismatch);
  }
  EXPECT_EQ(ToObject(Value()), nullptr);
  EXPECT_EQ(ToObject(null), nullptr);
  EXPECT_EQ(ToObject(object), object.AsObject());
}

TEST(Values, WhatIsOutOfRangeIsAnOverflow) {
  for (const double number :
       {2147483647.5, -2147483649.0, 1e300, std::numeric_limits<double>::infinity(),
        std::numeric_limits<double>::quiet_NaN()}) {
    EXPECT_EQ(ErrorNumberOf([&] { ToLong(number); }), kOverflow) << number;
    EXPECT_EQ(ErrorNumberOf([&] { ToDate(number); }), kOverflow) << number;
  }
  EXPECT_EQ(ErrorNumberOf([] { ToLong("2147483648"); }), kOverflow);
  EXPECT_EQ(ErrorNumberOf([] { ToDate(2958466); }), kOverflow);
  EXPECT_EQ(ErrorNumberOf([] { ToDate(-657435); }), kOverflow);
  EXPECT_EQ(ErrorNumberOf([] { ToText(std::numeric_limits<double>::infinity()); }), kOverflow);
}

}  // namespace
}  // namespace pactora::host
