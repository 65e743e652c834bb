// Databases by the name that the command line gives them: a file or ":memory:". A
// "postgresql://" address is no file name: it is refused.
#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/Error.h"
#include "store/OpenMode.h"
#include "store/Profile.h"
#include "store/RecordStore.h"

namespace pactora::workspace {

using Access = store::OpenMode;

// What is said at the end of a rehearsal.
inline constexpr const char* kRehearsed = "Probelauf, nichts geschrieben";

inline constexpr const char* kMemoryName = ":memory:";

// The name that a database gets when nobody names it: that of its file.
std::string DefaultDatabaseName(const std::string& name);

// The user of a database that names none.
inline constexpr const char* kDefaultUser = "Benutzer";

// A database of that name with one user and no settings.
store::Profile DefaultProfile(const std::string& name);

// Whether there is something under that name; never for ":memory:".
bool DatabaseExists(const std::string& name);

// While any database is waited for because other users keep it, called about twenty
// times a second, on the thread that waits and with how long it has waited: true ends
// the wait, which raises StoreError::Locked. Must not use that database.
void GiveUpWaitingWhen(bool (*asked)(std::chrono::milliseconds waited));

// Opens a database; ":memory:" is a new, empty one. Raises what the store raises,
// and DoorError::NotAvailable for a kind that this build can't open.
std::unique_ptr<store::RecordStore> OpenDatabase(const std::string& name, Access access);

// Makes a database, has it filled, and puts it in its place when that succeeded: a
// failure leaves nothing behind. For a rehearsal nothing is made.
// Raises DoorError::BadInput where the name is taken, and what fill raises.
void MakeDatabase(const std::string& name, bool workflow_add_on, const store::Profile& profile,
                  Access access, const std::function<void(store::RecordStore&)>& fill);

// Raises DoorError::BadInput for a file to be written that belongs to the database.
void RequireOutside(const std::string& database, const std::string& file);

// The error with the database's name in its description, if it is one of the storage,
// or concerns the whole database, and does not have it yet.
platform::Error Named(const std::string& database, const platform::Error& error);

// Runs body; errors that it raises are named.
template <typename Body>
auto Naming(const std::string& database, const Body& body) {
  try {
    return body();
  } catch (const platform::Error& error) {
    throw Named(database, error);
  }
}

// Whether no table has a row.
bool IsEmpty(store::RecordStore& store);

// What the storage itself finds wrong with its file; empty for ":memory:".
std::vector<std::string> CheckStorage(const std::string& name);

}  // namespace pactora::workspace
