#include "cli/ProgressBar.h"

#include <fmt/format.h>

#include <cstdio>

#include "automation/formats/files.h"

namespace pactora::cli {

ProgressBar::ProgressBar(std::size_t total)
    : total_(total), shown_(total >= kMany && formats::IsTerminal(stderr)) {}

void ProgressBar::Advance() {
  ++done_;
  const auto now = std::chrono::steady_clock::now();
  if (!shown_ || now - last_ < std::chrono::milliseconds(100)) return;
  constexpr std::size_t kWidth = 40;
  const std::size_t filled = done_ * kWidth / total_;
  std::fputs(fmt::format("\r[{:#<{}}{:.<{}}] {}/{}", "", filled, "", kWidth - filled, done_, total_)
                 .c_str(),
             stderr);
  std::fflush(stderr);
  drawn_ = true;
  last_ = now;
}

void ProgressBar::ClearForOutput() {
  if (drawn_ && formats::IsTerminal(stdout)) Clear();
}

void ProgressBar::Clear() {
  if (!drawn_) return;
  std::fputs("\r\x1b[K", stderr);
  drawn_ = false;
}

}  // namespace pactora::cli
