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

Layers ListOfTheProject() {
  std::ifstream list(PACTORA_LAYERS);
  return Layers(list);
}

bool IsSource(const fs::path& path) {
  static const std::set<std::string> kEndings = {".h", ".hpp", ".cpp", ".cc", ".inc"};
  return kEndings.contains(path.extension().string());
}

TEST(Architecture, EveryIncludeOfTheSourcesPointsDown) {
  const Layers layers = ListOfTheProject();
  std::vector<std::string> violations;
  std::size_t files = 0;
  for (const auto& entry : fs::recursive_directory_iterator(PACTORA_SOURCES)) {
    if (!entry.is_regular_file() || !IsSource(entry.path())) continue;
    ++files;
    const std::string path = fs::relative(entry.path(), PACTORA_SOURCES).generic_string();
    if (!layers.FolderOf(path)) violations.push_back(path + " lies in no listed folder");
    std::ifstream source(entry.path());
    for (std::string line; std::getline(source, line);) {
      if (const auto violation = layers.Violation(path, line)) violations.push_back(*violation);
    }
  }
  EXPECT_THAT(violations, ::testing::IsEmpty());
  EXPECT_GT(files, 50U) << "the sources were not found";
}

struct Line {
  const char* path;
  const char* line;
};

TEST(Architecture, LinesThatBreakTheRulesAreFound) {
  const Layers layers = ListOfTheProject();
  const Line wrong[] = {
      {"platform/Text.h", "#include \"schema/Catalog.h\""},          // upwards
      {"store/rows.cpp", "#include \"store/sqlite/Connection.h\""},  // into its own subfolder
      {"shell/Module.h", "#include \"shell/entry/CVV.h\""},
      {"api/modAPI.cpp", "#include \"definitions/vv_CPosition.h\""},  // sideways
      {"contract/money.h", "  #  include <QtWidgets/QWidget>"},
      {"embedded/Host.cpp", "#include <sqlite3.h>"},
      {"embedded/Host.cpp", "#include <SQLiteCpp/SQLiteCpp.h>"},
      {"store/memory/MemoryStore.cpp", "#include <nlohmann/json.hpp>"},
      {"host/Value.cpp", "#include <fmt/format.h>"},
      {"automation/formats/json.cpp", "#include <CLI/CLI.hpp>"},
      {"shell/CConfig.cpp", "#include <libical/ical.h>"},
      {"ui/Form.cpp", "#include <unistd.h>"},
      {"desktop/Window.cpp", "#include <sqlite3.h>"},
      {"host/Value.cpp", "#include \"Value.h\""},            // not by its folder
      {"host/Value.cpp", "#include \"nlohmann/json.hpp\""},  // in the wrong quotes
      {"extras/Anything.cpp", "#include \"host/Value.h\""},  // a folder nobody listed
      {"host/Value.cpp", "#include \"extras/Anything.h\""},
      {"host/Value.cpp", "#include MACRO"},
  };
  for (const auto& [path, line] : wrong) {
    EXPECT_TRUE(layers.Violation(path, line)) << path << ": " << line;
  }
}

TEST(Architecture, LinesThatKeepTheRulesAreLeftAlone) {
  const Layers layers = ListOfTheProject();
  const Line right[] = {
      {"host/Value.cpp", "#include \"host/Value.h\""},
      {"host/Value.cpp", "#include <string_view>"},
      {"host/Value.cpp", "// see #include \"desktop/Window.h\""},
      {"host/Value.cpp", "const char* text = \"#include <sqlite3.h>\";"},
      {"store/sqlite/Connection.cpp", "#include <sqlite3.h>"},
      {"store/sqlite/Connection.cpp", "#include \"store/rows.h\""},
      {"shell/entry/CVV.cpp", "#include \"newcontract/frmNewContract.h\""},
      {"newcontract/frmNewContract.cpp", "#include \"definitions/frmVV.h\"  // details"},
      {"desktop/Window.cpp", "#include <QtWidgets/QWidget>"},
      {"automation/dataset/sample/sample.cpp", "#include <fmt/format.h>"},  // belongs to dataset
  };
  for (const auto& [path, line] : right) {
    EXPECT_EQ(layers.Violation(path, line), std::nullopt) << path << ": " << line;
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
