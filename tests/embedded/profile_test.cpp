// Users, settings, persistent variables and macros of the embedded host.

#include "embedded/Host.h"
#include "schema/names.h"
#include "support/store_kinds.h"

namespace pactora::embedded {
namespace {

store::Profile Firm() {
  store::Profile profile;
  profile.name = "FIRMA";
  profile.display_name = "Firma GmbH";
  profile.users = {"Anna", "Jürgen", "DEVELOPMENT"};
  profile.current_user = "Jürgen";
  profile.settings = {
      {store::SettingScope::PersistVar, "", "lt_Einheit",
       host::ValueArray{host::Value("Stück"), host::Value("Stunde")}, false},
      {store::SettingScope::Database, "", "Farbe", host::Value("blau"), false},
      {store::SettingScope::PersistVar, "", "fest", host::Value(4), true},
  };
  profile.macros = {{"Project/vv_Macros/vv_CreateAttribute", true, 5, "geht nicht"}};
  return profile;
}

class ProfileTest : public testing::TestWithParam<support::StoreKind> {
 protected:
  Host host_{GetParam().create(schema::ContractCatalog(false), Firm())};
  std::shared_ptr<host::HostDb> db_ = host_.App()->CurrentDb();
};

TEST_P(ProfileTest, NamesTheDatabaseAndItsUsers) {
  EXPECT_EQ(db_->Tables().Database().Name(), "FIRMA");
  EXPECT_EQ(db_->Tables().Database().DisplayName(0), "Firma GmbH");
  EXPECT_EQ(db_->Users().Count(), 3);
  EXPECT_EQ(db_->Users().Item(2).Name(), "DEVELOPMENT");
  EXPECT_EQ(db_->Users().CurrentUser().Name(), "Jürgen");
  EXPECT_THROW(db_->Users().Item(3), platform::Error);
}

TEST_P(ProfileTest, KeepsEachStoreOfSettingsApart) {
  host::HostSettings& mine = db_->Users().CurrentUser().PrivateSettings();
  mine.Add("Farbe", "rot");
  EXPECT_EQ(db_->DbSettings().Item("FARBE").Value().AsText(), "blau");
  EXPECT_EQ(mine.Item("farbe").Value().AsText(), "rot");
  EXPECT_FALSE(db_->Users().CurrentUser().PublicSettings().Exists("Farbe"));
  EXPECT_FALSE(db_->Users().Item(0).PrivateSettings().Exists("Farbe"));
  EXPECT_FALSE(host_.Table(schema::table::Adressen)->Settings().Exists("Farbe"));
  EXPECT_THROW(mine.Add("FARBE", "x"), platform::Error);
  mine.Item("Farbe").SetValue("grün");
  host_.EndUnit();
  host_.DropUnit();
  EXPECT_EQ(mine.Item("Farbe").Value().AsText(), "grün");
}

TEST_P(ProfileTest, WalksVariablesInTheirOrder) {
  host::HostPersistVars& variables = db_->Formulas().PersistVars();
  variables.Add("neu", 7);
  std::string names;
  variables.ForEach([&](host::HostPersistVar& variable) {
    names += variable.Name() + (variable.ReadOnly() ? "!" : "") + " ";
    return variable.Name() != "neu";
  });
  EXPECT_EQ(names, "lt_Einheit fest! neu ");
  ASSERT_NE(variables.Item("LT_EINHEIT"), nullptr);
  EXPECT_EQ(variables.Item("LT_EINHEIT")->Value().AsArray().at(1).AsText(), "Stunde");
  EXPECT_EQ(variables.Item("Farbe"), nullptr);
}

TEST_P(ProfileTest, RunsMacrosByNameReportingThem) {
  std::vector<std::string> calls;
  host_.SetMacroListener([&](const std::string& path, const host::ValueArray& args) {
    calls.push_back(path + ":" + host::ToText(args.at(0)));
  });
  host::HostMacroHost& macros = host_.App()->MacroHost();
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

TEST_P(ProfileTest, WithoutTheWorkflowAddOnItsTableAndFieldsAreMissing) {
  EXPECT_THROW(host_.Table(schema::table::KELDO_Vorgaenge), platform::Error);
  host::HostFields& fields = host_.Table(schema::table::MerkmalgruppeAdressen)->Fields();
  EXPECT_FALSE(fields.Exists(schema::field::KELDO_WorkflowID));
  EXPECT_THROW(fields.Item(schema::field::KELDO_WorkflowID), platform::Error);
}

INSTANTIATE_TEST_SUITE_P(Stores, ProfileTest, testing::ValuesIn(support::StoreKinds()),
                         support::StoreName);

}  // namespace
}  // namespace pactora::embedded
