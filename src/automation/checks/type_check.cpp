#include "automation/checks/type_check.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>

#include "automation/workspace/row_walk.h"
#include "contract/money.h"
#include "definitions/price_rules.h"
#include "schema/names.h"
#include "store/RowView.h"
#include "store/rows.h"

namespace pactora::checks {
namespace {

namespace field = schema::field;
namespace index = schema::index;
namespace table = schema::table;
using store::RowView;

// For contracts with consumers since March 2022: at most 24 months at first, no
// renewal for a fixed term, at most one month's notice.
constexpr std::int32_t kLongestFirstTerm = 24;  // months
constexpr std::int32_t kLongestNoticeMonths = 1;
constexpr std::int32_t kLongestNoticeWeeks = 4;

constexpr std::string_view kNoticeText = "Kündigungsfrist";
constexpr std::string_view kRenewalNoticeText = "Kündigungsfrist der Verlängerung";

class Checker {
 public:
  explicit Checker(store::RecordStore& store) : store_(store) {}

  std::vector<TypeFinding> Check() {
    const schema::Table& types = Schema(table::vv_Vertragsdefinitionen);
    workspace::ForEachRow(store_, Id(types.name), [&](const store::Record& record) {
      const RowView type(types, record);
      type_ = &type;
      oid_ = record.oid;
      CheckTerms();
      CheckPositions();
      CheckAttribute("erforderliche", field::ErfordertMerkmalGruppe, field::ErfordertMerkmal,
                     field::ErfordertWert);
      CheckAttribute("gesetzte", field::SetztMerkmalGruppe, field::SetztMerkmal, field::SetztWert);
      CheckWorkflow();
      HintAtConsumers();
      return true;
    });
    return std::move(findings_);
  }

 private:
  store::TableId Id(std::string_view name) const { return store_.Catalog().Table(name); }
  const schema::Table& Schema(std::string_view name) const {
    return store_.Catalog().tables[Id(name)];
  }

  void Fault(std::string text) {
    findings_.push_back({oid_, type_->Text(field::Bezeichnung), false, std::move(text)});
  }
  void Hint(std::string text) {
    findings_.push_back({oid_, type_->Text(field::Bezeichnung), true, std::move(text)});
  }

  bool Renews() const { return type_->Long(field::Art) == schema::kArtRenewable; }

  void CheckPeriod(std::int32_t term, std::int32_t period, std::string_view what) {
    const bool fits = period > 0 && (term == 0 || definitions::PeriodFitsTerm(term, period));
    if (!fits) {
      Fault(
          fmt::format("die Zahlungsperiode {} passt nicht zur {} {} (Monate)", period, what, term));
    }
  }

  void CheckNotice(std::string_view name, std::string_view what) {
    const std::int32_t notice = type_->Long(name);
    const auto& known = definitions::kNoticePeriods;
    if (std::find(known.begin(), known.end(), std::to_string(notice)) == known.end()) {
      Fault(fmt::format("die {} {} steht nicht in der Liste", what, notice));
    }
  }

  void CheckTerms() {
    CheckPeriod(type_->Long(field::Dauer), type_->Long(field::Zahlungsperiode), "Vertragsdauer");
    CheckNotice(field::Kuendigungsfrist, kNoticeText);
    if (!Renews()) return;
    CheckPeriod(type_->Long(field::Verlaengerungsdauer),
                type_->Long(field::VerlaengerungsZahlungsperiode), "Verlängerungsdauer");
    CheckNotice(field::VerlKuendigungsfrist, kRenewalNoticeText);
  }

  void CheckPositions() {
    const store::TableId positions = Id(table::vv_Definitionspositionen);
    const auto price = contract::PriceFieldOf(type_->Long(field::VerlaengerungsZahlungsperiode));
    store::Record record;
    for (std::int64_t after = 0; store_.NextInParent(positions, oid_, after, record);
         after = record.order) {
      const RowView position(Schema(table::vv_Definitionspositionen), record);
      const std::string article = position.Text(field::Artikel);
      if (!HasKey(table::Artikel, index::Id, position.Text(field::ArtikelID)) &&
          position.Text(field::ArtikelID) != schema::kDummyArticleId) {
        Fault(fmt::format("der Artikel {} „{}“ ist nicht mehr vorhanden",
                          position.Text(field::ArtikelID), article));
      }
      const bool priced = type_->Text(field::Typ) == schema::kTypDebtor && Renews();
      if (priced && (!price || position.Double(schema::kPriceFields[*price]) == 0.0)) {
        Fault(fmt::format("der Preis von „{}“ in der Verlängerung ist 0", article));
      }
    }
  }

