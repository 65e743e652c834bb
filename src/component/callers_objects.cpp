#include "component/callers_objects.h"

#include <pactora2.h>

#include <algorithm>
#include <string>
#include <utility>

#include "api/vv_CArticle.h"
#include "api/vv_CContractD.h"
#include "component/com/LateBound.h"
#include "component/com/failures.h"
#include "component/com/text.h"

namespace pactora::component {
namespace {

using platform::RuntimeError;

VARTYPE VariantTypeOf(api::PropertyType type) {
  switch (type) {
    case api::PropertyType::Long:
      return VT_I4;
    case api::PropertyType::Double:
      return VT_R8;
    case api::PropertyType::Date:
      return VT_DATE;
    case api::PropertyType::Text:
      return VT_BSTR;
    case api::PropertyType::Boolean:
      return VT_BOOL;
  }
  return VT_EMPTY;
}

class ContractBag final : public api::PropertyBag {
 public:
  explicit ContractBag(Ref<IDispatch> object) : object_(std::move(object)) {}

  host::Value Get(std::string_view name) const override {
    const Variant value = Dereferenced(object_.Get(Wide(name)).Get());
    const auto& properties = api::vv_CContractD().Properties();
    const auto property = std::find_if(properties.begin(), properties.end(),
                                       [&](const auto& known) { return known.name == name; });
    if (property == properties.end()) platform::Raise(RuntimeError::MemberNotOffered);
    Variant converted;
    Check(Convert(value.Get(), VariantTypeOf(property->type), LOCALE_USER_DEFAULT, converted));
    return ToValue(converted.Get());
  }

 private:
  LateBound object_;
};

// Properties of an article by its class's interface.
std::string ReadText(Ivv_CArticle& article, HRESULT (STDMETHODCALLTYPE Ivv_CArticle::*get)(BSTR*)) {
  Variant text;
  Check((article.*get)(&text.Put()->bstrVal));
  text.Put()->vt = VT_BSTR;
  return Narrow(text.Get().bstrVal);
}

template <typename Value>
Value Read(Ivv_CArticle& article, HRESULT (STDMETHODCALLTYPE Ivv_CArticle::*get)(Value*)) {
  Value value{};
  Check((article.*get)(&value));
  return value;
}

std::shared_ptr<api::vv_CArticle> ReadArticle(Ivv_CArticle& from) {
  using I = Ivv_CArticle;
  auto article = std::make_shared<api::vv_CArticle>();
  article->sArtikelID = ReadText(from, &I::get_sArtikelID);
  article->dblAnzahl = Read(from, &I::get_dblAnzahl);
  article->lPreisDauer = Read(from, &I::get_lPreisDauer);
  article->bSonderpreisVerwenden = Read(from, &I::get_bSonderpreisVerwenden) != VARIANT_FALSE;
  article->dblPreis = Read(from, &I::get_dblPreis);
  article->sBeschreibung = ReadText(from, &I::get_sBeschreibung);
  article->bUseCustomDiscount = Read(from, &I::get_bUseCustomDiscount) != VARIANT_FALSE;
  article->dblCustomDiscount = Read(from, &I::get_dblCustomDiscount);
  article->sAuftragsnummer = ReadText(from, &I::get_sAuftragsnummer);
  article->sGruppierung = ReadText(from, &I::get_sGruppierung);
  return article;
}

class Collection final : public api::ArticleCollection {
 public:
  explicit Collection(Ref<IDispatch> object) : object_(std::move(object)) {}

  std::int32_t Count() const override { return host::ToLong(ToValue(object_.Get(L"Count").Get())); }
  // By number and never by the collection's enumerator: that of a dictionary with the keys
  // 1 to n gives keys.
  host::ObjectRef Item(std::int32_t index) const override {
    const host::Value element = ToValue(object_.Get(L"Item", index).Get());
    const host::ObjectRef object = host::ToObject(element);
    const auto* automation = dynamic_cast<const AutomationObject*>(object.get());
    if (automation == nullptr) return object;
    const auto article = Ref<Ivv_CArticle>::Query(automation->Dispatch());
    if (!article) return object;
    return ReadArticle(*article.Get());
  }

 private:
  LateBound object_;
};

}  // namespace

std::shared_ptr<api::PropertyBag> CallersContract(const Ref<IDispatch>& object) {
  return object ? std::make_shared<ContractBag>(object) : nullptr;
}

std::shared_ptr<api::ArticleCollection> CallersArticles(const Ref<IDispatch>& object) {
  return object ? std::make_shared<Collection>(object) : nullptr;
}

}  // namespace pactora::component
