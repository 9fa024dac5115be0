/// What the terminal and the file system do differently on each system. Paths and arguments are UTF-8.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

namespace unitlib::app::platform {

/// The program's arguments, without its name.
std::vector<std::string> Arguments(int Count, char** Values);

/// A variable of the environment; empty when it is not set.
std::string Environment(const char* Name);

/// Makes the three standard streams safe to use: one that the caller closed is opened again so that no file
/// takes its place, bytes pass unchanged, and the terminal shows UTF-8.
void PrepareStreams();

/// Runs a program and waits for its end; its streams are this program's. return      exit status, -1 when it
/// could not be started or was ended from outside
int RunProgram(const std::string& Path, const std::vector<std::string>& Arguments);

bool IsTerminal(std::FILE* Stream);
/// Columns of the terminal; 80 where it does not tell.
std::size_t TerminalWidth(std::FILE* Stream);

/// Opens a file; null and errno when that fails.
std::FILE* Open(const std::string& Path, const char* Mode);
/// What is there now, up to Size bytes; 0 at the end, -1 and errno when reading fails. Does not wait for a
/// full buffer and must not be mixed with the stream's own reading.
std::ptrdiff_t ReadSome(std::FILE* Stream, char* Buffer, std::size_t Size);
/// Size of a regular file; 0 for anything else.
std::uint64_t FileSize(std::FILE* Stream);

/// True when Path can only be written in place: it exists and is no regular file (a device, a pipe).
bool IsSpecialFile(const std::string& Path);
/// The file at the end of a chain of links; Path itself when it is none.
std::string FollowLinks(const std::string& Path);
/// A new file beside Target with the permissions that Target has or would get; TemporaryPath receives its
/// name. It is removed when a signal ends the program. Null and errno when that fails.
std::FILE* CreateTemporary(const std::string& Target, std::string& TemporaryPath);
/// Flushes a temporary file to disk, closes it and puts it in Target's place; false and errno when that
/// fails.
bool Publish(std::FILE* Stream, const std::string& TemporaryPath, const std::string& Target);
void Discard(std::FILE* Stream, const std::string& TemporaryPath) noexcept;

} // namespace unitlib::app::platform
