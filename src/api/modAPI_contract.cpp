// The contract row, its appointments and the status row.
#include "api/modAPI.h"
#include "api/vv_CContractD.h"
#include "contract/dates.h"
#include "contract/modVV.h"
#include "host/Value.h"
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

class RowWriter {
 public:
  explicit RowWriter(host::HostTable& table) : fields_(table.Fields()) {}
  void operator()(std::string_view name, const host::Value& value) {
    fields_.Item(name).SetValue(value);
  }

 private:
  host::HostFields& fields_;
};

// The fields up to the one that the alarm setting is read after.
void WriteTerms(host::HostTable& table, const vv_CContractD& contract, const ContractDates& dates) {
  const bool renewable = IsRenewable(contract);
  RowWriter write(table);
  write(field::Typ, schema::kTypDebtor);
  write(field::VertragBeginn, dates.begin);
  write(field::VertragEnde, dates.end);
  write(field::GeschlossenAm, contract.VertragGeschlossenAm);
  write(field::Memo, contract.Memo);
  write(field::RabattNurErsteLaufzeit, contract.RabattNurErsteLaufzeit);
  write(field::Bezeichnung, contract.Bezeichnung);
  write(field::Auftragsnummer, contract.Auftragsnummer);
  write(field::Art, contract.lVertragArt);
  write(field::ArtStr, schema::ArtText(contract.lVertragArt));
  write(field::Dauer, contract.Dauer);
  if (renewable) {
    write(field::Verlaengerungsdauer, contract.Verlaengerungsdauer);
    write(field::Kuendigungsfrist, contract.KuendFristInWochen);
    write(field::KuendigungsfristEinh, schema::kWeeks);
    write(field::VerlKuendigungsfrist, contract.KuendFristInWochen);
    write(field::VerlKuendigungsfristEinh, schema::kWeeks);
  }
  write(field::Zahlungsperiode, contract.Zahlungsperiode);
  if (renewable) {
    write(field::VerlaengerungsZahlungsperiode, contract.VerlaengerungsZahlungsperiode);
  }
  write(field::AktZahlungsperiode, contract.Zahlungsperiode);
  write(field::AktZahlungsperiodeStr, contract::GetPeriodName(contract.Zahlungsperiode));
  write(field::AktNaechsteRechnung, dates.begin);
  write(field::AktNaechsteRechnungStr, dates.begin_text);
  if (renewable) write(field::KuendfristDatum, dates.notice);
}

void WriteStatusRow(host::HostTable& table, const vv_CContractD& contract,
                    const ContractDates& dates) {
  table.GotoRec(table.NewRecordOid(host::kFlagsNone));
  RowWriter write(table);
  write(field::LaufzeitStart, dates.begin);
  write(field::LaufzeitStartStr, dates.begin_text);
  write(field::LaufzeitEnde, dates.end);
  write(field::LaufzeitEndeStr, contract::SortText(dates.end));
  write(field::Zahlungsperiode, contract.Zahlungsperiode);
  write(field::ZahlungsperiodeStr, contract::GetPeriodName(contract.Zahlungsperiode));
  write(field::RechnungWann, schema::kInAdvance);
  write(field::NaechsteRechnung, dates.begin);
  write(field::NaechsteRechnungStr, dates.begin_text);
  write(field::Rabattprozent, contract.dblRabatt);
  table.StoreNew(host::kFlagsUsual);
}

}  // namespace

bool CreateVandVS(shell::Module& module) {
  return shell::RaisingAgain(shell::module_name::modAPI, "CreateVandVS", [&] {
    const vv_CContractD& contract = *module.gApiContract;
    const ContractDates dates = DatesOf(contract);
    module.gApiVertragEnde = dates.end;

    host::HostTable& contracts = *module.gApiVertraege;
    contracts.GotoRec(contracts.NewRecordOid(host::kFlagsNone));
    WriteTerms(contracts, contract, dates);
    const Alarm alarm = AlarmOf(module, contract, dates);
    const std::string user = module.gDb->Users().CurrentUser().Name();
    RowWriter write(contracts);
    write(field::Verantwortlich, user);
    write(field::NoBooking, false);
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
