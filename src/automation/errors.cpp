#include "automation/errors.h"

namespace pactora::automation {

void Raise(DoorError error, const std::string& text) {
  throw platform::Error(Number(error), text, "Pactora");
}

}  // namespace pactora::automation
