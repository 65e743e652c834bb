// The embedded host: live tables and cursors over a record store.
//
// One Host serves one open database and one user-interface thread. The objects
// of host/ that it hands out stay valid as long as someone holds them; after the
// Host is gone they raise an error when used.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "host/HostApp.h"
#include "store/RecordStore.h"

namespace pactora::embedded {

// Failures of the host itself; those of the storage are in store/errors.h.
enum class HostError : std::uint32_t {
  UnknownTable = 0x80041001,
  UnknownField = 0x80041002,
  UnknownIndex = 0x80041003,
  UnknownName = 0x80041004,  // setting, variable or user
  NameTaken = 0x80041005,
  NoCurrentRow = 0x80041006,
  NoIndexSelected = 0x80041007,
  NoParentRow = 0x80041008,  // a new row needs a stored current row in the parent table
  NoParentTable = 0x80041009,
  InvalidPosition = 0x8004100A,
  RowNotFound = 0x8004100B,
  RowNotStored = 0x8004100C,      // Store or DeleteRec on a row that was never stored
  RowAlreadyStored = 0x8004100D,  // StoreNew on a row that exists
  RowChanged = 0x8004100E,        // changed or deleted by another user since it was read
  UnknownExpression = 0x8004100F,
  HostClosed = 0x80041010,
  InvalidIndex = 0x80041011,  // an index of another table
};

constexpr std::int32_t Number(HostError error) {
  return platform::ErrorNumber(static_cast<std::uint32_t>(error));
}

// Called at the start of every operation of the host layer; raising there makes
// that operation fail. The operation is named as in host/ ("StoreNew", "SeekKey",
// "SetValue"), the table is empty for operations that belong to none.
class OperationProbe {
 public:
  virtual ~OperationProbe() = default;
  virtual void Before(std::string_view operation, std::string_view table) = 0;
};

class Core;  // the state behind the handed-out objects

class Host {
 public:
  explicit Host(std::unique_ptr<store::RecordStore> store);
  ~Host();  // drops an open unit of work
  Host(const Host&) = delete;
  Host& operator=(const Host&) = delete;

  std::shared_ptr<host::HostApp> App();
  store::RecordStore& Store();
  // The live table, as host::HostTables::Item gives it.
  std::shared_ptr<host::HostTable> Table(std::string_view name);

  // Makes what was stored since the last call durable, while the add-on waits for a person.
  // Raises where that fails, and the same again from every further call: what is stored from
  // then on is lost too, so that whoever made the add-on work learns of it from EndUnit,
  // whatever the add-on made of the error.
  void SaveUnit();

  // Likewise, and ends the unit of work. Called by the doors when the add-on has returned, in
  // bulk after a group of contracts. On an error nothing of the unit remains, all tables are at
  // Eof, and the error is raised.
  void EndUnit();

  // Drops what was stored since the last EndUnit and reads the profile again; all
  // tables are at Eof.
  void DropUnit();

  // Marks this moment of the unit, which it opens if none is open. DropToSavepoint drops
  // what was stored since and otherwise does what DropUnit does; the unit goes on.
  void SetSavepoint();
  void DropToSavepoint();

  // Null switches it off. The probe must outlive its use.
  void SetProbe(OperationProbe* probe);
  // Called with each macro run, with the path "project/module/procedure".
  void SetMacroListener(
      std::function<void(const std::string& path, const host::ValueArray& args)> listener);

 private:
  std::shared_ptr<Core> core_;
};

// The host's texts for the numbers of HostError, StoreError and run-time errors;
// "Unbekannter Fehler" for any other.
std::shared_ptr<host::HostErrorTexts> CreateErrorTexts();

}  // namespace pactora::embedded
