// The caller's list of articles.
#pragma once

#include <cstdint>
#include <vector>

#include "host/Value.h"

namespace pactora::api {

// References to objects in the order in which they were added, counted from 1.
// Anything can be added; who reads it finds out whether it is an article.
class ArticleCollection final : public host::Object {
 public:
  std::int32_t Count() const;
  // Raises error 9 for an index outside 1 to Count().
  const host::ObjectRef& Item(std::int32_t index) const;
  void Add(host::ObjectRef object);

 private:
  std::vector<host::ObjectRef> objects_;
};

}  // namespace pactora::api
