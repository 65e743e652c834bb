// What goes wrong with a whole database, told to a person.
#pragma once

#include <QWidget>
#include <functional>
#include <optional>

#include "platform/Error.h"

namespace pactora::desktop {

// The error that body ends with.
std::optional<platform::Error> ErrorOf(const std::function<void()>& body);

// Cause and remedy of a database that could not be opened or made, as a message on the window.
// Nothing for an error that says that the person asked to stop.
void ShowFailure(const platform::Error& error, QWidget* window);

}  // namespace pactora::desktop
