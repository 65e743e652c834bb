// A progress bar on standard error.
#pragma once

#include <chrono>
#include <cstddef>

namespace pactora::cli {

class ProgressBar {
 public:
  // Shown only when there are many and standard error is a terminal.
  explicit ProgressBar(std::size_t total);
  ~ProgressBar() { Clear(); }
  ProgressBar(const ProgressBar&) = delete;
  ProgressBar& operator=(const ProgressBar&) = delete;

  void Advance();
  // Removes the bar before a line is written to the terminal; a later Advance
  // draws it again.
  void Clear();
  // Likewise, but only where standard output is a terminal, too.
  void ClearForOutput();

 private:
  static constexpr std::size_t kMany = 20;

  std::size_t total_;
  std::size_t done_ = 0;
  bool shown_;
  bool drawn_ = false;
  std::chrono::steady_clock::time_point last_;
};

}  // namespace pactora::cli
