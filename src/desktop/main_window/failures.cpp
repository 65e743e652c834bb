#include "desktop/main_window/failures.h"

#include <exception>
#include <string>

#include "automation/formats/errors.h"
#include "desktop/MessageBox.h"
#include "store/errors.h"

namespace pactora::desktop {
namespace {

using formats::DoorError;
using store::StoreError;

const char* RemedyOf(DoorError error) {
  switch (error) {
    case DoorError::BadInput:
      return "Wählen Sie eine andere Datei oder einen anderen Namen.";
    case DoorError::NotCarriedOut:
      return "Wählen Sie einen Ordner, in dem Sie schreiben dürfen und auf dessen Laufwerk Platz "
             "ist.";
    case DoorError::NotAvailable:
      return "Wählen Sie eine Datenbank, die eine Datei ist.";
    case DoorError::Interrupted:
      break;
  }
  return "Versuchen Sie es noch einmal. Bleibt es dabei, hilft die Betreuung mit dieser Meldung "
         "weiter.";
}

const char* RemedyOf(const platform::Error& error) {
  switch (static_cast<StoreError>(error.Number())) {
    case StoreError::Locked:
      return "Warten Sie, bis der andere Benutzer fertig ist, und öffnen Sie sie dann noch einmal.";
    case StoreError::NotReachable:
      return "Prüfen Sie, ob Ordner und Datei noch da sind, ob das Laufwerk verbunden ist und ob "
             "Sie dort lesen dürfen, oder wählen Sie eine andere Datenbank.";
    case StoreError::NotADatabase:
      return "Wählen Sie eine andere Datei. Ist es Ihre Datenbank, so nehmen Sie die letzte "
             "Sicherung; „pactora check“ nennt ihre Schäden.";
    case StoreError::OtherVersion:
      return "Öffnen Sie sie mit dem Programm, mit dem sie zuletzt benutzt wurde, oder einem "
             "neueren.";
    case StoreError::Full:
    case StoreError::ReadOnly:
      return RemedyOf(DoorError::NotCarriedOut);
    default:
      return RemedyOf(static_cast<DoorError>(error.Number()));
  }
}

}  // namespace

std::optional<platform::Error> ErrorOf(const std::function<void()>& body) {
  try {
    body();
    return std::nullopt;
  } catch (const platform::Error& error) {
    return error;
  } catch (const std::exception& error) {
    return platform::Error(0, std::string("interner Fehler: ") + error.what(),
                           formats::kErrorSource);
  }
}

void ShowFailure(const platform::Error& error, QWidget* window) {
  if (error.Number() == formats::Number(DoorError::Interrupted)) return;
  ShowMessageBox(
      {formats::Describe(error) + "\r\n\r\n" + RemedyOf(error), ui::style::kExclamation, "Pactora"},
      window);
}

}  // namespace pactora::desktop
