/// Every public operation of the library, called with usual arguments and with those at the limits.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace unitlib::test {

struct TOperation {
  std::string Name;
  /// Makes the calls. Each is handed to Try, which runs it and looks at how it ends.
  using TTry = std::function<void(const std::function<void()>&)>;
  std::function<void(const TTry& Try)> Run;
  bool UsesModel = true; // false: it does not look at the settings, so once is enough
};

std::vector<TOperation> ManagerOperations();
std::vector<TOperation> ModelOperations();
std::vector<TOperation> ConversionOperations();
std::vector<TOperation> ExpressionOperations();
/// Those that change the model: at the end of all.
std::vector<TOperation> RestoringOperations();

} // namespace unitlib::test
