#include "api/ArticleCollection.h"

#include <cstddef>
#include <utility>

namespace pactora::api {

std::int32_t ArticleList::Count() const { return static_cast<std::int32_t>(objects_.size()); }

host::ObjectRef ArticleList::Item(std::int32_t index) const {
  if (index < 1 || index > Count()) platform::Raise(platform::RuntimeError::IndexOutOfRange);
  return objects_[static_cast<std::size_t>(index - 1)];
}

void ArticleList::Add(host::ObjectRef object) { objects_.push_back(std::move(object)); }

}  // namespace pactora::api
