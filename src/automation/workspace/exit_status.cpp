#include "automation/workspace/exit_status.h"

#include "automation/formats/errors.h"

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
  switch (error) {
    case StoreError::NotADatabase:
      return Status::BadInput;
    case StoreError::Locked:
    case StoreError::NotReachable:
    case StoreError::ReadOnly:
    case StoreError::OtherVersion:
    case StoreError::Uncertain:
      return Status::NotReachable;
    default:
      return Status::Refused;
  }
}

}  // namespace pactora::workspace
