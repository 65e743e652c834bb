// Settings: what is read, what is written, and what an error becomes.

#include "shell/CConfig.h"

#include "support/contract_world.h"
#include "support/fault_sweep.h"

namespace pactora::shell {
namespace {

using host::Value;
using support::ErrorOf;
using support::FailingProbe;

constexpr char kLongName[] = "Einstellung_mit_langem_Namen_A1";   // 31 characters
constexpr char kOtherName[] = "Einstellung_mit_langem_Namen_A2";  // differs in the last
constexpr char kCutName[] = "Einstellung_mit_langem_Namen_A";

// The five stores, each with its two operations.
struct Family {
  std::string name;
  std::function<std::string(CConfig&, std::string_view, std::string_view)> read;
  std::function<void(CConfig&, std::string_view, std::string_view)> write;
  bool writable;
  bool raises_when_reading;
};

class Config : public support::ContractWorldTest {
 protected:
  Config() { world.Enter(); }

  std::vector<Family> Families() {
    using Text = std::string_view;
    const auto table = world.host.Table(schema::table::Artikel);
    return {
        {"PrivateSetting", [](CConfig& c, Text k, Text d) { return c.ReadPrivateSetting(k, d); },
         [](CConfig& c, Text k, Text v) { c.WritePrivateSetting(k, v); }, true, false},
        {"PublicSetting", [](CConfig& c, Text k, Text d) { return c.ReadPublicSetting(k, d); },
         [](CConfig& c, Text k, Text v) { c.WritePublicSetting(k, v); }, true, true},
        {"DatabaseSetting", [](CConfig& c, Text k, Text d) { return c.ReadDatabaseSetting(k, d); },
         [](CConfig& c, Text k, Text v) { c.WriteDatabaseSetting(k, v); }, false, true},
        {"PersistVarSetting",
         [](CConfig& c, Text k, Text d) { return c.ReadPersistVarSetting(k, d); },
         [](CConfig& c, Text k, Text v) { c.WritePersistVarSetting(k, v); }, true, true},
        {"TableSetting",
         [table](CConfig& c, Text k, Text d) { return c.ReadTableSetting(table, k, d); },
         [table](CConfig& c, Text k, Text v) { c.WriteTableSetting(table, k, v); }, false, false},
    };
  }
  host::HostDb& Db() { return *world.module.gDb; }
};

TEST_F(Config, EachFamilyKeepsWhatItIsGivenIfItMayBeWritten) {
  CConfig config(world.module);
  for (const Family& family : Families()) {
    SCOPED_TRACE(family.name);
    const auto kept = [&](const char* text) { return family.writable ? text : ""; };
    EXPECT_EQ(family.read(config, "Schrift", ""), "");
    EXPECT_EQ(family.read(config, "Schrift", "groß"), "groß");
    EXPECT_EQ(family.read(config, "SCHRIFT", ""), kept("groß")) << "a default is stored";

    family.write(config, "Farbe", "Grün");
    family.write(config, "Farbe", "GRÜN");
    EXPECT_EQ(family.read(config, "Farbe", ""), kept("Grün")) << "no change but of case";
    family.write(config, "Farbe", "Rot");
    EXPECT_EQ(family.read(config, "Farbe", ""), kept("Rot"));

    family.write(config, kLongName, "1");
    EXPECT_EQ(family.read(config, kOtherName, ""), kept("1")) << "names are cut";
    EXPECT_EQ(family.read(config, kCutName, ""), kept("1"));
  }
  EXPECT_FALSE(Db().Formulas().PersistVars().Exists(kLongName));
}

TEST_F(Config, EachFamilyHasItsOwnStore) {
  Db().Users().CurrentUser().PrivateSettings().Add("Ort", "privat");
  Db().Users().CurrentUser().PublicSettings().Add("Ort", "öffentlich");
  Db().DbSettings().Add("Ort", "Datenbank");
  Db().Formulas().PersistVars().Add("Ort", "Variable");
  world.host.Table(schema::table::Artikel)->Settings().Add("Ort", "Tabelle");
  CConfig config(world.module);
  std::vector<std::string> found;
  for (const Family& family : Families()) found.push_back(family.read(config, "ort", "keiner"));
  EXPECT_THAT(found,
              testing::ElementsAre("privat", "öffentlich", "Datenbank", "Variable", "Tabelle"));
  EXPECT_EQ(config.ReadSetting("Ort"), "privat");
  EXPECT_FALSE(Db().Users().Item(1).PrivateSettings().Exists("Ort"));
}

TEST_F(Config, AnErrorOfTheStoreNamesTheOperationOrIsIgnored) {
  CConfig config(world.module);
  const platform::Error full(platform::ErrorNumber(0x80041024), "Kein Platz", "Platte");
  const auto outcome = [&](const std::function<std::string()>& call) {
    FailingProbe probe(world.host, 1, full);
    std::string text;
    const auto error = ErrorOf([&] { text = call(); });
    EXPECT_TRUE(!error || error->Description() == full.Description());
    return error ? platform::HexNumber(error->Number()) + " in " + error->Source() : text;
  };
  for (const Family& family : Families()) {
    const auto read = [&] { return family.read(config, "Schrift", "groß"); };
    EXPECT_EQ(outcome(read),
              family.raises_when_reading ? "80041024 in CConfig.Read" + family.name : "");
    const auto write = [&] { return family.write(config, "Schrift", "groß"), "written"; };
    EXPECT_EQ(outcome(write),
              family.writable ? "80041024 in CConfig.Write" + family.name : "written");
  }
  FailingProbe probe(world.host, 1, "Settings.Add", "", full);
  EXPECT_EQ(config.ReadPrivateSetting("Größe", "groß"), "groß") << "a default that is not stored";
  EXPECT_TRUE(probe.HasFailed());
}

TEST_F(Config, AReadOnlyVariableStays) {
  world.ChangeProfile([](store::Profile& profile) {
    profile.settings.push_back({store::SettingScope::PersistVar, "", "Fest", "alt", true});
  });
  world.Enter();
  CConfig config(world.module);
  config.WritePersistVarSetting("Fest", "neu");
  EXPECT_EQ(config.ReadPersistVarSetting("Fest"), "alt");
}

TEST_F(Config, ReadSettingTakesTheWholeNameFromTheHostsOwnApplication) {
  Db().DbSettings().Add(kLongName, "Datenbank");
  CConfig config(world.module);
  world.module.gHostApp.reset();
  EXPECT_EQ(config.ReadSetting(kLongName, "keiner"), "Datenbank");
  EXPECT_EQ(config.ReadSetting(kCutName, "keiner"), "keiner");
  Db().Users().CurrentUser().PrivateSettings().Add(kLongName, "privat");
  EXPECT_EQ(config.ReadSetting(kLongName, "keiner"), "privat");
  EXPECT_FALSE(Db().DbSettings().Exists(kCutName)) << "nothing is stored";
  FailingProbe probe(world.host, 1, platform::Error(5, "x", "Platte"));
  EXPECT_EQ(ErrorOf([&] { config.ReadSetting(kLongName); })->Source(), "Platte");
}

TEST_F(Config, BooleansAreMinusOneAndTheWordsForTrue) {
  CConfig config(world.module);
  for (const Value& value :
       std::vector<Value>{"-1", "T", "TRUE", "Wahr", "w", true, -1, "-1.0", -1.0, " -1 und mehr"}) {
    EXPECT_TRUE(config.CBoolean(value)) << host::ToText(value);
  }
  for (const Value& value :
       std::vector<Value>{"1", "", "0", false, Value(), 1, "ja", " true", "wahrlich", "-10"}) {
    EXPECT_FALSE(config.CBoolean(value)) << host::ToText(value);
  }
}

}  // namespace
}  // namespace pactora::shell
