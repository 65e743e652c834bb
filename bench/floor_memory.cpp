#include <cstdio>
#include <cstdlib>
#include <map>
#include <string>
#include <unordered_map>
#include <vector>

#include "company.h"
#include "floors.h"

namespace pactora::bench {
namespace {

struct Article {
  std::string name, number, kind, unit, description;
  double price = 0;
  int account = 0;
  double vat = 0;
};

struct Position {
  std::string article, number, kind, unit, description, article_id, row, order, group;
  double net, vat, quantity, price_m[8], price, gross, discount;
  int account;
};

struct Term {
  std::string start_text, end_text, period_text, invoice_text;
  double start, end, invoice, discount, value;
  int period, timing;
  std::vector<Position> positions;
};

struct Contract {
  std::string side, number, name, kind_text, memo, order, notice_unit, renewal_notice_unit,
      period_text, invoice_text, user;
  double start, end, closed, notice_date, invoice, value;
  int kind, term, renewal, notice, renewal_notice, period, renewal_period, current_period;
  bool no_booking, discount_first;
  std::vector<Term> terms;
};

struct Attribute {
  std::string group, name, value, description;
  double from, to;
};

struct Address {
  std::string name;
  std::vector<Contract> contracts;
  std::vector<Attribute> attributes;
};

class StructFloor final : public Floor {
 public:
  StructFloor() : addresses_(kAddresses) {
    for (int i = 1; i <= kArticles; ++i) {
      articles_[ArticleId(i)] = {"Wartung Gerät " + std::to_string(i),
                                 std::to_string(5000 + i),
                                 "Dienstleistung",
                                 "Stück",
                                 "Jährliche Wartung vor Ort",
                                 120.0 + i,
                                 8400,
                                 19};
    }
    counters_["VV_VERTRAEGEVERTRAGNUMMER"] = "00000000";
  }

  void ConcludeContract() override {
    at_ = (at_ + 1) % addresses_.size();
    for (int i = 1; i <= kPositions; ++i) {
      if (articles_.find(ArticleId(i)) == articles_.end()) std::abort();
    }
    std::string& counter = counters_.find("VV_VERTRAEGEVERTRAGNUMMER")->second;
    char digits[32];
    std::snprintf(digits, sizeof digits, "%08ld", std::atol(counter.c_str()) + 1);
    counter = digits;

    Term term{"20240301", "20250228", "monatlich", "20240301", 45352, 45716,
              45352,      10,         0,           1,          0,     {}};
    for (int i = 1; i <= kPositions; ++i) {
      const std::string id = ArticleId(i);
      const Article& article = articles_.find(id)->second;
      const double base = article.price / 12;
      const double month = Cents(base);
      const double net = month - Cents(month / 100 * 10);
      char row[16];
      std::snprintf(row, sizeof row, "%03d", i);
      term.value += net * i;
      term.positions.push_back(
          {article.name,
           article.number,
           article.kind,
           article.unit,
           article.description,
           id,
           row,
           "",
           "",
           net,
           article.vat,
           static_cast<double>(i),
           {month, Cents(base * 3), Cents(base * 6), Cents(base * 12), Cents(base * 24),
            Cents(base * 36), Cents(base * 48), Cents(base * 60)},
           Cents(base * 12),
           month,
           10,
           article.account});
    }
    const double value = term.value;
    Contract contract{"D",
                      digits,
                      "Wartungsvertrag",
                      "verlängerbar",
                      "",
                      "",
                      "Wochen",
                      "Wochen",
                      "monatlich",
                      "20240301",
                      "Anna",
                      45352,
                      45716,
                      45352,
                      45675,
                      45352,
                      value,
                      1,
                      12,
                      12,
                      6,
                      6,
                      1,
                      12,
                      1,
                      false,
                      false,
                      {}};
    contract.terms.push_back(std::move(term));
    Address& address = addresses_[at_];
    address.contracts.push_back(std::move(contract));
    address.attributes.push_back(
        {"Verträge", "Wartung", "ja", std::string(digits) + " / Wartungsvertrag", 45352, 45716});
  }

 private:
  std::vector<Address> addresses_;
  std::unordered_map<std::string, Article> articles_;
  std::map<std::string, std::string> counters_;
  std::size_t at_ = 0;
};

}  // namespace

std::unique_ptr<Floor> MemoryFloor() { return std::make_unique<StructFloor>(); }

}  // namespace pactora::bench
