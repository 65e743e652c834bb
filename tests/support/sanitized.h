// Whether the program runs under the address sanitizer, about ten times slower:
// sweeps take fewer of their points then, all of which run without it.
#pragma once

namespace pactora::support {

#if defined(__SANITIZE_ADDRESS__)
inline constexpr bool kSanitized = true;
#elif defined(__has_feature)
inline constexpr bool kSanitized = __has_feature(address_sanitizer);
#else
inline constexpr bool kSanitized = false;
#endif

}  // namespace pactora::support
