// A snapshot of a table's cursor. The add-on shares the host's live tables with
// the user; a routine that searches one freely takes a snapshot before and puts
// the cursor back afterwards.
#pragma once

#include <memory>
#include <string>

#include "host/HostTable.h"
#include "host/Value.h"
#include "shell/Module.h"

namespace pactora::shell {

// The snapshot holds references and copies no row. Its destruction restores
// nothing. Errors of the host reach the caller.
class CTableProperties {
 public:
  // The module must outlive the snapshot.
  explicit CTableProperties(Module& module) : module_(module) {}
  virtual ~CTableProperties() = default;

  virtual void Init(const std::shared_ptr<host::HostTable>& pTable) { mTable = pTable; }

  // Overwrites an earlier snapshot. Raises error 91 without a table.
  virtual void Save();

  // Puts back the two modes, then the row, then the index; with
  // pbRestoreApplication the application's current objects and state as well.
  // A row that is gone leaves the cursor where it is, and so does a saved Eof; no
  // index selected at Save leaves the index alone. Does nothing before a Save.
  virtual void Restore(bool pbRestoreApplication = false);

 private:
  Module& module_;
  std::shared_ptr<host::HostTable> mTable;
  std::string msOid;
  std::shared_ptr<host::HostIndex> mIndex;
  bool mbCursorFlagA = false;
  bool mbCursorFlagB = false;
  host::ObjectRef mSelectionA;
  host::ObjectRef mSelectionB;
  host::ObjectRef mSelectionC;
  bool mbApplicationFlag = false;
  bool mbSaved = false;
};

}  // namespace pactora::shell
