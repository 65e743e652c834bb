// The loaded add-on: its module globals and the seams it was loaded with.
//
// The globals live as long as the component is loaded, there is one set of
// them, and no operation clears them: each entry call overwrites gHostApp, gDb
// and gVersionText and leaves the rest as the last call left it. Everything
// runs on the host's user-interface thread, one entry call at a time.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host/HostApp.h"
#include "host/HostDb.h"
#include "host/HostTable.h"
#include "platform/Clock.h"
#include "platform/Date.h"
#include "platform/Error.h"
#include "platform/Locale.h"
#include "ui/Screen.h"

namespace pactora::definitions {
class vv_CDefinition;
class vv_CPosition;
}  // namespace pactora::definitions
namespace pactora::api {
class vv_CContractD;
class vv_CArticle;
class ArticleCollection;
struct ApiPositionRow;
}  // namespace pactora::api

namespace pactora::shell {

class CAddonError;

// What the component finds on the machine it is loaded on. The references must
// outlive the module.
struct Environment {
  ui::Screen& screen;
  const platform::Clock& clock;
  platform::Locale locale;
  // Makes the host's error text object; never null.
  std::function<std::shared_ptr<host::HostErrorTexts>()> create_error_texts;
  // The host's own global application object; used by CConfig::ReadSetting only.
  std::function<std::shared_ptr<host::HostApp>()> global_host_app;
};

// Collections count from 1 for their users; a vector holds them in that order.
using PositionCollection = std::vector<std::shared_ptr<definitions::vv_CPosition>>;

class Module {
 public:
  explicit Module(Environment module_environment);
  ~Module();
  Module(const Module&) = delete;
  Module& operator=(const Module&) = delete;

  Environment environment;

  std::shared_ptr<host::HostApp> gHostApp;   // application object of the last entry call
  std::shared_ptr<host::HostDb> gDb;         // its database at that moment
  std::shared_ptr<CAddonError> gAddonError;  // valid as long as any CVV lives
  std::string gVersionText;

  bool gAppointment4AllContracts = false;
  std::int32_t gAlarmWochenKuendigung = 0;  // weeks
  std::int32_t gAlarmWochenEnde = 0;        // weeks

  // A contract type held in memory instead of stored, and its positions.
  std::shared_ptr<definitions::vv_CDefinition> gDefinition;
  std::shared_ptr<PositionCollection> gPositions;

  // The dialog-free path.
  std::shared_ptr<api::vv_CContractD> gApiContract;      // copy of the caller's record
  std::shared_ptr<api::ArticleCollection> gApiArticles;  // the caller's own collection
  std::shared_ptr<host::HostTable> gApiAdressen;
  std::shared_ptr<host::HostTable> gApiVertraege;
  std::shared_ptr<host::HostTable> gApiVertragsstaende;
  std::shared_ptr<host::HostTable> gApiVertragspositionen;
  std::shared_ptr<host::HostTable> gApiArtikel;
  platform::Date gApiVertragEnde;
  std::string gApiVertragnummer;
  std::shared_ptr<std::vector<api::ApiPositionRow>> gApiPositionRows;  // element 0 stays empty

  std::int32_t live_entry_objects = 0;  // number of CVV objects that hold gAddonError

  // The last error that a handler showed, set before its box opens. A box is text for
  // people; a program that drives the dialogs reads the error here, and may reset it.
  std::optional<platform::Error> last_shown_error;
};

}  // namespace pactora::shell
