// The allow-list of includes between the folders of src, and the check of a
// source line against it.
#pragma once

#include <istream>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace pactora::architecture {

class Layers {
 public:
  // Reads a list in the form of layers.txt. Raises std::runtime_error, naming the
  // line, for a folder that is listed twice, that may include a folder not listed
  // above it, or that names an unknown library.
  explicit Layers(std::istream& list);

  // The listed folder that a path relative to src lies in: the longest one.
  std::optional<std::string> FolderOf(std::string_view path) const;

  // What is wrong with a line of the file of that path relative to src, or
  // nothing. A line that includes nothing is right.
  std::optional<std::string> Violation(std::string_view path, std::string_view line) const;

 private:
  struct Allowed {
    std::set<std::string> folders;
    std::vector<std::string> header_starts;  // of its libraries
  };

  void ReadFolder(const std::string& name, const std::string& rest);

  std::map<std::string, Allowed> folders_;
  std::map<std::string, std::vector<std::string>> libraries_;
};

}  // namespace pactora::architecture
