// The position rows of a contract.
#include "contract/money.h"
#include "host/row.h"
#include "newcontract/ContractRows.h"
#include "schema/names.h"

namespace pactora::newcontract {

namespace field = schema::field;

namespace {

// The price of one unit for a payment period of so many months; 0 for a period
// that has no price of its own.
double PeriodPrice(DefinitionPosition& position, std::int32_t months) {
  const std::optional<std::size_t> price = contract::PriceFieldOf(months);
  return price ? host::ToDouble(position.Field(schema::kPriceFields[*price])) : 0.0;
}

}  // namespace

void ContractRows::AddNewPositions() {
  source_.ForEachPosition(PositionOrder::ByGroup, [this](DefinitionPosition& position) {
    WriteFirstTermPosition(position);
    for (const std::string_view name :
         {field::Positionsnummer, field::Gruppierung, field::Gruppierungsposition}) {
      Set(*moVertragspositionen, name, position.Field(name));
    }
    moVertragspositionen->StoreNew(host::kFlagsUsual);
  });
}

void ContractRows::AddFirstTermPositions() {
  source_.ForEachPosition(PositionOrder::ByList, [this](DefinitionPosition& position) {
    WriteFirstTermPosition(position);
    moVertragspositionen->StoreNew(host::kFlagsUsual);
  });
}

double ContractRows::AddRenewalPositions() {
  double sum = 0.0;
  source_.ForEachPosition(PositionOrder::ByList, [&](DefinitionPosition& position) {
    host::HostTable& row = *moVertragspositionen;
    const double quantity = host::ToDouble(position.Field(field::Anzahl));
    BeginNewRow(row);
    const double price = PeriodPrice(position, input_.verl_zahlungsperiode);
    const double discounted = contract::ApplyDiscount(price, discount_);
    Set(row, field::Nettopreis, discounted);
    sum += quantity * discounted;
    Set(row, field::Artikel, position.Field(field::Artikel));
    WriteItem(position);
    WriteAccount(position);
    Set(row, field::NettoOhneRabatt, price);
    Set(row, field::Rabattprozent, discount_);
    row.StoreNew(host::kFlagsUsual);
  });
  Set(*moVertragsstaende, field::Value, sum);
  moVertragsstaende->Store(host::kFlagsUsual);
  return sum;
}

void ContractRows::WriteFirstTermPosition(DefinitionPosition& position) {
  host::HostTable& row = *moVertragspositionen;
  BeginNewRow(row);
  Set(row, field::Artikel, position.Field(field::Artikel));
  const host::Value undiscounted = position.Field(field::NettoOhneRabatt);
  Set(row, field::Nettopreis, contract::ApplyDiscount(host::ToDouble(undiscounted), discount_));
  WriteItem(position);
  WriteAccount(position);
  Set(row, field::NettoOhneRabatt, undiscounted);
  Set(row, field::Rabattprozent, discount_);
}

void ContractRows::WriteItem(DefinitionPosition& position) {
  for (const std::string_view name : {field::Artikelnummer, field::Artikelart, field::Einheit,
                                      field::UStSatz, field::Beschreibung, field::Anzahl}) {
    Set(*moVertragspositionen, name, position.Field(name));
  }
}

void ContractRows::WriteAccount(DefinitionPosition& position) {
  host::HostTable& row = *moVertragspositionen;
  Set(row, field::Erloeskonto, RevenueAccount(position));
  Set(row, field::ArtikelID, position.Field(field::ArtikelID));
  Set(row, field::Row, position.Field(field::Row));
  for (const std::string_view name : schema::kPriceFields) Set(row, name, position.Field(name));
  Set(row, field::Preis, position.Field(field::Preis));
}

// The account is asked of the article as it is today. Of an article that is gone
// the position's own account is kept.
//
// The cursor is not moved to the first article before each seek: the seek decides
// alone where it stands, and the move would cost a statement for each position.
host::Value ContractRows::RevenueAccount(DefinitionPosition& position) {
  const std::string article = host::ToText(position.Field(field::ArtikelID));
  if (!moArtikel->SeekKey(article, host::kFlagsUsual)) {
    return host::ToLong(position.Field(field::Erloeskonto));
  }
  if (!account_expression_) {
    account_expression_ =
        module_.gDb->Formulas().Compile(schema::expression::Erloeskonto, host::kFlagsNone);
  }
  return account_expression_->Eval(host::kFlagsNone);
}

}  // namespace pactora::newcontract
