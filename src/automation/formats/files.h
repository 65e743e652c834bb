// Files written whole or not at all, and what the operating system does with files.
#pragma once

#include <cstdio>
#include <functional>
#include <ostream>
#include <string>
#include <vector>

namespace pactora::formats {

// Replaces the file's content with the text: a reader, also after a power cut, sees
// either the whole old content or the whole new one. Symbolic links are followed, the
// file keeps its permissions. What is no ordinary file, such as a pipe, simply gets
// the text. Raises DoorError::NotCarriedOut when it can't be
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

// Raises DoorError::NotCarriedOut where this user may not write the file, or where
// there is none may not make it.
void RequireWritable(const std::string& path);
// Reserves the open file for this program until it is closed. Returns false where
// another program has reserved it.
bool TryReserve(std::FILE* file);
// Makes what was written to the open file safe from a power cut; returns whether that
// succeeded.
bool Sync(std::FILE* file);
// Whether what is written there appears on a terminal.
bool IsTerminal(std::FILE* file);

// Gives the standard streams that are closed a file that can't be read or written, so that no
// file that is opened takes their place, and has a reader that is gone told as a failure to write.
void GuardStandardStreams();
// Whether the open file is open for writing.
bool IsForWriting(std::FILE* file);

// Runs the program with these arguments in the place of this one; returns only when it
// can't be started.
void BecomeProgram(std::string program, std::vector<std::string> arguments);

}  // namespace pactora::formats
