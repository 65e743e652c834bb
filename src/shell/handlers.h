// The three forms in which a procedure handles a failure, each one call around
// its body. Display names are a module name, a point and the procedure's name;
// module names stand in module_name below.
//
// What the body changed before it failed stays as it is. An error raised inside
// a handler is not caught. An exception other than Error counts as error 51
// "Interner Fehler".
#pragma once

#include <exception>
#include <string>
#include <string_view>
#include <utility>

#include "platform/Error.h"
#include "shell/Module.h"

namespace pactora::shell {

namespace module_name {
inline constexpr std::string_view CVV = "CVV";
inline constexpr std::string_view frmNewContract = "vv_FNewContract";
inline constexpr std::string_view frmFEditDefinitions = "vv_FEditDefinitions";
inline constexpr std::string_view frmFEditDefPositions = "frmFEditDefPositions";
inline constexpr std::string_view modVV = "modVV";
inline constexpr std::string_view modAPI = "modAPI";
inline constexpr std::string_view CConfig = "CConfig";
}  // namespace module_name

// module_name "." procedure.
std::string DisplayName(std::string_view module_name, std::string_view procedure);

// The exception that is being handled as an Error. Requires: called in a catch
// block.
platform::Error CurrentError();

// "Fehler &H<number>", "(<description>)", "in <display name>" on three lines,
// without icon, with the default title. Before that the module keeps the error as
// last_shown_error.
void ShowInlineError(Module& module, const std::string& display_name, const platform::Error& error);

// Likewise through the module's reporter. Raises error 91 when there is none.
void ReportError(Module& module, const std::string& display_name, const platform::Error& error);

// Form 1: through the reporter; the procedure ends normally.
template <typename Body>
void WithReporter(Module& module, std::string_view module_name, std::string_view procedure,
                  Body&& body) {
  try {
    std::forward<Body>(body)();
  } catch (...) {
    ReportError(module, DisplayName(module_name, procedure), CurrentError());
  }
}

// Form 2: an inline message box; the procedure ends normally.
template <typename Body>
void WithInlineMessage(Module& module, std::string_view module_name, std::string_view procedure,
                       Body&& body) {
  try {
    std::forward<Body>(body)();
  } catch (...) {
    ShowInlineError(module, DisplayName(module_name, procedure), CurrentError());
  }
}

// Form 3: raised again to the caller with the same number and description and
// the display name as the source.
template <typename Body>
decltype(auto) RaisingAgain(std::string_view module_name, std::string_view procedure, Body&& body) {
  try {
    return std::forward<Body>(body)();
  } catch (...) {
    const platform::Error error = CurrentError();
    throw platform::Error(error.Number(), error.Description(), DisplayName(module_name, procedure));
  }
}

// Errors ignored: runs one step and gives its error, if any, to the caller to
// look at; error may be null. Returns true when the step succeeded.
template <typename Body>
bool IgnoringErrors(platform::Error* error, Body&& body) {
  try {
    std::forward<Body>(body)();
    return true;
  } catch (...) {
    if (error != nullptr) *error = CurrentError();
    return false;
  }
}

}  // namespace pactora::shell
