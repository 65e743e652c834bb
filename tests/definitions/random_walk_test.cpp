// Thousands of things that a person could do in the dialog, at random but the
// same each time: it never fails inside, never shows a state that its rules
// forbid, and what is saved shows again when it is opened.

#include <random>
#include <set>

#include "definition_world.h"
#include "definitions/number_text.h"
#include "support/sanitized.h"

namespace pactora::definitions {
namespace {

// A person with random hands, and the screen that the dialogs come up on.
class Walker final : public ui::Screen {
 public:
  explicit Walker(unsigned seed) : random_(seed) {}

  int Below(int end) { return static_cast<int>(random_() % static_cast<unsigned>(end)); }
  bool OneIn(int n) { return Below(n) == 0; }
  std::string OneOf(const std::vector<std::string>& texts) {
    return texts[static_cast<std::size_t>(Below(static_cast<int>(texts.size())))];
  }

  ui::Answer ShowMessage(const ui::Message& message) override {
    // Errors that a person can cause: numbers that are none or too large, nothing
    // selected, texts longer than their fields. "Interner Fehler" is not among them.
    static const std::set<std::string> known = {"6", "9", "B", "D", "5B", "17C", "8004102A"};
    if (message.title.starts_with("Fehler in ")) {
      const std::string number = message.text.substr(9, message.text.find(' ', 9) - 9);
      if (!known.contains(number)) errors.insert(message.title + ": " + message.text);
    }
    return message.style == 292 ? (OneIn(2) ? ui::Answer::Yes : ui::Answer::No) : ui::Answer::Ok;
  }
  void ShowModal(ui::Form& form) override {
    form.BeginModal();
    ui::Person person(form);
    for (int i = Below(form.ClassName() == "frmFEditDefPositions" ? 8 : 40); i > 0; --i) {
      if (form.Visible()) Act(form, person);
      if (after_action) after_action(form);
    }
    const char* way_out = form.ClassName() == "frmFEditDefPositions" ? "cmdOk" : "cmdSave";
    if (form.Visible()) person.Click(*form.Find(way_out));
    if (form.Visible()) person.Close();
  }
  void ProcessPendingMessages() override {}

  std::function<void(ui::Form& form)> after_action;
  std::set<std::string> errors;

 private:
  void Act(ui::Form& form, ui::Person& person) {
    std::vector<ui::Control*> reachable;
    for (ui::Control* control : form.Controls()) {
      if (control->TakesFocus() && control->Reach() == ui::Obstacle::None) {
        reachable.push_back(control);
      }
    }
    ui::Control& control =
        *reachable[static_cast<std::size_t>(Below(static_cast<int>(reachable.size())))];
    switch (control.Kind()) {
      case ui::ControlKind::TextBox:
        if (OneIn(3)) {
          person.Paste(control, OneOf({"", "0", "12", "24", "7", "018", "x", "99999999999",
                                       "-3,456", std::string(300, 'n')}));
        } else {
          person.Type(control, OneOf({"1", "24", "6", "0", ",5", "2*3", "\b", "a"}));
        }
        break;
      case ui::ControlKind::ComboBox: {
        const auto& box = dynamic_cast<const ui::ComboBox&>(control);
        if (!box.ListOnly() && OneIn(2)) {
          person.Type(control, OneOf({"neu", "\b"}));
        } else if (box.Count() > 0) {
          person.Choose(control, Below(box.Count()));
        }
        break;
      }
      case ui::ControlKind::ListView: {
        const std::int32_t rows = dynamic_cast<const ui::ListView&>(control).RowCount();
        if (rows > 0) person.Choose(control, Below(rows));
        break;
      }
      case ui::ControlKind::DTPicker:
        person.PickDate(control, support::Day(1 + Below(28), 1 + Below(12), 2000 + Below(50)));
        break;
      default:
        if (control.Name() != "cmdCancel" || OneIn(10)) person.Click(control);
        break;
    }
  }

  std::mt19937 random_;
};

class WalkTest : public DefinitionTest {
 protected:
  using Shown = std::map<std::string, std::string>;

  WalkTest() {
    for (const char* id : {"B1", "B2", "B3"}) {
      world.Add(table::Artikel,
                {{field::Id, id},
                 {field::Bezeichnung, id},
                 {field::Nettopreis, 99.99},
                 {field::Gruppierung, id == std::string("B2") ? "G" : ""}},
                world.article_group);
    }
    world.host.EndUnit();
  }

  static bool On(const DialogUser& user, const char* name) {
    return user.Get<ui::OptionButton>(name).Value();
  }

  static std::string ArtIn(const DialogUser& user) {
    if (On(user, "optUnbefristet")) return "unbefristet";
    return user.Checked("chkVerlaengerbar") ? "verlängerbar" : "einmalig";
  }

