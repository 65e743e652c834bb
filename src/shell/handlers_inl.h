// The bodies of the templates in shell/handlers.h.
#pragma once

namespace pactora::shell {

template <typename Body>
void WithReporter(Module& module, std::string_view module_name, std::string_view procedure,
                  Body&& body) {
  try {
    std::forward<Body>(body)();
  } catch (...) {
    ReportError(module, DisplayName(module_name, procedure), CurrentError());
  }
}

template <typename Body>
void WithInlineMessage(Module& module, std::string_view module_name, std::string_view procedure,
                       Body&& body) {
  try {
    std::forward<Body>(body)();
  } catch (...) {
    ShowInlineError(module, DisplayName(module_name, procedure), CurrentError());
  }
}

template <typename Body>
auto RaisingAgain(std::string_view module_name, std::string_view procedure, Body&& body)
    -> decltype(std::forward<Body>(body)()) {
  try {
    return std::forward<Body>(body)();
  } catch (...) {
    const platform::Error error = CurrentError();
    throw platform::Error(error.Number(), error.Description(), DisplayName(module_name, procedure));
  }
}

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
