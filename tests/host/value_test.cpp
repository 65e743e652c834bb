#include "host/Value.h"

#include <gtest/gtest.h>

#include <limits>

#include "platform/Locale.h"
#include "support/error_of.h"

namespace pactora::host {
namespace {

constexpr double kInfinite = std::numeric_limits<double>::infinity();
constexpr double kNoNumber = std::numeric_limits<double>::quiet_NaN();

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

// What the five conversions give: whole number, number, date, Boolean, text; for an
// error its number.
std::string Conversions(const Value& value) {
  std::string all;
  const auto add = [&](const std::function<std::string()>& convert) {
    std::string text;
    const std::int32_t error = ErrorNumberOf([&] { text = convert(); });
    all += (all.empty() ? "" : " | ") + (error == 0 ? text : "!" + std::to_string(error));
  };
  const auto plain = [](double number) { return platform::FormatPlain(number, {}); };
  add([&] { return std::to_string(ToLong(value)); });
  add([&] { return plain(ToDouble(value)); });
  add([&] { return plain(ToDate(value).days); });
  add([&] { return ToBoolean(value) ? "True" : "False"; });
  add([&] { return ToText(value); });
  return all;
}

TEST(Values, BecomeOneAnother) {
  const std::pair<Value, const char*> cases[] = {
      {{}, "0 | 0 | 0 | False | "},
      {Integer(-7), "-7 | -7 | -7 | True | -7"},
      {Integer(0), "0 | 0 | 0 | False | 0"},
      {0, "0 | 0 | 0 | False | 0"},
      {45366, "45366 | 45366 | 45366 | True | 45366"},
      {2958466, "2958466 | 2958466 | !6 | True | 2958466"},
      {-657435, "-657435 | -657435 | !6 | True | -657435"},
      {INT32_MAX, "2147483647 | 2147483647 | !6 | True | 2147483647"},
      {INT32_MIN, "-2147483648 | -2147483648 | !6 | True | -2147483648"},
      {0.0, "0 | 0 | 0 | False | 0"},
      {0.1, "0 | 0,1 | 0,1 | True | 0,1"},
      // Halves become the even number.
      {0.5, "0 | 0,5 | 0,5 | True | 0,5"},
      {1.5, "2 | 1,5 | 1,5 | True | 1,5"},
      {2.5, "2 | 2,5 | 2,5 | True | 2,5"},
      {-0.5, "0 | -0,5 | -0,5 | True | -0,5"},
      {-1.5, "-2 | -1,5 | -1,5 | True | -1,5"},
      {2.5000001, "3 | 2,5000001 | 2,5000001 | True | 2,5000001"},
      {-657434.5, "-657434 | -657434,5 | -657434,5 | True | -657434,5"},
      {2958465.75, "2958466 | 2958465,75 | 2958465,75 | True | 2958465,75"},
      {2147483647.4999, "2147483647 | 2147483647,4999 | !6 | True | 2147483647,4999"},
      {-2147483648.5, "-2147483648 | -2147483648,5 | !6 | True | -2147483648,5"},
      {2147483647.5, "!6 | 2147483647,5 | !6 | True | 2147483647,5"},
      {-2147483649.0, "!6 | -2147483649 | !6 | True | -2147483649"},
      {1e15, "!6 | 1000000000000000 | !6 | True | 1000000000000000"},
      {kInfinite, "!6 | !6 | !6 | True | !6"},
      {kNoNumber, "!6 | !6 | !6 | True | !6"},
      {true, "-1 | -1 | -1 | True | True"},
      {false, "0 | 0 | 0 | False | False"},
      {Date{}, "0 | 0 | 0 | False | 30.12.1899"},
      {Date{0.375}, "0 | 0,375 | 0,375 | True | 30.12.1899 09:00:00"},
      {Date{45366.0}, "45366 | 45366 | 45366 | True | 15.03.2024"},
      {Date{45366.75}, "45367 | 45366,75 | 45366,75 | True | 15.03.2024 18:00:00"},
      {Date{-1.25}, "-1 | -1,25 | -1,25 | True | 29.12.1899 06:00:00"},
      {" 12,5 ", "12 | 12,5 | !13 | True |  12,5 "},
      {"-3", "-3 | -3 | !13 | True | -3"},
      {"0", "0 | 0 | !13 | False | 0"},
      {"-0,0", "0 | 0 | !13 | False | -0,0"},
      {"2147483648", "!6 | 2147483648 | !13 | True | 2147483648"},
      {"tRuE", "!13 | !13 | !13 | True | tRuE"},
      {"false", "!13 | !13 | !13 | False | false"},
      {"", "!13 | !13 | !13 | !13 | "},
      {"wahr", "!13 | !13 | !13 | !13 | wahr"},
      {"1.5", "!13 | !13 | !13 | !13 | 1.5"},
      {"1 000", "!13 | !13 | !13 | !13 | 1 000"},
      {"01.01.2024", "!13 | !13 | !13 | !13 | 01.01.2024"},
      {std::make_shared<Document>(), "!13 | !13 | !13 | !13 | !13"},
      {nullptr, "!13 | !13 | !13 | !13 | !13"},
      {ValueArray{1}, "!13 | !13 | !13 | !13 | !13"},
  };
  for (const auto& [value, all] : cases) EXPECT_EQ(Conversions(value), all);
}

TEST(Values, AreObjectsOrNone) {
  const Value object(std::make_shared<Document>());
  for (const Value& value : {Value(0), Value("x"), Value(ValueArray{1})}) {
    EXPECT_EQ(ErrorNumberOf([&] { ToObject(value); }), 13);
  }
  EXPECT_EQ(ToObject(Value()), nullptr);
  EXPECT_EQ(ToObject(Value(nullptr)), nullptr);
  EXPECT_EQ(ToObject(object), object.AsObject());
}

}  // namespace
}  // namespace pactora::host