  // The states that the rules allow.
  static void ExpectSound(ui::Form& form) {
    if (form.ClassName() != "frmFEditDefinitions") return;
    const DialogUser user(form);
    const bool claim = On(user, "optDebitor");
    const bool limited = On(user, "optBefristet");
    const bool renews = limited && user.Checked("chkVerlaengerbar");
    EXPECT_NE(claim, On(user, "optKreditor"));
    EXPECT_NE(limited, On(user, "optUnbefristet"));
    EXPECT_EQ(user.Get<ui::Frame>("fraPositionen").Behind(), !claim);
    EXPECT_EQ(user.Get<ui::Frame>("fraPositionenK").Behind(), claim);
    EXPECT_EQ(user["chkNoBooking"].Enabled(), claim);
    EXPECT_EQ(user["txtDauer"].Enabled(), limited);
    EXPECT_EQ(user["chkVerlaengerbar"].Enabled(), limited);
    for (const char* name : {"fraKuendFrist", "cboKuendFrist", "cboKuendEinh"}) {
      EXPECT_EQ(user[name].Enabled(), renews || !limited) << name;
    }
    for (const char* name : {"fraVerlaengerung", "txtDauer2", "cboZahlungsperiode2",
                             "cboKuendFrist2", "cboKuendEinh2"}) {
      EXPECT_EQ(user[name].Enabled(), renews) << name;
    }
    for (const char* name : {"fraWF", "lblWorkflow", "cboWorkflow"}) {
      EXPECT_EQ(user[name].Enabled(), claim && renews) << name;
    }
    EXPECT_TRUE((claim && renews) || user.Text("cboWorkflow") == "<kein Workflow>");
    EXPECT_TRUE(limited || user.Text("txtDauer") + user.Text("txtDauer2") == "00");
    EXPECT_FALSE(user["cboKuenfristBezug"].Enabled());
    for (const std::string name : {"Requi", "Put"}) {
      EXPECT_NE(user["cbo" + name + "Value"].Visible(), user["DTP" + name + "Value"].Visible());
      EXPECT_NE(user.Text("cbo" + name + "Group"), "");
    }
    std::set<std::string> articles;
    const auto& list = user.Get<ui::ListView>("lvwPositionen");
    for (std::int32_t row = 1; row <= list.RowCount(); ++row) {
      EXPECT_TRUE(articles.insert(list.Text(row, 11)).second);
    }
  }

