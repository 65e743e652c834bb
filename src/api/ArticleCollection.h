// The caller's collection of articles.
#pragma once

#include <cstdint>
#include <vector>

#include "host/Value.h"

namespace pactora::api {

// References to objects, counted from 1. Who reads one finds out whether it is an
// article. A caller's own collection may raise errors of its own.
class ArticleCollection : public host::Object {
 public:
  virtual std::int32_t Count() const = 0;
  // Raises an error for an index outside 1 to Count().
  virtual host::ObjectRef Item(std::int32_t index) const = 0;
};

// Holds them in the order in which they were added.
class ArticleList final : public ArticleCollection {
 public:
  std::int32_t Count() const override;
  host::ObjectRef Item(std::int32_t index) const override;
  void Add(host::ObjectRef object);

 private:
  std::vector<host::ObjectRef> objects_;
};

}  // namespace pactora::api
