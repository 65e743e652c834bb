// Files written whole or not at all.
#pragma once

#include <functional>
#include <ostream>
#include <string>

namespace pactora::formats {

// Puts the text in the place of the file's content: a reader, and a program that
// comes after a power cut, sees all of the old or all of the new. A symbolic link
// is followed, the file keeps its permissions. What is no ordinary file, such as a
// pipe, simply gets the text. Raises DoorError::NotCarriedOut when it can't be
// written.
void ReplaceFile(const std::string& path, const std::string& text);
// Likewise with what fill writes; an error that fill raises leaves the file as it was.
void ReplaceFile(const std::string& path, const std::function<void(std::ostream&)>& fill);

// The name that stands for standard input or output.
inline constexpr const char* kStandardStream = "-";

// All of standard input. Raises DoorError::Interrupted when a signal that the
// program catches comes while it waits, DoorError::BadInput when it can't be read.
std::string ReadStandardInput();

// What fill writes goes to standard output for that name, else into the file.
void WriteOutput(const std::string& path, const std::function<void(std::ostream&)>& fill);

// Raises DoorError::BadInput: there is a file of that name.
[[noreturn]] void RaiseTaken(const std::string& path);
// Raises DoorError::NotCarriedOut: this file can't be written.
[[noreturn]] void RaiseUnwritable(const std::string& path);

// Whether both names lead to one file, also where it does not exist yet.
bool IsSameFile(const std::string& one, const std::string& other);

}  // namespace pactora::formats
