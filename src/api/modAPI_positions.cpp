// Prices and positions.
#include <cmath>
#include <cstdio>
#include <map>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "api/ApiPositionRow.h"
#include "api/article_access.h"
#include "api/modAPI.h"
#include "api/vv_CContractD.h"
#include "contract/money.h"
#include "contract/position_groups.h"
#include "host/Value.h"
#include "host/members.h"
#include "host/row.h"
#include "platform/Text.h"
#include "shell/CTableProperties.h"
#include "shell/handlers.h"

namespace pactora::api {

namespace {

namespace field = schema::field;
using shell::module_name::modAPI;

// Articles that agree in all of this share one row: article, description and
// order number without regard to case, price of one month, discount.
using MergeKey = std::tuple<std::string, std::string, std::string, double, double>;

double RequireFinite(double number) {
  if (!std::isfinite(number)) platform::Raise(platform::RuntimeError::Overflow);
  return number;
}

// A period without a price of its own costs its months at the price of one.
double PeriodPrice(const PeriodPrices& prices, std::int32_t months) {
  if (const auto index = contract::PriceFieldOf(months)) return prices[*index];
  return months * prices[0];
}

// A host expression, compiled when it is first evaluated.
class Expression {
 public:
  Expression(host::HostDb& db, std::string_view text) : db_(db), text_(text) {}
  host::Value Eval() {
    if (!formula_) formula_ = db_.Formulas().Compile(text_, host::kFlagsNone);
    return formula_->Eval(host::kFlagsNone);
  }

 private:
  host::HostDb& db_;
  std::string_view text_;
  std::shared_ptr<host::HostFormula> formula_;
};

// Turns the articles into rows one after the other.
class PositionBuilder {
 public:
  PositionBuilder(shell::Module& module, std::int32_t period, double discount)
      : articles_(*module.gApiArtikel),
        rows_(*module.gApiPositionRows),
        term_(module.gApiContract->Dauer),
        period_(period),
        discount_(discount),
        vat_rate_(*module.gDb, schema::expression::USTSatzArtikel),
        account_(*module.gDb, schema::expression::Erloeskonto) {}

  void Add(const vv_CArticle& article) {
    articles_.MoveFirst(host::kFlagsUsual);
    if (!articles_.SeekKey(article.sArtikelID, host::kFlagsUsual)) return;

    const double base =
        article.bSonderpreisVerwenden ? article.dblPreis : GetDouble(articles_, field::Nettopreis);
    const PeriodPrices prices = CalculatePrices(article.lPreisDauer, base);
    const double period_price = PeriodPrice(prices, period_);
    const double discount = article.bUseCustomDiscount ? article.dblCustomDiscount : discount_;
    const double net_price = contract::ApplyDiscount(period_price, discount);
    std::string description =
        article.sBeschreibung.empty() ? MasterText(field::Beschreibung) : article.sBeschreibung;

    const auto [place, is_new] = row_of_.try_emplace(
        MergeKey(platform::UpperCase(article.sArtikelID), platform::UpperCase(description),
                 platform::UpperCase(article.sAuftragsnummer), prices[0], discount),
        rows_.size());
    if (!is_new) {
      double& quantity = rows_[place->second].Anzahl;
      quantity = RequireFinite(quantity + article.dblAnzahl);
      return;
    }
    ApiPositionRow row;
    row.Artikel = MasterText(field::Bezeichnung);
    row.Nettopreis = net_price;
    row.Artikelnummer = MasterText(field::Nummer);
    row.Artikelart = MasterText(field::Art);
    row.Einheit = MasterText(field::Einheit);
    row.UStSatz = host::ToDouble(vat_rate_.Eval());
    row.Beschreibung = std::move(description);
    row.Anzahl = RequireFinite(article.dblAnzahl);
    row.Erloeskonto = host::ToLong(account_.Eval());
    row.ArtikelID = article.sArtikelID;
    row.PreisM = prices;
    row.Preis = contract::PriceFieldOf(term_) ? PeriodPrice(prices, term_) : period_price;
    row.NettoOhneRabatt = period_price;
    row.Rabattprozent = discount;
    row.Auftragsnummer = article.sAuftragsnummer;
    row.Gruppierung = article.sGruppierung;
    rows_.push_back(std::move(row));
  }

 private:
  std::string MasterText(std::string_view name) { return GetText(articles_, name); }

