// A company to show the dialogs with.
#pragma once

#include <memory>

#include "store/RecordStore.h"

namespace pactora::win32 {

std::unique_ptr<store::RecordStore> MakeCompany();

}  // namespace pactora::win32
