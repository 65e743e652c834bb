// An open database with the add-on loaded on it.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "embedded/Host.h"
#include "host/HostApp.h"
#include "platform/Clock.h"
#include "platform/Locale.h"
#include "shell/Module.h"
#include "shell/entry/CVV.h"
#include "store/RecordStore.h"
#include "ui/Screen.h"

namespace pactora::workspace {

class Session {
 public:
  // Without a locale numbers are read and written in German form, so that a file means
  // the same on every machine; the windows pass the user's locale. Screen and clock
  // must outlive the session.
  Session(std::unique_ptr<store::RecordStore> store, ui::Screen& screen,
          const platform::Clock& clock, const platform::Locale& locale = {});

  embedded::Host& Host() { return host_; }
  store::RecordStore& Store() { return host_.Store(); }
  std::shared_ptr<host::HostApp> App() { return host_.App(); }
  shell::Module& AddOn() { return module_; }
  // The one entry object; another one after EndUnit has failed.
  shell::CVV& Entry() { return *entry_; }

  // The Oid of the current contract; 0 for none.
  store::Oid CurrentContract();

  // Ends the unit of work of a call. Raises what made it fail, wherever in the call that was; a
  // dialog that the entry object still held took what is lost for saved, and is gone then.
  void EndUnit();
  // Likewise, given the contract that was current before the call: where it is uncertain whether
  // another one is stored, the error names that.
  void EndUnit(store::Oid contract_before);

  // Makes the row, and its parents in their tables, the current row.
  void GoTo(store::TableId table, store::Oid oid);
  // Leaves the table without a current row.
  void GoNowhere(store::TableId table);

 private:
  embedded::Host host_;
  shell::Module module_;
  std::unique_ptr<shell::CVV> entry_;
};

}  // namespace pactora::workspace