  // What the dialog holds, as far as it is saved and shown again.
  Shown ShownIn(ui::Form& form) {
    const DialogUser user(form);
    Shown shown;
    for (const char* name : {"txtBezeichnung", "txtDauer", "cboZahlungsperiode", "cboKuendFrist",
                             "cboKuendEinh", "txtDauer2", "cboZahlungsperiode2", "cboKuendFrist2",
                             "cboKuendEinh2", "cboRechnungWann", "cboWorkflow"}) {
      shown[name] = user.Text(name);
    }
    shown["Typ"] = On(user, "optDebitor") ? "D" : "K";
    shown["NoBooking"] = user.Checked("chkNoBooking") ? "1" : "0";
    shown["Art"] = ArtIn(user);
    for (const std::string name : {"Requi", "Put"}) {
      shown[name + "Group"] = user.Text("cbo" + name + "Group");
      shown[name + "Attribute"] = user.Text("cbo" + name + "Attribute");
      // The picker starts with today. A group without attributes leaves the picker
      // or the value box of the attribute before standing.
      const bool kept =
          !shown[name + "Attribute"].empty() && !user["DTP" + name + "Value"].Visible();
      shown[name + "Value"] = kept ? user.Text("cbo" + name + "Value") : "";
    }
    const auto& list = user.Get<ui::ListView>("lvwPositionen");
    for (std::int32_t row = 1; row <= list.RowCount() && shown["Typ"] == "D"; ++row) {
      for (std::int32_t column = 1; column <= 22; ++column) {
        shown["Position " + list.Text(row, 11) + " " + std::to_string(column)] =
            Comparable(list.Text(row, column));
      }
    }
    return shown;
  }
  // The stored net sum and the name of the kind are those of the dialog.
  void ExpectStored(ui::Form& form) {
    const DialogUser user(form);
    const Row type = Types().back();
    double net_sum = 0.0;
    const auto& list = user.Get<ui::ListView>("lvwPositionen");
    for (std::int32_t row = 1; row <= list.RowCount() && On(user, "optDebitor"); ++row) {
      net_sum += platform::ParseNumber(list.Text(row, 4), platform::Locale{}).value();
    }
    EXPECT_NEAR(host::ToDouble(type[field::NettoSumme]), net_sum, 0.001);
    EXPECT_EQ(host::ToText(type[field::ArtStr]), ArtIn(user));
    if (ArtIn(user) == "einmalig") {
      EXPECT_EQ(user.Text("cboKuendFrist") + user.Text("cboKuendFrist2"), "00");
    }
  }
  // "10,50" and "10,5" are one number.
  static std::string Comparable(const std::string& text) {
    const auto number = platform::ParseNumber(text, platform::Locale{});
    return number ? platform::FormatPlain(*number, platform::Locale{}) : text;
  }
};

// A walk in a module of its own.
struct Walk {
  Walk(support::ContractWorld& world, unsigned seed)
      : walker(seed),
        module({walker, world.clock, platform::Locale{}, embedded::CreateErrorTexts,
                [&world] { return world.App(); }}) {
    module.gHostApp = world.App();
    module.gDb = module.gHostApp->CurrentDb();
    module.gAddonError = std::make_shared<shell::CAddonError>(module);
  }
  Walker walker;
  shell::Module module;
};

TEST_F(WalkTest, StoredTypes) {
  constexpr unsigned kWalks = support::kSanitized ? 300 : 1500;
  unsigned saved = 0;
  for (unsigned seed = 1; seed <= kWalks && !HasFailure(); ++seed) {
    SCOPED_TRACE(seed);
    Walk walk(world, seed);
    walk.walker.after_action = ExpectSound;
    if (saved > 0) world.Goto(table::vv_Vertragsdefinitionen, Types().back().oid);
    frmFEditDefinitions dialog(walk.module);
    const bool is_new = saved == 0 || walk.walker.OneIn(2);
    ASSERT_TRUE(is_new ? dialog.InitNew() : dialog.InitEdit());
    dialog.Show(walk.walker);
    if (dialog.mbOK) {
      ++saved;
      frmFEditDefinitions again(walk.module);
      ASSERT_TRUE(again.InitEdit());
      ExpectSound(again);
      EXPECT_EQ(ShownIn(again), ShownIn(dialog));
      EXPECT_EQ(DialogUser(again).Text("cboStatus"), DialogUser(dialog).Text("cboStatus"));
      ExpectStored(again);
    }
    EXPECT_THAT(walk.walker.errors, testing::IsEmpty());
  }
  EXPECT_GT(saved, kWalks / 5);
}

TEST_F(WalkTest, TypesChangedForOneContract) {
  std::vector<store::Oid> types;
  for (const char* typ : {"D", "K"}) {
    for (const int art : {1, 2, 3}) {
      const int term = art == 3 ? 0 : 18;
      types.push_back(AddType({{field::Typ, typ},
                               {field::Art, art},
                               {field::Dauer, term},
                               {field::Verlaengerungsdauer, term}}));
      AddPosition(types.back(), "B1", "");
    }
  }
  const auto cells = [this] {
    std::vector<std::string> all;
    for (const Row& row : Types()) all.push_back(All(row));
    for (const Row& row : Positions()) all.push_back(All(row));
    return all;
  };
  const auto stored = cells();
  int saved = 0;
  for (unsigned seed = 1; seed <= 500 && !HasFailure(); ++seed) {
    SCOPED_TRACE(seed);
    Walk walk(world, seed);
    walk.walker.after_action = ExpectSound;
    world.Goto(table::vv_Vertragsdefinitionen, types[seed % types.size()]);
    frmFEditDefinitions dialog(walk.module);
    ASSERT_TRUE(dialog.InitEdit());
    dialog.ShowForNewContract();
    dialog.Show(walk.walker);
    EXPECT_EQ(cells(), stored);
    EXPECT_THAT(walk.walker.errors, testing::IsEmpty());
    if (!dialog.mbOK) continue;
    ++saved;
    frmFEditDefinitions again(walk.module);
    ASSERT_TRUE(again.InitEdit());
    again.ShowForNewContract();
    ExpectSound(again);
    Shown before = ShownIn(dialog);
    Shown after = ShownIn(again);
    // A single payment shows as the period of the same length. The positions'
    // groups are not brought back, nor is an emptied list.
    const bool emptied = dialog.Find<ui::ListView>("lvwPositionen")->RowCount() == 0;
    const bool single = before["cboZahlungsperiode"] == "einmalig";
    for (Shown* shown : {&before, &after}) {
      std::erase_if(*shown, [&](const auto& cell) {
        const std::string& name = cell.first;
        return (single && name == "cboZahlungsperiode") ||
               (name.starts_with("Position") && (emptied || name.ends_with(" 22")));
      });
    }
    EXPECT_EQ(after, before);
  }
  EXPECT_GT(saved, 100);
}

}  // namespace
}  // namespace pactora::definitions
