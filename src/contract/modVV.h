// What the dialogs and the dialog-free path share: period names, contract
// numbers, appointments and persistent-variable settings. No routine keeps state;
// all work on the module's gDb.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "host/HostTable.h"
#include "platform/Date.h"
#include "shell/Module.h"

namespace pactora::contract {

// The German name of a payment period of so many months: "monatlich" for 1,
// "einmalig" for 2, 4, 5 and 7 to 11, the empty text for any number without one.
std::string GetPeriodName(std::int32_t lPeriod);

// The value of the persistent variable whose name equals the first 30 characters
// of psSetting exactly, as text; psDefault, which is not stored, if there is
// none. A host error is shown and gives the empty text.
std::string ReadPersistVarSetting(shell::Module& module, std::string_view psSetting,
                                  std::string_view psDefault);

// The weeks between an alarm and the last day for notice, and between an alarm and
// the end of a contract, as the settings say; 6 and 4 where they say nothing.
// Raises error 13 for a setting that is no whole number.
std::int32_t ReadAlarmWochenKuendigung(shell::Module& module);
std::int32_t ReadAlarmWochenEnde(shell::Module& module);

// Draws the next number of the counter for this client and field: at least eight
// digits, cut to the field's last Size() characters. The counter is made on first
// use. Raises 0x80040002 when the client is missing from the client table.
std::string GetNextNumber(shell::Module& module, host::HostField& oField);

// Makes the counter's row with "00000000" under the client's row and leaves it
// current in oNumbers.
void CreateNumberRecord(shell::Module& module, host::HostTable& oNumbers, std::string_view sTabelle,
                        std::string_view sFeld);

inline constexpr std::int32_t kAlarmNotice = 1;  // last day for notice
inline constexpr std::int32_t kAlarmEnd = 2;     // end of the contract

// Makes the appointment (sOid empty) or changes the one with that Oid: on dtAlarm
// at 09:00 for sUser, its subject naming dtDatum. A new one's Oid goes into
// AlarmOID of the current contract row, which is stored. An error is shown inline.
void CreateCancellationAlarm(shell::Module& module, const std::string& sOid, platform::Date dtAlarm,
                             platform::Date dtDatum, const std::string& sUser, std::int32_t lKind);

// Likewise for a contract that is not signed yet.
void CreateOpenAlarm(shell::Module& module, const std::string& sOid, platform::Date dtAlarm,
                     const std::string& sUser);

}  // namespace pactora::contract
