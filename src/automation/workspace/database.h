// Databases by the name that the command line gives them: a file, ":memory:", or a schema on
// a server by its address, "postgresql://..." or "service=...".
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

// The message at the end of a rehearsal.
inline constexpr const char* kRehearsed = "Probelauf, nichts geschrieben";

inline constexpr const char* kMemoryName = ":memory:";

// The name of a database that is given none: that of its file.
std::string DefaultDatabaseName(const std::string& name);

// What tells the database apart from all others, whatever their names; its name for a
// database that was never written since it has been given one.
std::string IdOf(const store::Profile& profile);

// Whether the name is an address on a server, be there a database or not.
bool IsServer(const std::string& name);

// Whether a database or another file has that name, or the schema holds anything; false for
// ":memory:".
bool DatabaseExists(const std::string& name);
// Raises DoorError::BadInput because of that.
[[noreturn]] void RaiseTaken(const std::string& name);

// From now on called with a message for people for each file whose earlier structure has been
// brought to today's when it was opened.
void ReportMigrationTo(std::function<void(const std::string& message)> report);

// asked is called again and again while a database waits for other users,
// on the waiting thread, with the time since the wait began. Once it returns true, the
// wait ends and raises StoreError::Locked. asked must not use that database.
void GiveUpWaitingWhen(bool (*asked)(std::chrono::milliseconds waited));

// Opens a database, and gives it an id if it has none and can be written; ":memory:" is a
// new, empty one. Raises what the store raises,
// and DoorError::NotAvailable for a kind that this build can't open.
std::unique_ptr<store::RecordStore> OpenDatabase(const std::string& name, Access access);

// Makes a database, calls fill, and only then puts it into its place: a failure leaves
// nothing behind. A rehearsal makes no file and no schema.
// Raises DoorError::BadInput where the name is taken, also by a link that leads nowhere, and
// what fill raises.
void MakeDatabase(const std::string& name, bool workflow_add_on, const store::Profile& profile,
                  Access access, const std::function<void(store::RecordStore&)>& fill);

// Raises DoorError::BadInput for a file to be written that belongs to the database.
void RequireOutside(const std::string& database, const std::string& file);

// Likewise for one that is another database; way_out says what to do about that.
void RequireNoDatabase(const std::string& database, const std::string& file,
                       const std::string& way_out = {});

// The error with the database's name in its description, if the storage raised it or
// it concerns the whole database. A name that is there already is not repeated.
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

// What the storage itself finds wrong with a database, and the copy of one moment that it
// looked at; null where that can't be walked.
struct StorageCheck {
  std::vector<std::string> faults;
  std::vector<std::string> additions;  // of others, which refuse writing, but no reading
  std::unique_ptr<store::RecordStore> store;
};
StorageCheck CheckStorage(const std::string& name);

}  // namespace pactora::workspace
