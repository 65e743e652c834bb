// Macros of the embedded host.

#include <gtest/gtest.h>

#include "embedded/Host.h"
#include "schema/Catalog.h"
#include "store/memory/MemoryStore.h"

namespace pactora::embedded {
namespace {

TEST(Macros, RunByTheirWholeNameAndAreReported) {
  store::Profile profile;
  profile.macros = {{"Project/vv_Macros/vv_CreateAttribute", true, 5, "geht nicht"}};
  Host host(store::CreateMemoryStore(schema::ContractCatalog(false), profile));
  std::vector<std::string> calls;
  host.SetMacroListener([&](const std::string& path, const host::ValueArray& args) {
    calls.push_back(path + ":" + host::ToText(args.at(0)));
  });
  host::HostMacroHost& macros = host.App()->MacroHost();
  EXPECT_EQ(macros.Projects("Proj"), nullptr);
  EXPECT_EQ(macros.Projects("Project")->ProjectItems("vv"), nullptr);
  const auto items = macros.Projects("project")->ProjectItems("VV_MACROS");
  EXPECT_EQ(items->Procedures("vv_Create"), nullptr);
  host::ValueArray args = {host::Value("G")};
  try {
    items->Procedures("vv_CreateAttribute")->Run(args);
    FAIL() << "the macro is listed as failing";
  } catch (const platform::Error& error) {
    EXPECT_EQ(error.Number(), 5);
    EXPECT_EQ(error.Description(), "geht nicht");
  }
  EXPECT_EQ(calls, std::vector<std::string>{"Project/vv_Macros/vv_CreateAttribute:G"});
}

}  // namespace
}  // namespace pactora::embedded