  host::HostTable& articles_;
  std::vector<ApiPositionRow>& rows_;
  const std::int32_t term_;
  const std::int32_t period_;
  const double discount_;
  Expression vat_rate_;
  Expression account_;
  std::map<MergeKey, std::size_t> row_of_;
};

// The fields of a position in the order of writing: these, the row number, the prices
// of the periods, then the others.
constexpr std::array<host::Member<ApiPositionRow>, 10> kFirstFields = {{
    {field::Artikel, &ApiPositionRow::Artikel},
    {field::Nettopreis, &ApiPositionRow::Nettopreis},
    {field::Artikelnummer, &ApiPositionRow::Artikelnummer},
    {field::Artikelart, &ApiPositionRow::Artikelart},
    {field::Einheit, &ApiPositionRow::Einheit},
    {field::UStSatz, &ApiPositionRow::UStSatz},
    {field::Beschreibung, &ApiPositionRow::Beschreibung},
    {field::Anzahl, &ApiPositionRow::Anzahl},
    {field::Erloeskonto, &ApiPositionRow::Erloeskonto},
    {field::ArtikelID, &ApiPositionRow::ArtikelID},
}};
constexpr std::array<host::Member<ApiPositionRow>, 5> kLastFields = {{
    {field::Preis, &ApiPositionRow::Preis},
    {field::NettoOhneRabatt, &ApiPositionRow::NettoOhneRabatt},
    {field::Rabattprozent, &ApiPositionRow::Rabattprozent},
    {field::Auftragsnummer, &ApiPositionRow::Auftragsnummer},
    {field::Gruppierung, &ApiPositionRow::Gruppierung},
}};

void StoreValue(host::HostTable& table, std::string_view name, double value) {
  table.BeginEdit();
  Set(table, name, value);
  table.Store(host::kFlagsUsual);
}

}  // namespace

PeriodPrices CalculatePrices(std::int32_t lPreisDauer, double dPreis) {
  if (lPreisDauer == 0) platform::Raise(platform::RuntimeError::DivisionByZero);
  const double base = dPreis / lPreisDauer;
  PeriodPrices prices{};
  for (std::size_t i = 0; i < prices.size(); ++i) {
    prices[i] = RoundToCents(base * schema::kPeriods[i]);
  }
  return prices;
}

bool GetNewPositions(shell::Module& module, std::int32_t lZahlungsperiode, double dblRabatt) {
  shell::CTableProperties cursor(module);
  try {
    // Positions stand at 1 and up.
    module.gApiPositionRows = std::make_shared<std::vector<ApiPositionRow>>(1);
    cursor.Init(module.gApiArtikel);
    cursor.Save();
    host::HostTable& articles = *module.gApiArtikel;
    ShowAllRows(articles, host::kFlagsNone);
    articles.Indexes().Select(schema::index::Id, host::kFlagsNone);
    PositionBuilder builder(module, lZahlungsperiode, dblRabatt);
    bool any = false;
    ForEachArticle(module, [&](const vv_CArticle& article) {
      builder.Add(article);
      any = true;
    });
    cursor.Restore(false);
    return any;
  } catch (...) {
    const platform::Error error = shell::CurrentError();
    cursor.Restore(false);
    throw platform::Error(error.Number(), error.Description(),
                          shell::DisplayName(modAPI, "GetNewPositions"));
  }
}

bool WriteNewPositions(shell::Module& module, double& dValue) {
  return shell::RaisingAgain(modAPI, "WriteNewPositions", [&] {
    const std::vector<ApiPositionRow>& rows = *module.gApiPositionRows;
    host::HostTable& positions = *module.gApiVertragspositionen;
    double total = 0.0;
    bool any = false;
    for (std::size_t i = 1; i < rows.size(); ++i) {
      const ApiPositionRow& row = rows[i];
      BeginNewRow(positions);
      for (const auto& member : kFirstFields) Set(positions, member.name, host::Read(row, member));
      Set(positions, field::Row, contract::RowText(i));
      for (std::size_t period = 0; period < row.PreisM.size(); ++period)
        Set(positions, schema::kPriceFields[period], row.PreisM[period]);
      for (const auto& member : kLastFields) Set(positions, member.name, host::Read(row, member));
      positions.StoreNew(host::kFlagsUsual);
      total = RequireFinite(total + row.Nettopreis * row.Anzahl);
      dValue = total;
      any = true;
    }
    return any;
  });
}

bool WriteActValues(shell::Module& module, double dValue) {
  return shell::RaisingAgain(modAPI, "WriteActValues", [&] {
    StoreValue(*module.gApiVertragsstaende, field::Value, dValue);
    StoreValue(*module.gApiVertraege, field::AktValue, dValue);
    return true;
  });
}

}  // namespace pactora::api
