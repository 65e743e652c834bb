#include <gmock/gmock.h>

#include <algorithm>
#include <functional>

#include "component/ComponentWorld.h"
#include "component/com/LateBound.h"
#include "component/com/failures.h"
#include "support/fault_sweep.h"
#include "support/row_text.h"

namespace pactora::component {
namespace {

namespace table = schema::table;

std::vector<std::string> AllRows(support::ContractWorld& world) {
  std::vector<std::string> rows;
  for (const auto name :
       {table::vv_Vertraege, table::vv_VertragsAktivitaeten, table::vv_Vertragsstaende,
        table::vv_Vertragspositionen, table::Adressmerkmale, table::KELM_Nummern}) {
    for (const support::Row& row : world.Rows(name)) rows.push_back(support::All(row));
  }
  return rows;
}

// The operations that do something; others only find the way to them.
std::vector<std::string> Deeds(const support::OperationLog& log) {
  std::vector<std::string> deeds = log.Seen();
  std::erase_if(deeds, [](const std::string& deed) {
    return deed.starts_with("Item") || deed.starts_with("CurrentDb") || deed.starts_with("Fields");
  });
  return deeds;
}

TEST_F(ComponentTest, AContractReachesTheHostAsTheSameOperationsAndRows) {
  support::ApiWorld native;
  for (support::ApiWorld* each : {&world, &native}) {
    for (const char* changes : {"", "sArtikelID=A2", "sBeschreibung=Zweite", "sAuftragsnummer=7",
                                "bSonderpreisVerwenden=True, dblPreis=55,5"}) {
      each->Article(changes);
    }
  }
  const support::OperationLog wanted(native.host);
  native.Call();
  const support::OperationLog seen(world.host);
  const host::Value contract = Contract();
  const host::Value articles = Articles();
  const automation_host::Traffic before = automation_host::traffic;
  EXPECT_EQ(Debitor(contract, articles), Failure{});
  EXPECT_EQ(Deeds(seen), Deeds(wanted));
  EXPECT_EQ(AllRows(world), AllRows(native));
  const auto deeds = Deeds(wanted);
  const auto values = std::count_if(deeds.begin(), deeds.end(), [](const std::string& deed) {
    return deed.starts_with("Value ") || deed.starts_with("SetValue ");
  });
  const auto others = static_cast<std::ptrdiff_t>(deeds.size()) - values;
  RecordProperty("invokes", static_cast<int>(automation_host::traffic.invokes - before.invokes));
  EXPECT_LE(automation_host::traffic.invokes - before.invokes, 2 * values + 2 * others);
  EXPECT_LE(automation_host::traffic.names - before.names, 60u) << "numbers are asked for once";
}

// Early bound the code and the thread's error object, late bound an exception.
TEST_F(ComponentTest, AFailureIsToldWithNumberSourceAndText) {
  const struct {
    const char* article;
    const char* contract;
    std::int32_t begin = 1;
  } cases[] = {
      {"sArtikelID=A9", ""},
      {"dblAnzahl=0", ""},
      {"lPreisDauer=0", ""},
      {"", "lVertragArt=3"},
      {"", "Dauer=13"},
      {"", "Zahlungsperiode=0"},
      {"", "Zahlungsperiode=24"},
      {"", "Zahlungsperiode=5"},
      {"", "Verlaengerungsdauer=6"},
      {"", "VerlaengerungsZahlungsperiode=-1"},
      {"", "VerlaengerungsZahlungsperiode=24"},
      {"", "VerlaengerungsZahlungsperiode=5"},
      {"", "dblRabatt=101"},
      {"", "", platform::kLastDay},  // the end overflows: a run-time error
  };
  const auto entry = component.Create<IDispatch>(__uuidof(CVV));
  for (const auto& fault : cases) {
    SCOPED_TRACE(std::string(fault.article) + fault.contract);
    world.contract = support::ApiWorld::ExampleContract();
    support::ApiWorld::Set(*world.contract, support::Fields(fault.contract));
    if (fault.begin != 1) world.contract->VertragBeginn = {double(fault.begin)};
    world.articles = std::make_shared<api::ArticleList>();
    world.Article(fault.article);
    const auto wanted = support::ErrorOf([&] { world.Call(); });
    ASSERT_TRUE(wanted);
    EXPECT_EQ(Debitor(),
              (Failure{CodeOf(wanted->Number()), wanted->Source(), wanted->Description()}));
    const auto late = support::ErrorOf(
        [&] { LateBound(entry).Call(L"NewContractDebitor", app, Contract(), Articles()); });
    ASSERT_TRUE(late);
    EXPECT_EQ(late->Number(), wanted->Number());
    EXPECT_EQ(late->Source(), wanted->Source());
    EXPECT_EQ(late->Description(), wanted->Description());
  }
}

TEST_F(ComponentTest, WhatTheCallerHandsInWrongIsShownOrRaised) {
  const struct {
    host::Value contract;
    host::Value articles;
    const char* title;
    const char* text;
  } cases[] = {
      {Contract(), ServeCollection({Contract()}), "modAPI.ArticlesExist",
       "Fehler &HD in Pactora2\r\nTypen unverträglich"},
      {Contract(), ServeCollection({"A1"}), "modAPI.ArticlesExist",
       "Fehler &HD in Pactora2\r\nTypen unverträglich"},
      {Contract(), ServeCollection({nullptr}), "modAPI.ArticlesExist",
       "Fehler &H5B in Pactora2\r\nObjektvariable nicht festgelegt"},
      {Contract(), "no object", "modAPI.ArticlesExist",
       "Fehler &H5B in Pactora2\r\nObjektvariable nicht festgelegt"},
      {Contract(), app, "modAPI.ArticlesExist",
       "Fehler &H1B6 in Pactora2\r\nObjekt unterstützt diese Eigenschaft oder Methode nicht"},
      {app, ServeCollection({}), "CVV.NewContractDebitor",
       "Fehler &H1B6 in Pactora2\r\nObjekt unterstützt diese Eigenschaft oder Methode nicht"},
      {nullptr, ServeCollection({}), "CVV.NewContractDebitor",
       "Fehler &H5B in Pactora2\r\nObjektvariable nicht festgelegt"},
  };
  const LateBound entry(component.Create<IDispatch>(__uuidof(CVV)));
  for (const auto& row : cases) {
    const MessageBoxes boxes;
    const auto error = support::ErrorOf(
        [&] { entry.Call(L"NewContractDebitor", app, row.contract, row.articles); });
    EXPECT_THAT(MessageBoxes::seen,
                testing::ElementsAre(std::string("Fehler in ") + row.title, row.text));
    const bool refused = std::string_view(row.title) == "modAPI.ArticlesExist";
    EXPECT_EQ(error ? error->Number() : 0, refused ? platform::ErrorNumber(0x80045001) : 0);
  }
  EXPECT_EQ(world.Counts(), std::vector<std::size_t>(5, 0));
  for (const host::Value& nothing : {host::Value(nullptr), host::Value(1), host::Value()}) {
    const auto error = support::ErrorOf(
        [&] { entry.Call(L"NewContractDebitor", nothing, Contract(), Articles()); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Number(), 91);
  }
}

// The text of a failing host goes out as it came in, and so does its number; but for the
// attribute that the host answers with one number.
TEST_F(ComponentTest, ANumberOfTheHostArrivesAsItIs) {
  for (const std::uint32_t number : {0x80041096u, 0x80041097u}) {
    world.articles = std::make_shared<api::ArticleList>();
    world.Article();
    const support::FailingProbe probe(
        world.host, 1, "StoreNew", "Adressmerkmale",
        platform::Error(platform::ErrorNumber(number), "Schon da", "Wirt"));
    const Failure passed_over;
    const Failure told{static_cast<HRESULT>(number), "modAPI.CreateAttribute", "Schon da"};
    EXPECT_EQ(Debitor(), number == 0x80041096 ? passed_over : told);
    EXPECT_TRUE(probe.HasFailed());
  }
}

// What late-bound callers hand in for pbOK, plVsCount and pbShowDef, and where the new
// values must be then: False, 0 and still True, as there is no contract type.
TEST_F(ComponentTest, ResultsArriveInEveryFormOfArgument) {
  const Ref<IDispatch> entry_for_ids = component.Create<IDispatch>(__uuidof(CVV));
  wchar_t name[] = L"newcontract";
  wchar_t* names = name;
  DISPID id = DISPID_UNKNOWN;
  ASSERT_EQ(entry_for_ids->GetIDsOfNames(IID_NULL, &names, 1, 0, &id), S_OK);
  Variant host_app(app);
  VARIANT variants[3] = {};
  short shorts[3] = {};
  LONG longs[3] = {};
  double doubles[3] = {};
  const auto set = [&] {
    for (int i = 0; i < 3; ++i) {
      variants[i] = VARIANT{};
      variants[i].vt = i == 1 ? VT_BSTR : VT_BOOL;
      if (i == 1) variants[i].bstrVal = SysAllocString(L"7");
      if (i != 1) variants[i].boolVal = VARIANT_TRUE;
      shorts[i] = VARIANT_TRUE;
      longs[i] = VARIANT_TRUE;
      doubles[i] = VARIANT_TRUE;
    }
  };
  const auto reference = [](VARTYPE type, void* to) {
    VARIANT variant{};
    variant.vt = static_cast<VARTYPE>(type | VT_BYREF);
    variant.byref = to;
    return variant;
  };
  const struct {
    const char* form;
    std::function<VARIANT(int)> argument;
    std::function<double(int)> value;
  } forms[] = {
      {"a script's variables", [&](int i) { return reference(VT_VARIANT, &variants[i]); },
       [&](int i) { return i == 1 ? variants[i].lVal : variants[i].boolVal; }},
      {"booleans and short numbers",
       [&](int i) { return reference(i == 1 ? VT_I2 : VT_BOOL, &shorts[i]); },
       [&](int i) { return shorts[i]; }},
      {"long numbers", [&](int i) { return reference(VT_I4, &longs[i]); },
       [&](int i) { return longs[i]; }},
      {"floating numbers", [&](int i) { return reference(VT_R8, &doubles[i]); },
       [&](int i) { return doubles[i]; }},
  };
  for (const auto& form : forms) {
    for (const bool named : {false, true}) {
      SCOPED_TRACE(form.form);
      set();
      VARIANT args[4] = {form.argument(2), form.argument(1), form.argument(0),
                         reference(VT_VARIANT, host_app.Put())};
      DISPID places[4] = {3, 2, 1, 0};
      DISPPARAMS params{args, named ? places : nullptr, 4, named ? 4u : 0u};
      const MessageBoxes boxes;
      EXPECT_EQ(component.Create<IDispatch>(__uuidof(CVV))
                    ->Invoke(id, IID_NULL, 0, DISPATCH_METHOD, &params, nullptr, nullptr, nullptr),
                S_OK);
      EXPECT_EQ(form.value(0), 0);
      EXPECT_EQ(form.value(1), 0);
      EXPECT_EQ(form.value(2), VARIANT_TRUE);
      EXPECT_EQ(MessageBoxes::seen.size(), 2u) << "there is no contract type";
    }
  }
  VARIANT wrong[4] = {};
  wrong[1].vt = VT_ARRAY | VT_VARIANT;
  DISPPARAMS params{wrong, nullptr, 4, 0};
  UINT place = 9;
  EXPECT_EQ(
      entry_for_ids->Invoke(id, IID_NULL, 0, DISPATCH_METHOD, &params, nullptr, nullptr, &place),
      DISP_E_TYPEMISMATCH);
  EXPECT_EQ(place, 1u);
  params.cArgs = 3;
  EXPECT_EQ(
      entry_for_ids->Invoke(id, IID_NULL, 0, DISPATCH_METHOD, &params, nullptr, nullptr, nullptr),
      DISP_E_BADPARAMCOUNT);
}

TEST_F(ComponentTest, EveryFailureOfTheHostIsRaisedOrShown) {
  for (support::FaultSweep sweep; sweep.Next();) {
    support::ApiWorld fresh;
    fresh.Article();
    const MessageBoxes boxes;
    const host::Value served = automation_host::ServeApp(fresh.host.App());
    const LateBound entry(component.Create<IDispatch>(__uuidof(CVV)));
    const auto error = sweep.Run(fresh.host, [&] {
      entry.Call(L"NewContractDebitor", served, Contract(), ServeCollection({}));
    });
    const bool raised = error && error->Number() == platform::ErrorNumber(0x80049999) &&
                        error->Description() == "Probeweise gescheitert";
    const bool shown =
        MessageBoxes::seen.size() == 2 && MessageBoxes::seen[1].find("Fehler &H80049999") == 0;
    EXPECT_EQ(sweep.Fails(), raised || shown);
  }
}

}  // namespace
}  // namespace pactora::component
