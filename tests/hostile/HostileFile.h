/// What every hostile settings file must lead to: it loads, or it is refused by a typed error that names the
/// place; and afterwards the library works on.
#pragma once

#include "tests/support/Settings.h"

#include <string>
#include <string_view>

namespace unitlib::test {

/// How a load ended. Text and texts of the error in UTF-8.
struct TOutcome {
  std::string Kind; // "loaded", "EFileError", "EXmlError"; anything else is a fault of the library
  std::string Message, Path, Element, Attribute;
  int Line = 0;
};

class THostileFile : public ::testing::Test {
protected:
  THostileFile();
  ~THostileFile() override;

  /// Writes Content, loads it and checks what holds for every file.
  TOutcome Load(std::string_view Content);
  /// The same for a path.
  TOutcome LoadPath(std::u16string_view Path);

  TPrivateFolders Folders;

private:
  void CheckThatTheLibraryWorksOn() const;

  std::u16string FGood, FTried;
};

} // namespace unitlib::test
