// The rows of one contract: which fields are written, in which order, from which
// value. The roads of a save say when.
//
// Rows belong to whatever row is current in the parent table, so a parent row is
// stored before its children are made.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "host/HostTable.h"
#include "newcontract/DefinitionSource.h"
#include "platform/Date.h"
#include "shell/Module.h"

namespace pactora::newcontract {

using platform::Date;

// What the dialog holds when OK is pressed. Terms and periods are months.
struct ContractInput {
  std::string typ;
  std::int32_t art = 0;
  std::int32_t rechnung_wann = 0;
  std::int32_t dauer = 0;
  std::int32_t verl_dauer = 0;
  std::int32_t zahlungsperiode = 0;
  std::int32_t verl_zahlungsperiode = 0;
  double discount = 0.0;  // percent
  bool discount_first_term_only = false;
  bool no_booking = false;
  Date begin;
  std::optional<Date> signed_on;
  std::string memo;
  std::string responsible;
};

// A term and its billing state.
struct StatusRow {
  Date start;
  Date end;                        // kNoDate for a contract without an end
  std::string_view lauf_typ = {};  // empty: the field is not written
  bool taken_over = false;
  bool renewal = false;              // whose payment period it has
  std::optional<double> value = {};  // of one payment period; none: not written yet
  Date next_invoice;                 // kNoInvoiceDate for none
};

class ContractRows {
 public:
  // Fetches the tables and prepares them. The references must outlive the object.
  ContractRows(shell::Module& module, DefinitionSource& source, const ContractInput& input);

  // From now on the rows bear no discount. Until then it is the one that was entered.
  void DropDiscount() { discount_ = 0.0; }
  // The type's sum for one payment period of the first term, less that discount.
  double FirstTermAmount();

  // The contract row: a new one, then its fields in the order that the road
  // prescribes, then StoreNew.
  void NewContract();
  void WriteTypAndBegin();
  void WriteEnd(Date end);  // kNoDate for none
  void WriteSigned();
  void WriteTerms();  // Memo to VerlaengerungsZahlungsperiode
  void WritePeriodInForce(bool renewal);
  void WriteAmountInForce(double amount);
  void WriteNextInvoice(Date next_invoice);
  void WriteNotice(Date notice);
  void WriteResponsibility();  // Verantwortlich to NoBooking
  host::HostField& NumberField();
  void WriteNumber(const std::string& number);
  void WriteRenewal();  // workflow and, for renewing contracts, the discount's reach
  void StoreNewContract();
  void StoreContract();

  // The whole status row, stored.
  void AddStatusRow(const StatusRow& row);
  // The positions of a new contract.
  void AddNewPositions();
  // The positions of a taken-over first term.
  void AddFirstTermPositions();
  // The positions of a renewal at the price of its payment period; their sum is
  // written into the status row, which is stored again, and returned.
  double AddRenewalPositions();

 private:
  void CopyToContract(std::string_view name);
  std::string PeriodName(bool renewal);
  void WriteFirstTermPosition(DefinitionPosition& position);
  void WriteItem(DefinitionPosition& position);     // Artikelnummer to Anzahl
  void WriteAccount(DefinitionPosition& position);  // Erloeskonto to Preis
  host::Value RevenueAccount(DefinitionPosition& position);

  shell::Module& module_;
  DefinitionSource& source_;
  const ContractInput& input_;
  double discount_;  // percent
  std::shared_ptr<host::HostTable> moVertraege;
  std::shared_ptr<host::HostTable> moVertragsstaende;
  std::shared_ptr<host::HostTable> moVertragspositionen;
  std::shared_ptr<host::HostTable> moDefinitionen;  // stands on the stored type
  std::shared_ptr<host::HostTable> moArtikel;
  std::shared_ptr<host::HostFormula> account_expression_;
};

}  // namespace pactora::newcontract
