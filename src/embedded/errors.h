// Raising the embedded host's own failures.
#pragma once

#include <string>
#include <string_view>

#include "embedded/Host.h"

namespace pactora::embedded {

// The German description of the failure, without a detail.
std::string Text(HostError error);

// Raises it with source "Tessarin"; what, if any, follows the text in quotes.
[[noreturn]] void Raise(HostError error, std::string_view what = {});

}  // namespace pactora::embedded
