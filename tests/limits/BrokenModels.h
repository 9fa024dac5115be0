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

/// The row of this name.
TBrokenModel BrokenModel(const std::string& Name);

} // namespace unitlib::test
