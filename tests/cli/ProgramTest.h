// What tests of the program start from.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "cli/Program.h"
#include "support/TemporaryFolder.h"
#include "support/company_text.h"

namespace pactora::cli {

// Each test has a folder with a copy of one database in it.
class ProgramTest : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    company_folder_ = new support::TemporaryFolder;
    const Ended made = Pactora(*company_folder_, {"import", company_folder_->File("firma.db"), "-"},
                               support::kCompany);
    ASSERT_EQ(made.status, 0) << made.error;
  }
  static void TearDownTestSuite() { delete company_folder_; }

  void SetUp() override { std::filesystem::copy_file(company_folder_->File("firma.db"), db); }

  Ended Run(const std::vector<std::string>& arguments, const std::string& input = {}) {
    return Pactora(folder, arguments, input);
  }
  std::string File(const std::string& name, const std::string& text) {
    Write(folder.File(name), text);
    return folder.File(name);
  }
  nlohmann::json List(const std::string& what) {
    const Ended listed = Run({"list", db, what, "--json"});
    EXPECT_EQ(listed.status, 0) << listed.error;
    return nlohmann::json::parse(listed.out);
  }

  support::TemporaryFolder folder;
  std::string db = folder.File("firma.db");

 private:
  static inline support::TemporaryFolder* company_folder_ = nullptr;
};

}  // namespace pactora::cli
