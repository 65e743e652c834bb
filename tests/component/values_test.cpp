#include <gmock/gmock.h>

#include "component/ComponentWorld.h"
#include "component/com/LateBound.h"
#include "component/com/failures.h"
#include "component/host/AutomationDb.h"

namespace pactora::component {
namespace {

using automation_host::Serve;

TEST(Values, ComeBackAsTheyWent) {
  const host::Value values[] = {
      {},
      std::int16_t{-7},
      std::int32_t{70000},
      0.1,
      support::Day(31, 12, 9999),
      true,
      false,
      "",
      std::string("Gültig\0 bis 😀", 18),
      nullptr,
      host::ValueArray{"Stück", 1, host::ValueArray{true}},
  };
  for (const host::Value& value : values) {
    EXPECT_EQ(ToValue(Variant(value).Get()), value);
    Variant held(value);
    EXPECT_EQ(ToValue(Variant::Reference(*held.Put()).Get()), value);
  }
}

TEST(Values, OfKindsThatTheAddOnDoesNotHaveAreRead) {
  const auto of = [](VARTYPE from, const wchar_t* text) {
    VARIANT source{};
    Variant held;
    source.vt = VT_BSTR;
    source.bstrVal = SysAllocString(text);
    EXPECT_EQ(VariantChangeTypeEx(held.Put(), &source, 0x0407, 0, from), S_OK);
    SysFreeString(source.bstrVal);
    return ToValue(held.Get());
  };
  for (const VARTYPE type : {VT_CY, VT_DECIMAL, VT_R4}) EXPECT_EQ(of(type, L"12,5"), 12.5);
  for (const VARTYPE type : {VT_UI1, VT_UI2, VT_UI4, VT_I8}) EXPECT_EQ(of(type, L"12"), 12.0);
  EXPECT_EQ(of(VT_INT, L"-12"), -12);
  VARIANT null{};
  null.vt = VT_NULL;
  EXPECT_TRUE(ToValue(null).IsEmpty());
  EXPECT_TRUE(ToValue(Variant::Missing().Get()).IsEmpty());
  // A list of texts that begins at 3.
  SAFEARRAYBOUND bounds{2, 3};
  Variant list;
  list.Put()->parray = SafeArrayCreate(VT_BSTR, 1, &bounds);
  list.Put()->vt = VT_ARRAY | VT_BSTR;
  LONG last = 4;
  SafeArrayPutElement(list.Get().parray, &last, Variant("b").Get().bstrVal);
  EXPECT_EQ(ToValue(list.Get()), (host::ValueArray{"", "b"}));
}

TEST(Failures, KeepTheirNumbersOnTheWayOutAndBack) {
  for (const std::int32_t number :
       {5, 6, 9, 11, 13, 51, 91, 380, 438, platform::ErrorNumber(0x80045001),
        platform::ErrorNumber(0x80041096)}) {
    EXPECT_TRUE(FAILED(CodeOf(number)));
    EXPECT_EQ(NumberOf(CodeOf(number)), number);
  }
  EXPECT_TRUE(FAILED(CodeOf(0)));
  EXPECT_TRUE(FAILED(CodeOf(70000)));
  EXPECT_EQ(NumberOf(DISP_E_UNKNOWNNAME), 438);
  EXPECT_EQ(NumberOf(DISP_E_TYPEMISMATCH), 13);
  EXPECT_EQ(NumberOf(DISP_E_OVERFLOW), 6);
}

// A collection with an enumerator of its own: a dictionary enumerates its keys.
TEST(PersistVars, AreWalkedByTheEnumeratorWhereThereIsOne) {
  Ref<IDispatch> dictionary;
  CLSID id{};
  ASSERT_EQ(CLSIDFromProgID(L"Scripting.Dictionary", &id), S_OK);
  ASSERT_EQ(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, __uuidof(IDispatch),
                             dictionary.PutVoid()),
            S_OK);
  for (const char* name : {"a", "b", "c"}) {
    LateBound(dictionary).Call(L"Add", Serve({{L"Name", [=](auto&) { return name; }, {}}}), 1);
  }
  const LateBound formulas(Ref<IDispatch>(
      static_cast<const AutomationObject&>(
          *Serve(
               {{L"PersistVars",
                 [&](auto&) { return host::Value(std::make_shared<AutomationObject>(dictionary)); },
                 {}}})
               .AsObject())
          .Dispatch()));
  Connection connection;
  AutomationPersistVars variables(connection, formulas);
  std::string names;
  variables.ForEach([&](host::HostPersistVar& variable) {
    names += variable.Name();
    return names != "ab";
  });
  EXPECT_EQ(names, "ab");
}

}  // namespace
}  // namespace pactora::component
