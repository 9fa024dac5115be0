/// The factory settings broken in one place at a time: indices outside their lists, empty lists, texts and
/// numbers that nothing fits.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace unitlib::test {

struct TBrokenModel {
  std::string Name;
  std::function<void()> Break; // what is loaded; configuration 0 is current
  bool Loaded = true;          // false: afterwards no settings are there, so they cannot be saved either
};

/// Every kind of damage; the first row is none.
std::vector<TBrokenModel> BrokenModels();

/// All of them; in a build with sanitizers, which take ten times as long, every fourth, and all in the
/// nightly run.
std::vector<TBrokenModel> ModelsToWalk();

/// The row of this name.
TBrokenModel BrokenModel(const std::string& Name);

} // namespace unitlib::test
