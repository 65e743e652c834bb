// How PostgreSQL writes the statements on rows. One unit writes at a time, so each statement
// can look first at what the server would refuse, and refuses by writing nothing: a failure
// would end the whole transaction.
#pragma once

#include <string>

#include "store/sql/row_statements.h"

namespace pactora::store::postgresql {

std::string ParameterSql(int number, sql::Content content);

inline constexpr sql::Dialect kDialect = {ParameterSql, "IS NOT DISTINCT FROM"};

std::string OperationSql(const schema::Catalog& catalog, TableId table, sql::Operation operation);

}  // namespace pactora::store::postgresql
