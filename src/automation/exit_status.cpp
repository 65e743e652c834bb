#include "automation/exit_status.h"

#include "automation/errors.h"

namespace pactora::automation {

using store::StoreError;

Status StatusOf(const platform::Error& error) {
  switch (static_cast<DoorError>(error.Number())) {
    case DoorError::BadInput:
      return Status::BadInput;
    case DoorError::NotCarriedOut:
      return Status::Refused;
    case DoorError::NotAvailable:
      return Status::NotReachable;
    case DoorError::Interrupted:
      return Status::Interrupted;
  }
  return StatusOf(static_cast<StoreError>(error.Number()));
}

Status StatusOf(StoreError error) {
  switch (error) {
    case StoreError::NotADatabase:
      return Status::BadInput;
    case StoreError::Locked:
    case StoreError::NotReachable:
    case StoreError::ReadOnly:
    case StoreError::OtherVersion:
      return Status::NotReachable;
    default:
      return Status::Refused;
  }
}

}  // namespace pactora::automation
