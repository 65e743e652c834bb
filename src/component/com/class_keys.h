// The entries by which the system finds a class of this file.
#pragma once

#include <windows.h>

#include <string>

#include "component/com/failures.h"

namespace pactora::component {

// The path of the file that this code is in.
std::wstring OwnPath();

std::wstring TextOf(const GUID& id);

struct CreatableClass {
  const wchar_t* program_id;  // also its name for people
  CLSID id;
};

// Enters the class for apartments, below HKEY_LOCAL_MACHINE or HKEY_CURRENT_USER; library
// is the text of its type library's id, or empty. Raises what the system answers.
void EnterClass(HKEY root, const CreatableClass& entered, const std::wstring& library);
// Removes all of it; nothing there is no failure.
void RemoveClass(HKEY root, const CreatableClass& entered);

// Runs enter for the machine, or for the user where the machine is denied.
template <typename Enter>
HRESULT ForMachineOrUser(const Enter& enter) {
  const HRESULT machine = Guarded([&] { enter(HKEY_LOCAL_MACHINE); });
  return machine == E_ACCESSDENIED ? Guarded([&] { enter(HKEY_CURRENT_USER); }) : machine;
}
// Runs remove for both.
template <typename Remove>
HRESULT ForMachineAndUser(const Remove& remove) {
  const HRESULT user = Guarded([&] { remove(HKEY_CURRENT_USER); });
  const HRESULT machine = Guarded([&] { remove(HKEY_LOCAL_MACHINE); });
  return FAILED(user) ? user : machine;
}

}  // namespace pactora::component
