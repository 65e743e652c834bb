// What stands in a price: a product of numbers; and the host's expressions.
#include <cmath>
#include <optional>
#include <string>

#include "definitions/number_text.h"
#include "embedded/Host.h"
#include "fuzz/fuzz.h"
#include "host/HostDb.h"
#include "platform/Text.h"

namespace pactora::fuzz {

void Try(std::string_view input) {
  const std::string text(input);
  const platform::Locale german;
  if (const auto product = definitions::ProductOf(text, german)) {
    Require(!std::isnan(*product) || text.find('*') != std::string::npos, "a number is a number");
    Require(definitions::ProductOf(text + "*-1", german) == -*product || std::isnan(*product),
            "a product goes on");
    if (std::isfinite(*product))
      Require(definitions::ProductOf(platform::FormatPlain(*product, german), german) == product,
              "a product that is shown reads as itself");
  }
  static embedded::Host host(Company());
  host::HostFormulas& formulas = host.App()->CurrentDb()->Formulas();
  const auto value = [&](const std::string& formula) -> std::optional<host::Value> {
    try {
      return formulas.Compile(formula, host::kFlagsNone)->Eval(host::kFlagsNone);
    } catch (const platform::Error&) {
      return std::nullopt;
    }
  };
  Require(value(text) == value(" " + platform::UpperCase(text)), "case and blanks don't matter");
}

}  // namespace pactora::fuzz
