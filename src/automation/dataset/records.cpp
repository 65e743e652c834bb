#include "automation/dataset/records.h"

#include <algorithm>
#include <utility>

#include "api/vv_CArticle.h"
#include "automation/dataset/values.h"

namespace pactora::dataset {

namespace {

host::Value ReadProperty(api::PropertyType type, const formats::Json& value,
                         const formats::Place& place) {
  switch (type) {
    case api::PropertyType::Long:
      return formats::RequireLong(value, place);
    case api::PropertyType::Double:
      return formats::RequireDouble(value, place);
    case api::PropertyType::Date:
      return ReadDate(value, place);
    case api::PropertyType::Text:
      return formats::RequireText(value, place);
    case api::PropertyType::Boolean:
      return formats::RequireBoolean(value, place);
  }
  return {};
}

class LackingBag final : public api::PropertyBag {
 public:
  LackingBag(std::shared_ptr<const api::PropertyBag> record, std::vector<std::string> lacking)
      : record_(std::move(record)), lacking_(std::move(lacking)) {}

  host::Value Get(std::string_view name) const override {
    if (std::find(lacking_.begin(), lacking_.end(), name) != lacking_.end())
      platform::Raise(platform::RuntimeError::MemberNotOffered);
    return record_->Get(name);
  }

 private:
  std::shared_ptr<const api::PropertyBag> record_;
  std::vector<std::string> lacking_;
};

}  // namespace

void FillRecord(api::Record& record, const formats::Json& properties, const formats::Place& place) {
  for (const auto& member : formats::RequireObject(properties, place).items()) {
    const auto& known = record.Properties();
    const auto property = std::find_if(known.begin(), known.end(), [&](const auto& candidate) {
      return candidate.name == member.key();
    });
    if (property == known.end()) place.FailUnknownKey(member.key());
    if (member.value().is_null()) continue;
    record.Set(property->name,
               ReadProperty(property->type, member.value(), place.Key(member.key())));
  }
}

std::shared_ptr<api::vv_CContractD> ReadContract(const formats::Json& contract,
                                                 const formats::Place& place) {
  auto record = std::make_shared<api::vv_CContractD>();
  FillRecord(*record, contract, place);
  return record;
}

std::shared_ptr<api::ArticleCollection> ReadArticles(const formats::Json& articles,
                                                     const formats::Place& place) {
  auto collection = std::make_shared<api::ArticleList>();
  for (std::size_t i = 0; i < formats::RequireArray(articles, place).size(); ++i) {
    auto article = std::make_shared<api::vv_CArticle>();
    FillRecord(*article, articles[i], place.Element(i));
    collection->Add(std::move(article));
  }
  return collection;
}

std::shared_ptr<api::PropertyBag> Without(std::shared_ptr<const api::PropertyBag> record,
                                          std::vector<std::string> lacking) {
  return std::make_shared<LackingBag>(std::move(record), std::move(lacking));
}

}  // namespace pactora::dataset
