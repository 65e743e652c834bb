#include "automation/workspace/exit_status.h"

#include "automation/formats/errors.h"
#include "automation/workspace/fatal_store_error.h"

namespace pactora::workspace {

using store::StoreError;

Status StatusOf(const platform::Error& error) {
  switch (static_cast<formats::DoorError>(error.Number())) {
    case formats::DoorError::BadInput:
      return Status::BadInput;
    case formats::DoorError::NotCarriedOut:
      return Status::Refused;
    case formats::DoorError::NotAvailable:
      return Status::NotReachable;
    case formats::DoorError::Interrupted:
      return Status::Interrupted;
  }
  return StatusOf(static_cast<StoreError>(error.Number()));
}

Status StatusOf(StoreError error) {
  if (error == StoreError::NotADatabase) return Status::BadInput;
  const bool is_of_database =
      error == StoreError::OtherVersion || FatalStoreErrorOf(store::Number(error));
  return is_of_database ? Status::NotReachable : Status::Refused;
}

}  // namespace pactora::workspace
