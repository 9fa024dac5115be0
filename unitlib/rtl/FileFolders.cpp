#include "unitlib/rtl/FileFolders.h"

#include "unitlib/rtl/Platform.h"

namespace unitlib {
namespace {

/// Never destroyed before the last user: function-local, so it lives from the first call on.
struct TOverrides {
  std::u16string ExePath;
  std::u16string CommonDocumentsPath;
};

TOverrides& Overrides() {
  static TOverrides Instance;
  return Instance;
}

bool IsDelimiter(char16_t C) {
  return C == PathDelim() || C == u'/';
}

} // namespace

std::u16string IncludeTrailingPathDelimiter(std::u16string_view Path) {
  std::u16string Result(Path);
  if (!Result.empty() && !IsDelimiter(Result.back())) Result.push_back(PathDelim());
  return Result;
}

std::u16string GetExePath() {
  const std::u16string& Own = Overrides().ExePath;
  return IncludeTrailingPathDelimiter(Own.empty() ? platform::ExePath() : Own);
}

std::u16string GetCommonDocumentsPath() {
  const std::u16string& Own = Overrides().CommonDocumentsPath;
  return Own.empty() ? platform::CommonDocumentsPath() : Own;
}

void SetExePath(std::u16string_view Path) {
  Overrides().ExePath = Path;
}
void SetCommonDocumentsPath(std::u16string_view Path) {
  Overrides().CommonDocumentsPath = Path;
}

} // namespace unitlib
