// The contract row, its appointments and the status row.
#include "api/modAPI.h"
#include "api/vv_CContractD.h"
#include "contract/dates.h"
#include "contract/modVV.h"
#include "host/Value.h"
#include "host/row.h"
#include "shell/handlers.h"

namespace pactora::api {

namespace {

namespace field = schema::field;

constexpr std::int32_t kDaysUntilOpenAlarm = 2;

// What both rows and the appointments share.
struct ContractDates {
  host::Date begin;
  host::Value begin_text;
  host::Date end;
  host::Date notice;  // kind 1 only
};

struct Alarm {
  bool wanted = false;
  host::Date day;    // of the appointment
  host::Date named;  // in its subject
  std::int32_t kind = 0;
};

bool IsRenewable(const vv_CContractD& contract) {
  return contract.lVertragArt == schema::kArtRenewable;
}

ContractDates DatesOf(const vv_CContractD& contract) {
  ContractDates dates;
  dates.begin = contract.VertragBeginn;
  dates.end = contract::TermEnd(dates.begin, contract.Dauer);
  dates.begin_text = contract::SortText(dates.begin);
  if (IsRenewable(contract)) {
    dates.notice = contract::NoticeDate(dates.end, contract.KuendFristInWochen, schema::kWeeks);
  }
  return dates;
}

// The end of a contract is always announced, the last day for notice only if all
// contracts get an appointment.
Alarm AlarmOf(shell::Module& module, const vv_CContractD& contract, const ContractDates& dates) {
  if (!IsRenewable(contract)) {
    const std::int32_t weeks = contract::ReadAlarmWochenEnde(module);
    return {true, contract::WeeksBefore(dates.end, weeks), dates.end, contract::kAlarmEnd};
  }
  if (!module.gAppointment4AllContracts) return {};
  const std::int32_t weeks = contract::ReadAlarmWochenKuendigung(module);
  return {true, contract::WeeksBefore(dates.notice, weeks), dates.notice, contract::kAlarmNotice};
}

// The fields up to the one that the alarm setting is read after.
void WriteTerms(host::HostTable& table, const vv_CContractD& contract, const ContractDates& dates) {
  const bool renewable = IsRenewable(contract);
  Set(table, field::Typ, schema::kTypDebtor);
  Set(table, field::VertragBeginn, dates.begin);
  Set(table, field::VertragEnde, dates.end);
  Set(table, field::GeschlossenAm, contract.VertragGeschlossenAm);
  Set(table, field::Memo, contract.Memo);
  Set(table, field::RabattNurErsteLaufzeit, contract.RabattNurErsteLaufzeit);
  Set(table, field::Bezeichnung, contract.Bezeichnung);
  Set(table, field::Auftragsnummer, contract.Auftragsnummer);
  Set(table, field::Art, contract.lVertragArt);
  Set(table, field::ArtStr, schema::ArtText(contract.lVertragArt));
  Set(table, field::Dauer, contract.Dauer);
  if (renewable) {
    Set(table, field::Verlaengerungsdauer, contract.Verlaengerungsdauer);
    Set(table, field::Kuendigungsfrist, contract.KuendFristInWochen);
    Set(table, field::KuendigungsfristEinh, schema::kWeeks);
    Set(table, field::VerlKuendigungsfrist, contract.KuendFristInWochen);
    Set(table, field::VerlKuendigungsfristEinh, schema::kWeeks);
  }
  Set(table, field::Zahlungsperiode, contract.Zahlungsperiode);
  if (renewable) {
    Set(table, field::VerlaengerungsZahlungsperiode, contract.VerlaengerungsZahlungsperiode);
  }
  Set(table, field::AktZahlungsperiode, contract.Zahlungsperiode);
  Set(table, field::AktZahlungsperiodeStr, contract::GetPeriodName(contract.Zahlungsperiode));
  Set(table, field::AktNaechsteRechnung, dates.begin);
  Set(table, field::AktNaechsteRechnungStr, dates.begin_text);
  if (renewable) Set(table, field::KuendfristDatum, dates.notice);
}

void WriteStatusRow(host::HostTable& table, const vv_CContractD& contract,
                    const ContractDates& dates) {
  BeginNewRow(table);
  Set(table, field::LaufzeitStart, dates.begin);
  Set(table, field::LaufzeitStartStr, dates.begin_text);
  Set(table, field::LaufzeitEnde, dates.end);
  Set(table, field::LaufzeitEndeStr, contract::SortText(dates.end));
  Set(table, field::Zahlungsperiode, contract.Zahlungsperiode);
  Set(table, field::ZahlungsperiodeStr, contract::GetPeriodName(contract.Zahlungsperiode));
  Set(table, field::RechnungWann, schema::kInAdvance);
  Set(table, field::NaechsteRechnung, dates.begin);
  Set(table, field::NaechsteRechnungStr, dates.begin_text);
  Set(table, field::Rabattprozent, contract.dblRabatt);
  table.StoreNew(host::kFlagsUsual);
}

}  // namespace

bool CreateVandVS(shell::Module& module) {
  return shell::RaisingAgain(shell::module_name::modAPI, "CreateVandVS", [&] {
    const vv_CContractD& contract = *module.gApiContract;
    const ContractDates dates = DatesOf(contract);
    module.gApiVertragEnde = dates.end;

    host::HostTable& contracts = *module.gApiVertraege;
    BeginNewRow(contracts);
    WriteTerms(contracts, contract, dates);
    const Alarm alarm = AlarmOf(module, contract, dates);
    const std::string user = module.gDb->Users().CurrentUser().Name();
    Set(contracts, field::Verantwortlich, user);
    Set(contracts, field::NoBooking, false);
    host::HostField& number = contracts.Fields().Item(field::Vertragnummer);
    module.gApiVertragnummer = contract::GetNextNumber(module, number);
    number.SetValue(module.gApiVertragnummer);
    contracts.StoreNew(host::kFlagsUsual);

    if (alarm.wanted) {
      contract::CreateCancellationAlarm(module, {}, alarm.day, alarm.named, user, alarm.kind);
    }
    if (contract.VertragGeschlossenAm == platform::kNoDate) {
      const host::Date day =
          contract::AddDays(module.environment.clock.Today(), kDaysUntilOpenAlarm);
      contract::CreateOpenAlarm(module, {}, day, user);
    }
    WriteStatusRow(*module.gApiVertragsstaende, contract, dates);
    return true;
  });
}

}  // namespace pactora::api
