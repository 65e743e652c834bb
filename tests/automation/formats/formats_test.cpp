// Numbers, JSON and tables as text, and files in the making.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <limits>
#include <sstream>
#include <string>

#include "automation/formats/JsonWriter.h"
#include "automation/formats/ScratchFile.h"
#include "automation/formats/csv.h"
#include "automation/formats/errors.h"
#include "automation/formats/json.h"
#include "automation/formats/visible.h"
#include "platform/Text.h"
#include "support/TemporaryFolder.h"
#include "support/error_of.h"

namespace pactora::formats {
namespace {

using testing::HasSubstr;

TEST(NumberText, IsTheShortestThatReadsBackWithoutExponentForEverydaySizes) {
  const std::pair<double, const char*> cases[] = {
      {0.0, "0"},
      {-0.0, "-0.0"},
      {1200.0, "1200"},
      {-12.5, "-12.5"},
      {100000.0, "100000"},
      {8.33, "8.33"},
      {1.0 / 3.0, "0.3333333333333333"},
      {0.1 + 0.2, "0.30000000000000004"},
      {1e20, "100000000000000000000"},
      {1e21, "1e+21"},
      {1e-7, "0.0000001"},
      {5e-324, "5e-324"},
      {std::numeric_limits<double>::max(), "1.7976931348623157e+308"},
  };
  for (const auto& [number, text] : cases) {
    EXPECT_EQ(NumberText(number), text);
    EXPECT_EQ(std::strtod(text, nullptr), number) << text;
  }
  EXPECT_THROW(NumberText(std::nan("")), platform::Error);
  EXPECT_THROW(NumberText(std::numeric_limits<double>::infinity()), platform::Error);
}

TEST(Json, WhatIsNoneIsRefusedNamingThePlace) {
  const std::pair<std::string, const char*> cases[] = {
      {"", "x: Zeile 1, Spalte 1: kein gültiges JSON (der Text endet zu früh)"},
      {"{\n  \"tables\": x }", "x: Zeile 2, Spalte 13: kein gültiges JSON (bei „\"tables\": x“)"},
      {"{} {}", "x: Zeile 1, Spalte 4: kein gültiges JSON (bei „{} {“)"},
      {"{\"\xFC\"", "x: Zeile 1, Spalte 3: kein gültiges JSON (kein UTF-8)"},
      {"{\"a\": [1e400]}", "x: Stelle 12: die Zahl 1e400 ist zu groß"},
      {R"({"a": [0, {"b": 1, "c": 1, "b": 2}]})", "x: a[1].b: der Schlüssel steht doppelt da"},
      {std::string(100000, '['), "zu tief geschachtelt"},
  };
  for (const auto& [text, message] : cases) {
    const auto error = support::ErrorOf([&text = text] {
      std::istringstream in(text);
      ParseJson(in, "x");
    });
    ASSERT_TRUE(error) << message;
    EXPECT_EQ(error->Number(), Number(DoorError::BadInput));
    EXPECT_THAT(error->Description(), HasSubstr(message));
  }
}

TEST(Visible, NoCharacterActsOnATerminalAndNoCellIsAFormula) {
  const struct {
    std::string text;
    const char* visible;
    const char* cell = visible;
  } cases[] = {
      {"Müller \u00A0\u061B\u200D\u2010\u2027\u202F\u2065\u206A\U0001F600",
       "Müller \u00A0\u061B\u200D\u2010\u2027\u202F\u2065\u206A\U0001F600"},
      {std::string("\0\x1B[31m\t\r\n ~\x7F", 12), R"(\u0000\u001b[31m\u0009\u000d\u000a ~\u007f)"},
      {"\xC2\x80\xC2\x9F", R"(\u0080\u009f)"},
      {"\u061C\u200E\u200F\u2028\u2029", R"(\u061c\u200e\u200f\u2028\u2029)"},
      {"\u202A\u202E\u2066\u2069", R"(\u202a\u202e\u2066\u2069)"},
      {"\x9B", R"(\x9b)"},
      {"=1+1", "=1+1", "'=1+1"},
      {"+49 170", "+49 170", "'+49 170"},
      {" @SUM(A1)", " @SUM(A1)", "' @SUM(A1)"},
      {"-2*3", "-2*3", "'-2*3"},
      {"-5,25", "-5,25"},
  };
  for (const auto& [text, visible, cell] : cases) {
    EXPECT_EQ(Visible(text), visible);
    EXPECT_EQ(PlainCell(text), cell);
    const std::string json = OneLine(text);
    EXPECT_EQ(Visible(json), json);
    EXPECT_EQ(Json::parse(json), platform::IsValidUtf8(text) ? text : "\uFFFD");
  }
}

TEST(Csv, ALineReadsBackWhateverItsCellsHold) {
  const std::vector<std::string> cells = {"a;b", "\"", " c", "d", "zwei\nZeilen", ""};
  EXPECT_EQ(ReadCsv(CsvLine(cells, ';') + "\n", ';').at(0).cells, cells);
}

TEST(ScratchFile, BecomesItsTargetUnlessThereIsOneAndTakesAwayWhatKilledProgramsLeft) {
  const support::TemporaryFolder folder;
  const std::string target = folder.File("neu.db");
  const std::string left = target + ".pactora-neu-2147483646";  // no process has that number
  const std::string at_work = target + ".pactora-neu-" + std::to_string(::getppid());
  for (const std::string& file : {left, at_work}) std::ofstream(file) << "halb";
  const auto become = [&](const char* text) {
    const ScratchFile scratch(target);
    std::ofstream(scratch.Path()) << text;
    scratch.BecomeTarget();
  };
  become("eins");
  EXPECT_FALSE(std::filesystem::exists(left));
  EXPECT_TRUE(std::filesystem::exists(at_work));
  EXPECT_THROW(become("zwei"), platform::Error);
  std::ifstream in(target);
  EXPECT_EQ(std::string(std::istreambuf_iterator<char>(in), {}), "eins");
}

}  // namespace
}  // namespace pactora::formats
