/// What the targets of typed arithmetic share: the unit that lengths are typed in, the library's trees beside
/// the oracle's.
#pragma once

#include "fuzz/Input.h"
#include "fuzz/slow/Merging.h"

namespace unitlib {
class TNode;
class TParser;
} // namespace unitlib

namespace unitlib::fuzz {

inline constexpr int ElevationMeasure = 3;
inline constexpr std::size_t LongestExpression = 300; // folding every step exactly takes its time

/// A letter for the unit: the seven lengths, an area, a length with a code of its own; then its settings.
slow::TUnitSetup TakeLengthUnit(TInput& Input);

slow::TTreePtr ToSlowTree(const TNode& Node);

/// True for one of the messages; one that starts with "*" stands for every text that ends like it.
bool IsMessage(const slow::TMessages& Messages, std::u16string_view Message);
void RequireSameErrors(std::string_view What, std::u16string_view Text, const TParser& Parser,
                       const slow::TMessages& Wanted);

/// The trees must be the same. What an imperial length is worth may differ in its last digits: the oracle's
/// tree takes over the library's value then, so that everything behind it can be compared digit by digit.
void RequireSameTree(std::u16string_view Text, const TNode& Library, slow::TTree& Wanted);

/// Values for the variables of a tree, several sets.
std::vector<slow::TAssignment> Assignments(const std::vector<std::u16string>& Names);

/// A tree must be worth what another one is, up to what 15 digits a step may change. Where the wanted tree
/// has no known value nothing is asked.
void RequireSameValues(std::string_view What, std::u16string_view Text, const slow::TTree& Got,
                       const slow::TTree& Wanted);

/// Exact value of a tree; ends the process where it divides by zero.
slow::TExact ValueOf(std::string_view What, std::u16string_view Text, const slow::TTree& Node,
                     const slow::TAssignment& Values);

} // namespace unitlib::fuzz
