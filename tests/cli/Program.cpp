#include "cli/Program.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fstream>
#include <iterator>
#include <stdexcept>

namespace pactora::cli {

namespace {

// The child's end of one of its three files.
void Redirect(const std::string& path, int flags, int target) {
  const int file = ::open(path.c_str(), flags, 0600);
  if (file < 0 || ::dup2(file, target) < 0) ::_exit(126);
}

}  // namespace

std::string Contents(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(in), {});
}

void Write(const std::string& path, const std::string& text) {
  std::ofstream(path, std::ios::binary) << text;
}

Child::Child(const support::TemporaryFolder& folder, const std::vector<std::string>& arguments,
             const std::string& input, const std::string& file, const std::string& device) {
  static int children = 0;
  const std::string name = "child-" + std::to_string(++children);
  const std::string in = file.empty() ? folder.File(name + ".in") : file;
  out_ = folder.File(name + ".out");
  error_ = folder.File(name + ".err");
  if (file.empty()) Write(in, input);
  std::vector<char*> argv;
  static std::string program = PACTORA_PROGRAM;
  argv.push_back(program.data());
  for (const std::string& argument : arguments) argv.push_back(const_cast<char*>(argument.c_str()));
  argv.push_back(nullptr);
  pid_ = ::fork();
  if (pid_ < 0) throw std::runtime_error("fork");
  if (pid_ == 0) {
    Redirect(in, O_RDONLY, STDIN_FILENO);
    Redirect(device.empty() ? out_ : device, O_WRONLY | O_CREAT | O_TRUNC, STDOUT_FILENO);
    Redirect(error_, O_WRONLY | O_CREAT | O_TRUNC, STDERR_FILENO);
    ::execv(argv[0], argv.data());
    ::_exit(127);
  }
}

Child::~Child() {
  if (waited_) return;
  ::kill(pid_, SIGKILL);
  ::waitpid(pid_, nullptr, 0);
}

std::string Child::Out() const { return Contents(out_); }

void Child::Signal(int signal) const { ::kill(pid_, signal); }

Ended Child::Wait() {
  int status = 0;
  ::waitpid(pid_, &status, 0);
  waited_ = true;
  return {WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status), Contents(out_),
          Contents(error_)};
}

Ended Pactora(const support::TemporaryFolder& folder, const std::vector<std::string>& arguments,
              const std::string& input) {
  return Child(folder, arguments, input).Wait();
}

}  // namespace pactora::cli
