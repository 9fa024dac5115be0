/// A host in a process of its own that is typed into and killed.
#pragma once

#include <cstddef>
#include <string>

namespace unitlib::takeoff {

/// Row of the project whose value is typed, a length in mm.
inline constexpr std::size_t KilledRow = 5;

/// Starts this program again as a host with the project, lets it type 1, 2, 3, ... into one cell and kills it
/// at a moment that depends on Round. return      the last number that the host showed as stored
int KillHostWhileTyping(const std::u16string& Project, int Round);

/// What the started program does: types without end and writes each number to the standard output once it is
/// shown as stored.
[[noreturn]] void TypeForEver(const std::u16string& Project);

} // namespace unitlib::takeoff
