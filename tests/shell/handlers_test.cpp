// The reporter and the forms of handlers.

#include "shell/handlers.h"

#include "shell/leading_number.h"
#include "support/contract_world.h"

namespace pactora::shell {
namespace {

using platform::Error;
using support::ErrorOf;

class Handlers : public support::ContractWorldTest {
 protected:
  Handlers() { world.Enter(); }

  static Error Missing() {
    return Error(platform::ErrorNumber(0x80040002), "Mandant X fehlt in Mandantentabelle!", "abc");
  }
};

TEST_F(Handlers, TheReporterShowsNumberSourceAndTheHostsText) {
  struct Case {
    std::int32_t number;
    std::string hex;
    bool caught = false;  // not handed in: it is the one being handled
  };
  for (const Case& row : {Case{platform::ErrorNumber(0x80040002), "80040002"}, Case{5, "5", true},
                          Case{-2147221502, "80040002"}, Case{0, "0"}, Case{255, "FF"}}) {
    world.screen.ExpectMessage(
        {"Fehler &H" + row.hex + " in abc\r\n" + embedded::CreateErrorTexts()->Text(row.number), 48,
         "Fehler in CVV.NewContract"});
    std::optional<Error> error = Error(row.number, "egal", "abc");
    try {
      throw Error(*error);
    } catch (...) {
      if (row.caught) error.reset();
      world.module.gAddonError->ShowErrText("CVV.NewContract", error);
    }
  }
}

TEST_F(Handlers, RaisingAgainKeepsNumberAndDescriptionAndNamesTheProcedure) {
  const auto raised = [](const std::function<int()>& body) {
    const auto error =
        ErrorOf([&] { RaisingAgain(module_name::modAPI, "InitTables", body); }).value();
    return platform::HexNumber(error.Number()) + " " + error.Description() + " " + error.Source();
  };
  EXPECT_EQ(raised([]() -> int { throw Missing(); }),
            "80040002 Mandant X fehlt in Mandantentabelle! modAPI.InitTables");
  EXPECT_EQ(raised([]() -> int { throw std::bad_alloc(); }),
            "33 Interner Fehler modAPI.InitTables");
  EXPECT_EQ(RaisingAgain(module_name::modAPI, "x", [] { return 7; }), 7);
}

TEST_F(Handlers, AnErrorInAHandlerIsNotCaught) {
  world.module.gAddonError.reset();
  EXPECT_EQ(support::ErrorNumberOf([&] {
              WithReporter(world.module, module_name::CVV, "NewContract", [] { throw Missing(); });
            }),
            91);
}

TEST(LeadingNumbers, AreReadUpToWhatIsNone) {
  struct Case {
    std::string text;
    double number;
  };
  const std::vector<Case> cases = {
      {"", 0},        {"00000009", 9}, {"12x7", 12},     {" \t-3 Wochen", -3}, {"+4", 4},
      {"1.5.2", 1.5}, {".5", 0.5},     {"-.5", -0.5},    {"1,5", 1},           {"abc", 0},
      {"-", 0},       {"inf", 0},      {"nan", 0},       {"1e2", 100},         {"--1", 0},
      {"-1", -1},     {"-1x", -1},     {"-infinity", 0}, {"0x10", 0},
  };
  for (const Case& row : cases) EXPECT_EQ(LeadingNumber(row.text), row.number) << row.text;
}

}  // namespace
}  // namespace pactora::shell
