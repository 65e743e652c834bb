// The checks of single properties.
#include "api/article_access.h"
#include "api/modAPI.h"
#include "host/row.h"
#include "shell/CTableProperties.h"
#include "shell/handlers.h"

namespace pactora::api {

namespace {

using shell::module_name::modAPI;

constexpr std::int32_t kMonthsPerYear = 12;

}  // namespace

bool ArticlesExist(shell::Module& module) {
  shell::CTableProperties cursor(module);
  try {
    const std::shared_ptr<host::HostTable> articles =
        module.gDb->Tables().Item(schema::table::Artikel);
    cursor.Init(articles);
    cursor.Save();
    ShowAllRows(*articles, host::kFlagsUsual);
    articles->Indexes().Select(schema::index::Id, host::kFlagsUsual);
    bool all_found = true;
    ForEachArticle(module, [&](const vv_CArticle& article) {
      if (!articles->SeekKey(article.sArtikelID, host::kFlagsUsual)) all_found = false;
    });
    cursor.Restore(false);
    return all_found;
  } catch (...) {
    const platform::Error error = shell::CurrentError();
    cursor.Restore(false);
    shell::ReportError(module, shell::DisplayName(modAPI, "ArticlesExist"), error);
    return false;
  }
}

bool CheckArtikelAnzahl(shell::Module& module) {
  return shell::RaisingAgain(modAPI, "CheckArtikelAnzahl", [&] {
    bool all_fit = true;
    ForEachArticle(module, [&](const vv_CArticle& article) {
      if (!(article.dblAnzahl > 0.0)) all_fit = false;
    });
    return all_fit;
  });
}

bool CheckPreisdauer(shell::Module& module) {
  return shell::RaisingAgain(modAPI, "CheckPreisdauer", [&] {
    bool all_fit = true;
    ForEachArticle(module, [&](const vv_CArticle& article) {
      if (article.lPreisDauer < 1) all_fit = false;
    });
    return all_fit;
  });
}

bool CheckFirstDuration(std::int32_t term) {
  return (term >= 1 && term <= kMonthsPerYear) || term == 24 || term == 36 || term == 48 ||
         term == 60;
}

bool CheckFirstPeriods(std::int32_t term, std::int32_t period) {
  return shell::RaisingAgain(modAPI, "CheckFirstPeriods", [&] {
    if (period == 0) platform::Raise(platform::RuntimeError::DivisionByZero);
    return std::int64_t{term} % period == 0;
  });
}

}  // namespace pactora::api
