#include "ui/Screen.h"

namespace pactora::ui {
namespace {

constexpr std::int32_t kButtons = 7;  // the bits that tell the buttons

}  // namespace

Answer DefaultAnswer(std::int32_t flags) {
  if ((flags & kButtons) != style::kYesNo) return Answer::Ok;
  return (flags & style::kDefaultButton2) != 0 ? Answer::No : Answer::Yes;
}

bool Offers(std::int32_t flags, Answer answer) {
  return (answer != Answer::Ok) == ((flags & kButtons) == style::kYesNo);
}

}  // namespace pactora::ui
