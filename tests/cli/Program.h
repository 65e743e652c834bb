// The program as its users meet it: a child process with its output and status.
#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

#include "support/TemporaryFolder.h"

namespace pactora::cli {

struct Ended {
  int status = -1;  // exit status; minus the signal's number when one killed it
  std::string out;
  std::string error;
};

// A child that runs; waited for at the latest when the object goes.
class Child {
 public:
  // Output goes into files of the folder, standard output to the device where one is
  // named. Reads the input, or the file where one is named.
  Child(const support::TemporaryFolder& folder, const std::vector<std::string>& arguments,
        const std::string& input = {}, const std::string& file = {},
        const std::string& device = {});
  ~Child();
  Child(const Child&) = delete;
  Child& operator=(const Child&) = delete;

  // What it has written so far.
  std::string Out() const;
  void Signal(int signal) const;
  Ended Wait();

 private:
  pid_t pid_;
  bool waited_ = false;
  std::string out_;
  std::string error_;
};

// Runs pactora with these arguments to its end.
Ended Pactora(const support::TemporaryFolder& folder, const std::vector<std::string>& arguments,
              const std::string& input = {});

std::string Contents(const std::string& path);
void Write(const std::string& path, const std::string& text);

}  // namespace pactora::cli