  // The row of that key; its Oid and ID.
  bool Seek(std::string_view table_name, std::string_view index_name, const std::string& key,
            store::Record& record) {
    const store::TableId id = Id(table_name);
    const store::IndexId at = store_.Catalog().tables[id].FindIndex(index_name).value();
    const std::string folded = store::FoldKey(key);
    return store_.NextByKey(id, at, folded, 0, record) && record.keys[at] == folded;
  }
  bool HasKey(std::string_view table_name, std::string_view index_name, const std::string& key) {
    store::Record record;
    return Seek(table_name, index_name, key, record);
  }

  void CheckAttribute(std::string_view which, std::string_view group_field,
                      std::string_view attribute_field, std::string_view value_field) {
    const std::string group = type_->Text(group_field);
    const std::string attribute = type_->Text(attribute_field);
    const std::string value = type_->Text(value_field);
    if (attribute.empty()) return;
    const auto gone = [&](std::string_view what, const std::string& name) {
      Fault(fmt::format("das {} Merkmal: {} „{}“ ist nicht mehr vorhanden", which, what, name));
    };
    store::Record group_row;
    if (!Seek(table::MerkmalgruppeAdressen, index::Merkmalgruppe, group, group_row)) {
      return gone("die Gruppe", group);
    }
    const RowView group_cells(Schema(table::MerkmalgruppeAdressen), group_row);
    store::Record attribute_row;
    if (!Seek(table::MerkmallisteAdressen, index::MerkmalgruppeIDMerkmal,
              group_cells.Text(field::ID) + attribute, attribute_row)) {
      return gone("das Merkmal", attribute);
    }
    if (value.empty() || TakesAnyValue(attribute_row.oid)) return;
    const RowView attribute_cells(Schema(table::MerkmallisteAdressen), attribute_row);
    if (!HasKey(table::WerteMerkmalAdressen, index::MerkmalIDWert,
                attribute_cells.Text(field::ID) + value)) {
      gone("der Wert", value);
    }
  }

  // Users and dates are not listed as values.
  bool TakesAnyValue(store::Oid attribute) {
    store::Record first;
    if (!store_.NextInParent(Id(table::WerteMerkmalAdressen), attribute, 0, first)) return false;
    const std::string value = RowView(Schema(table::WerteMerkmalAdressen), first).Text(field::Wert);
    return value == schema::kUserNameValue || value == schema::kDateValue;
  }

  void CheckWorkflow() {
    const std::string workflow = type_->Text(field::WorkflowID);
    if (workflow.empty()) return;
    const bool there = store_.Catalog().FindTable(table::KELDO_Vorgaenge).has_value() &&
                       HasKey(table::KELDO_Vorgaenge, index::ID, workflow);
    if (!there) Fault(fmt::format("der Workflow {} ist nicht mehr vorhanden", workflow));
  }

  void HintAtNotice(std::string_view name, std::string_view unit_field, std::string_view what) {
    const std::int32_t notice = type_->Long(name);
    const bool weeks = type_->Text(unit_field) == schema::kWeeks;
    if (notice > (weeks ? kLongestNoticeWeeks : kLongestNoticeMonths)) {
      Hint(fmt::format("Verbraucher: {} von {} {}, erlaubt ist ein Monat", what, notice,
                       weeks ? "Wochen" : "Monaten"));
    }
  }

  void HintAtConsumers() {
    if (type_->Text(field::Typ) != schema::kTypDebtor) return;
    if (type_->Long(field::Dauer) > kLongestFirstTerm) {
      Hint(fmt::format("Verbraucher: Vertragsdauer von {} Monaten, erlaubt sind {}",
                       type_->Long(field::Dauer), kLongestFirstTerm));
    }
    if (Renews()) {
      Hint(
          fmt::format("Verbraucher: Verlängerung um {} Monate, erlaubt ist nur auf unbestimmte "
                      "Zeit",
                      type_->Long(field::Verlaengerungsdauer)));
      HintAtNotice(field::VerlKuendigungsfrist, field::VerlKuendigungsfristEinh,
                   kRenewalNoticeText);
    }
    HintAtNotice(field::Kuendigungsfrist, field::KuendigungsfristEinh, kNoticeText);
  }

  store::RecordStore& store_;
  // The type that is being checked.
  const RowView* type_ = nullptr;
  store::Oid oid_ = 0;
  std::vector<TypeFinding> findings_;
};

}  // namespace

std::vector<TypeFinding> CheckTypes(store::RecordStore& store) { return Checker(store).Check(); }

}  // namespace pactora::checks
