#include "architecture/Layers.h"

#include <algorithm>
#include <sstream>
#include <stdexcept>

namespace pactora::architecture {
namespace {

std::vector<std::string> Words(const std::string& text) {
  std::istringstream stream(text);
  std::vector<std::string> words;
  for (std::string word; stream >> word;) words.push_back(word);
  return words;
}

struct Row {
  std::string name;
  std::string rest;
};

std::vector<Row> Rows(std::istream& list) {
  std::vector<Row> rows;
  for (std::string line; std::getline(list, line);) {
    if (line.empty() || line.front() == '#') continue;
    const std::size_t colon = line.find(':');
    if (colon == std::string::npos) throw std::runtime_error("no colon: " + line);
    rows.push_back({line.substr(0, colon), line.substr(colon + 1)});
  }
  return rows;
}

bool IsStandardHeader(std::string_view header) {
  return header.find_first_not_of("abcdefghijklmnopqrstuvwxyz_0123456789") ==
         std::string_view::npos;
}

// What stands behind "#include" of a line, blanks removed.
std::optional<std::string_view> IncludeOf(std::string_view line) {
  const auto skip_blanks = [&] {
    line.remove_prefix(std::min(line.find_first_not_of(" \t"), line.size()));
  };
  constexpr std::string_view kInclude = "include";
  skip_blanks();
  if (!line.starts_with('#')) return std::nullopt;
  line.remove_prefix(1);
  skip_blanks();
  if (!line.starts_with(kInclude)) return std::nullopt;
  line.remove_prefix(kInclude.size());
  skip_blanks();
  return line;
}

}  // namespace

Layers::Layers(std::istream& list) {
  const std::vector<Row> rows = Rows(list);
  for (const auto& [name, rest] : rows) {
    if (name.front() == '@') libraries_[name.substr(1)] = Words(rest);
  }
  for (const auto& [name, rest] : rows) {
    if (name.front() != '@') ReadFolder(name, rest);
  }
}

void Layers::ReadFolder(const std::string& name, const std::string& rest) {
  if (folders_.contains(name)) throw std::runtime_error(name + " is listed twice");
  const std::size_t semicolon = rest.find(';');
  Allowed allowed{{name}, {}};
  for (const std::string& folder : Words(rest.substr(0, semicolon))) {
    if (!folders_.contains(folder)) {
      throw std::runtime_error(name + " includes " + folder + ", which isn't listed above it");
    }
    allowed.folders.insert(folder);
  }
  if (semicolon != std::string::npos) {
    for (const std::string& library : Words(rest.substr(semicolon + 1))) {
      const auto found = libraries_.find(library);
      if (found == libraries_.end()) throw std::runtime_error(name + ": no library " + library);
      allowed.header_starts.insert(allowed.header_starts.end(), found->second.begin(),
                                   found->second.end());
    }
  }
  folders_.emplace(name, std::move(allowed));
}

std::optional<std::string> Layers::FolderOf(std::string_view path) const {
  for (std::size_t slash = path.rfind('/'); slash != std::string_view::npos && slash > 0;
       slash = path.rfind('/', slash - 1)) {
    std::string folder(path.substr(0, slash));
    if (folders_.contains(folder)) return folder;
  }
  return std::nullopt;
}

std::optional<std::string> Layers::Violation(std::string_view path, std::string_view line) const {
  const auto include = IncludeOf(line);
  if (!include) return std::nullopt;
  const auto folder = FolderOf(path);
  if (!folder) return std::string(path) + " lies in no listed folder";
  const std::string what = std::string(path) + " must not have " + std::string(line);
  const char close = include->starts_with('"') ? '"' : '>';
  const std::size_t end = include->find(close, 1);
  if (end == std::string_view::npos) return what;
  const std::string_view header = include->substr(1, end - 1);
  const Allowed& allowed = folders_.at(*folder);
  if (close == '"') {
    const auto target = FolderOf(header);
    if (target && allowed.folders.contains(*target)) return std::nullopt;
    return what;
  }
  const bool is_open = IsStandardHeader(header) ||
                       std::any_of(allowed.header_starts.begin(), allowed.header_starts.end(),
                                   [&](const auto& start) { return header.starts_with(start); });
  return is_open ? std::nullopt : std::optional(what);
}

}  // namespace pactora::architecture
