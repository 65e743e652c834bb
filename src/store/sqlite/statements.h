// How SQLite writes the statements on rows.
#pragma once

#include <string>

#include "store/sql/row_statements.h"

namespace pactora::store::sqlite {

inline constexpr sql::Dialect kDialect = {
    [](int number, sql::Content) { return "?" + std::to_string(number); }, "IS"};

}  // namespace pactora::store::sqlite
