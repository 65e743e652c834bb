// The embedded host's objects under the names by which the add-on calls a host.
#pragma once

#include <memory>

#include "host/HostApp.h"
#include "host/Value.h"

namespace pactora::automation_host {

// The application as an object of automation, and everything below it.
host::Value ServeApp(const std::shared_ptr<host::HostApp>& app);

}  // namespace pactora::automation_host
