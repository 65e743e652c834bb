#include "api/article_access.h"

#include "api/ArticleCollection.h"

namespace pactora::api {

using platform::Raise;
using platform::RuntimeError;

std::int32_t CountArticles(const shell::Module& module) {
  if (!module.gApiArticles) Raise(RuntimeError::ObjectNotSet);
  const std::int32_t count = module.gApiArticles->Count();
  if (count > kMostArticles) Raise(RuntimeError::Overflow);
  return count;
}

std::shared_ptr<const vv_CArticle> ArticleAt(const shell::Module& module, std::int32_t index) {
  const host::ObjectRef object = module.gApiArticles->Item(index);
  if (!object) Raise(RuntimeError::ObjectNotSet);
  auto article = std::dynamic_pointer_cast<const vv_CArticle>(object);
  if (!article) Raise(RuntimeError::TypeMismatch);
  return article;
}

}  // namespace pactora::api
