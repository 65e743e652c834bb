#include "store/errors.h"

namespace pactora::store {

std::string Text(StoreError error) {
  switch (error) {
    case StoreError::Locked:
      return "Die Datenbank ist von einem anderen Benutzer gesperrt.";
    case StoreError::NotReachable:
      return "Die Datenbank ist nicht erreichbar.";
    case StoreError::NotADatabase:
      return "Die Datei ist keine Datenbank dieses Programms oder ist beschädigt.";
    case StoreError::OtherVersion:
      return "Die Datenbank hat eine Struktur anderer Version.";
    case StoreError::Full:
      return "Der Speicherplatz ist erschöpft.";
    case StoreError::UnitLost:
      return "Die begonnenen Änderungen sind verworfen worden.";
    case StoreError::DuplicateOid:
      return "Die Oid ist in dieser Tabelle schon vergeben.";
    case StoreError::HasChildren:
      return "Der Datensatz hat noch untergeordnete Datensätze.";
    case StoreError::Failed:
      return "Fehler beim Zugriff auf die Datenbank.";
    case StoreError::DuplicateKey:
      return "Der eindeutige Schlüssel ist schon vergeben.";
    case StoreError::TextTooLong:
      return "Der Text ist länger als das Feld.";
    case StoreError::ReadOnly:
      return "Die Datenbank ist schreibgeschützt.";
    case StoreError::Uncertain:
      return "Es ist ungewiss, ob die letzten Änderungen gespeichert sind; die Datenbank muss neu "
             "geöffnet werden.";
  }
  return "Unbekannter Fehler der Datenbank.";
}

void Raise(StoreError error, const std::string& detail) {
  std::string description = Text(error);
  if (!detail.empty()) description += " (" + detail + ")";
  throw platform::Error(Number(error), std::move(description), kErrorSource);
}

}  // namespace pactora::store
