#include "contract/modVV.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <memory>

#include "host/row.h"
#include "platform/Text.h"
#include "schema/names.h"
#include "shell/handlers.h"
#include "shell/leading_number.h"

namespace pactora::contract {

namespace {

namespace field = schema::field;
namespace table = schema::table;

constexpr std::size_t kSettingKeyLength = 30;
constexpr std::uint32_t kClientMissing = 0x80040002;
constexpr double kNineInTheMorning = 0.375;
constexpr char kFirstNumber[] = "00000000";

constexpr std::string_view kOpenSubject = "Vertragsabschluss ist noch nicht erfolgt?";

std::string CancellationSubject(std::int32_t kind, platform::Date date) {
  const std::string day = platform::FormatDate(date, platform::kGermanPattern);
  if (kind == kAlarmNotice) return "Kündigungsfrist läuft am  " + day + "  aus";
  if (kind == kAlarmEnd) return "Vertrag läuft am  " + day + "  aus";
  return {};
}

// Makes or changes an appointment of the current contract. subject is called
// once the appointment's row is current.
template <typename Subject>
void WriteAppointment(shell::Module& module, const std::string& sOid, platform::Date dtAlarm,
                      const std::string& sUser, Subject subject) {
  host::HostTables& tables = module.gDb->Tables();
  const std::shared_ptr<host::HostTable> contracts = tables.Item(table::vv_Vertraege);
  const std::shared_ptr<host::HostTable> appointments = tables.Item(table::vv_VertragsAktivitaeten);
  ShowAllRows(*appointments, host::kFlagsUsual);

  const bool is_new = sOid.empty();
  if (is_new) {
    BeginNewRow(*appointments);
  } else if (!appointments->FindOid(sOid, host::kFlagsUsual)) {
    return;
  }
  Set(*appointments, field::Typ, schema::kAppointmentTyp);
  Set(*appointments, field::Betreff, subject());
  Set(*appointments, field::Datum, platform::Date{dtAlarm.days + kNineInTheMorning});
  Set(*appointments, field::Erledigt, false);
  Set(*appointments, field::Verantwortlich, sUser);
  if (!is_new) {
    appointments->Store(host::kFlagsUsual);
    return;
  }
  appointments->StoreNew(host::kFlagsUsual);
  Set(*contracts, field::AlarmOID, appointments->Oid());
  contracts->Store(host::kFlagsUsual);
}

// At least eight digits, a sign not counted; halves go away from zero.
std::string FormatNumber(double number) {
  std::array<char, 400> text{};
  const double whole = std::round(number);
  const int length =
      std::snprintf(text.data(), text.size(), "%s%08.0f", whole < 0 ? "-" : "", std::abs(whole));
  return std::string(text.data(), static_cast<std::size_t>(length));
}

}  // namespace

std::string GetPeriodName(std::int32_t lPeriod) {
  switch (lPeriod) {
    case 1:
      return "monatlich";
    case 3:
      return "vierteljährlich";
    case 6:
      return "halbjährlich";
    case 12:
      return "jährlich";
    case 24:
      return "zweijährlich";
    case 36:
      return "dreijährlich";
    case 48:
      return "vierjährlich";
    case 60:
      return "fünfjährlich";
    default:
      return lPeriod >= 2 && lPeriod <= 11 ? "einmalig" : "";
  }
}

std::string ReadPersistVarSetting(shell::Module& module, std::string_view psSetting,
                                  std::string_view psDefault) {
  std::string result;
  shell::WithReporter(module, shell::module_name::modVV, "ReadPersistVarSetting", [&] {
    const std::string_view key = platform::FirstCharacters(psSetting, kSettingKeyLength);
    bool found = false;
    std::string value;
    module.gDb->Formulas().PersistVars().ForEach([&](host::HostPersistVar& variable) {
      found = variable.Name() == key;
      if (found) value = host::ToText(variable.Value());
      return !found;
    });
    result = found ? std::move(value) : std::string(psDefault);
  });
  return result;
}

std::int32_t ReadAlarmWochenKuendigung(shell::Module& module) {
  return host::ToLong(
      ReadPersistVarSetting(module, schema::setting::vv_AlarmWochenKuendigung, "6"));
}

std::int32_t ReadAlarmWochenEnde(shell::Module& module) {
  return host::ToLong(ReadPersistVarSetting(module, schema::setting::vv_AlarmWochenEnde, "4"));
}

std::string GetNextNumber(shell::Module& module, host::HostField& oField) {
  host::HostTables& tables = module.gDb->Tables();
  const std::string client = platform::UpperCase(tables.Database().Name());
  const std::string table_name = platform::UpperCase(oField.Parent().Parent().Name());
  const std::string field_name = platform::UpperCase(oField.Name());
  const std::string key = table_name + field_name;

  const std::shared_ptr<host::HostTable> numbers = tables.Item(table::KELM_Nummern);
  host::HostIndexes& indexes = numbers->Indexes();
  indexes.Select(schema::index::Tabelle_Feld, host::kFlagsUsual);
  const auto at_key = [&] {
    const std::shared_ptr<host::HostIndex> index = indexes.Current();
    return index && index->KeyValue() == host::Value(key);
  };
  const auto create = [&] { CreateNumberRecord(module, *numbers, table_name, field_name); };

  if (!numbers->SeekNear(key, host::kFlagsUsual)) create();
  if (!at_key()) create();
  // Counters of other clients carry the same key.
  bool found = false;
  while (!numbers->Eof() && at_key()) {
    found = platform::UpperCase(GetText(*numbers->ParentTable(), field::TessarinName)) == client;
    if (found) break;
    numbers->MoveNext(1, host::kFlagsUsual);
  }
  if (!found) create();

  host::HostField& counter = numbers->Fields().Item(field::Nummer);
  const std::string number =
      FormatNumber(shell::LeadingNumber(host::ToText(counter.Value())) + 1.0);
  counter.SetValue(number);
  numbers->Store(host::kFlagsUsual);
  const auto size = static_cast<std::size_t>(std::max(oField.Size(), 0));
  return std::string(platform::LastCharacters(number, size));
}

void CreateNumberRecord(shell::Module& module, host::HostTable& oNumbers, std::string_view sTabelle,
                        std::string_view sFeld) {
  const std::shared_ptr<host::HostIndex> index = oNumbers.Indexes().Current();
  if (!index) platform::Raise(platform::RuntimeError::ObjectNotSet);
  const std::string index_name = index->Name();

  host::HostTables& tables = module.gDb->Tables();
  const std::shared_ptr<host::HostTable> clients = tables.Item(table::KELM_Mandanten);
  clients->Indexes().Select(schema::index::tessarinName, host::kFlagsNone);
  if (!clients->SeekKey(tables.Database().Name(), host::kFlagsNone)) {
    throw platform::Error(platform::ErrorNumber(kClientMissing),
                          "Mandant " + tables.Database().DisplayName(host::kFlagsNone) +
                              " fehlt in Mandantentabelle!");
  }
  BeginNewRow(oNumbers);
  Set(oNumbers, field::Tabelle, sTabelle);
  Set(oNumbers, field::Feld, sFeld);
  Set(oNumbers, field::Nummer, kFirstNumber);
  oNumbers.StoreNew(host::kFlagsNone);
  oNumbers.Indexes().Select(index_name, host::kFlagsNone);
}

void CreateCancellationAlarm(shell::Module& module, const std::string& sOid, platform::Date dtAlarm,
                             platform::Date dtDatum, const std::string& sUser, std::int32_t lKind) {
  shell::WithInlineMessage(module, shell::module_name::modVV, "CreateCancellationAlarm", [&] {
    WriteAppointment(module, sOid, dtAlarm, sUser,
                     [&] { return CancellationSubject(lKind, dtDatum); });
  });
}

void CreateOpenAlarm(shell::Module& module, const std::string& sOid, platform::Date dtAlarm,
                     const std::string& sUser) {
  shell::WithInlineMessage(module, shell::module_name::modVV, "CreateOpenAlarm", [&] {
    WriteAppointment(module, sOid, dtAlarm, sUser, [] { return kOpenSubject; });
  });
}

}  // namespace pactora::contract
