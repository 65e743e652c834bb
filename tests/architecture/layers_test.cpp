#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>
#include <stdexcept>

#include "architecture/Layers.h"

namespace pactora::architecture {
namespace {

namespace fs = std::filesystem;

TEST(Architecture, EveryIncludeOfTheSourcesPointsDown) {
  const std::set<std::string> endings = {".h", ".hpp", ".cpp", ".cc", ".inc"};
  std::ifstream list(PACTORA_LAYERS);
  const Layers layers(list);
  std::vector<std::string> violations;
  std::size_t files = 0;
  for (const auto& entry : fs::recursive_directory_iterator(PACTORA_SOURCES)) {
    if (!entry.is_regular_file() || !endings.contains(entry.path().extension().string())) continue;
    ++files;
    const std::string path = fs::relative(entry.path(), PACTORA_SOURCES).generic_string();
    if (!layers.FolderOf(path)) violations.push_back(path + " lies in no listed folder");
    std::ifstream source(entry.path());
    for (std::string line; std::getline(source, line);) {
      if (const auto violation = layers.Violation(path, line)) violations.push_back(*violation);
    }
  }
  EXPECT_THAT(violations, testing::IsEmpty());
  EXPECT_GT(files, 50U) << "the sources were not found";
}

TEST(Architecture, ALineIsRefusedOnlyWhereItBreaksTheRules) {
  std::istringstream list(
      "# a comment\nbase:\nbase/files: base; posix json\ntop: base base/files\n"
      "@posix: unistd.h sys/\n@json: nlohmann/\n");
  const Layers layers(list);
  const struct {
    const char* path;
    const char* line;
    bool refused;
  } cases[] = {
      {"base/a.h", R"(#include "top/b.h")", true},         // upwards
      {"base/a.h", R"(#include "base/files/b.h")", true},  // into its own subfolder
      {"base/a.h", R"(  #  include <QWidget>)", true},
      {"base/a.h", R"(#include <unistd.h>)", true},
      {"top/a.h", R"(#include <nlohmann/json.hpp>)", true},  // the library of a folder below
      {"base/a.h", R"(#include "a.h")", true},               // not by its folder
      {"base/files/a.h", R"(#include "nlohmann/json.hpp")", true},
      {"extras/a.h", R"(#include "base/a.h")", true},
      {"base/a.h", R"(#include "extras/a.h")", true},
      {"base/a.h", R"(#include MACRO)", true},
      {"base/a.h", R"(#include "base/b.h"  // details)", false},
      {"base/a.h", R"(#include <string_view>)", false},
      {"base/a.h", R"(// see #include "top/b.h")", false},
      {"base/a.h", R"(const char* text = "#include <unistd.h>";)", false},
      {"base/files/a.h", R"(#include <sys/stat.h>)", false},
      {"base/files/deep/a.h", R"(#include <nlohmann/json.hpp>)", false},
      {"top/a.h", R"(#include "base/files/b.h")", false},
  };
  for (const auto& test : cases) {
    EXPECT_EQ(layers.Violation(test.path, test.line).has_value(), test.refused)
        << test.path << ": " << test.line;
  }
}

TEST(Architecture, AListThatAllowsACircleIsRefused) {
  for (const char* text : {"a: b\nb: a\n", "a:\na:\n", "a: ; nolibrary\n", "a\n"}) {
    std::istringstream list(text);
    EXPECT_THROW(Layers{list}, std::runtime_error) << text;
  }
}

}  // namespace
}  // namespace pactora::architecture
