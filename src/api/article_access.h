// Reading the caller's collection of articles.
#pragma once

#include <cstdint>
#include <memory>

#include "api/vv_CArticle.h"
#include "shell/Module.h"

namespace pactora::api {

// Articles and positions are counted with 16 bits.
inline constexpr std::int32_t kMostArticles = 32767;

// Raises error 91 without a collection and 6 for more than kMostArticles elements.
std::int32_t CountArticles(const shell::Module& module);

// The element of that number, from 1. Raises error 91 for a null element and 13
// for one that is no vv_CArticle. Requires: the number is not above CountArticles.
std::shared_ptr<const vv_CArticle> ArticleAt(const shell::Module& module, std::int32_t index);

// Calls visit(const vv_CArticle&) for each article from first to last.
template <typename Visit>
void ForEachArticle(const shell::Module& module, Visit&& visit) {
  const std::int32_t count = CountArticles(module);
  for (std::int32_t index = 1; index <= count; ++index) visit(*ArticleAt(module, index));
}

}  // namespace pactora::api
