#include "embedded/errors.h"

#include <array>
#include <memory>

#include "store/errors.h"

namespace pactora::embedded {
namespace {

struct ErrorText {
  HostError error;
  std::string_view text;
};

constexpr std::array kTexts = {
    ErrorText{HostError::UnknownTable, "Die Tabelle ist nicht vorhanden."},
    ErrorText{HostError::UnknownField, "Das Feld ist nicht vorhanden."},
    ErrorText{HostError::UnknownIndex, "Der Index ist nicht vorhanden."},
    ErrorText{HostError::UnknownName, "Der Eintrag ist nicht vorhanden."},
    ErrorText{HostError::NameTaken, "Der Eintrag ist schon vorhanden."},
    ErrorText{HostError::NoCurrentRow, "Die Tabelle hat keinen aktuellen Datensatz."},
    ErrorText{HostError::NoIndexSelected, "Es ist kein Index gewählt."},
    ErrorText{HostError::NoParentRow,
              "Die übergeordnete Tabelle hat keinen gespeicherten aktuellen Datensatz."},
    ErrorText{HostError::NoParentTable, "Die Tabelle hat keine übergeordnete Tabelle."},
    ErrorText{HostError::InvalidPosition, "Die Position gehört nicht zu dieser Tabelle."},
    ErrorText{HostError::RowNotFound, "Der Datensatz ist nicht vorhanden."},
    ErrorText{HostError::RowNotStored, "Der Datensatz ist noch nicht gespeichert."},
    ErrorText{HostError::RowAlreadyStored, "Der Datensatz ist schon gespeichert."},
    ErrorText{HostError::RowChanged,
              "Der Datensatz wurde inzwischen von einem anderen Benutzer geändert."},
    ErrorText{HostError::UnknownExpression, "Der Ausdruck ist nicht bekannt."},
    ErrorText{HostError::HostClosed, "Die Datenbank ist geschlossen."},
    ErrorText{HostError::InvalidIndex, "Der Index gehört nicht zu dieser Tabelle."},
};

constexpr std::array kStoreErrors = {
    store::StoreError::Locked,       store::StoreError::NotReachable,
    store::StoreError::NotADatabase, store::StoreError::OtherVersion,
    store::StoreError::Full,         store::StoreError::UnitLost,
    store::StoreError::DuplicateOid, store::StoreError::HasChildren,
    store::StoreError::Failed,       store::StoreError::DuplicateKey,
    store::StoreError::TextTooLong,  store::StoreError::ReadOnly,
    store::StoreError::Uncertain,
};

constexpr std::array kRuntimeErrors = {
    platform::RuntimeError::InvalidArgument, platform::RuntimeError::Overflow,
    platform::RuntimeError::IndexOutOfRange, platform::RuntimeError::DivisionByZero,
    platform::RuntimeError::TypeMismatch,    platform::RuntimeError::ObjectNotSet,
    platform::RuntimeError::ValueNotInList,  platform::RuntimeError::MemberNotOffered,
};

class ErrorTexts final : public host::HostErrorTexts {
 public:
  std::string Text(std::int32_t number) override {
    for (const ErrorText& entry : kTexts) {
      if (Number(entry.error) == number) return std::string(entry.text);
    }
    for (const store::StoreError error : kStoreErrors) {
      if (Number(error) == number) return store::Text(error);
    }
    for (const platform::RuntimeError error : kRuntimeErrors) {
      if (static_cast<std::int32_t>(error) == number) return RuntimeErrorText(error);
    }
    return "Unbekannter Fehler";
  }
};

}  // namespace

std::string Text(HostError error) {
  for (const ErrorText& entry : kTexts) {
    if (entry.error == error) return std::string(entry.text);
  }
  return {};
}

void Raise(HostError error, std::string_view what) {
  std::string description = Text(error);
  if (!what.empty()) {
    description.pop_back();
    description.append(": „").append(what).append("“.");
  }
  throw platform::Error(Number(error), std::move(description), "Tessarin");
}

std::shared_ptr<host::HostErrorTexts> CreateErrorTexts() { return std::make_shared<ErrorTexts>(); }

}  // namespace pactora::embedded
