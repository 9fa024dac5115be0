/// A folder of a test's own, with settings in it.
#pragma once

#include "unitlib/capi/unitlib.h"

#include <string>
#include <string_view>

namespace windows_test {

/// A new folder below the system's temporary one, which is the documents folder meanwhile. Removed with all
/// it holds; nothing is loaded afterwards.
class TTestFolder {
public:
  explicit TTestFolder(std::wstring_view Name = L"plain");
  ~TTestFolder();
  TTestFolder(const TTestFolder&) = delete;
  TTestFolder& operator=(const TTestFolder&) = delete;

  std::wstring Path() const { return FPath; }
  std::u16string File(std::wstring_view Name) const;
  /// The names in it, sorted, one line each.
  std::wstring List() const;

private:
  std::wstring FRoot, FPath;
};

std::wstring Wide(std::u16string_view Text);
std::string ReadBytes(const std::u16string& Path);

ul_status Generate(const std::u16string& File);
ul_status Load(const std::u16string& File);
ul_status Save(const std::u16string& File);
/// What the library says about the last failure.
std::string LastMessage();
/// How 1676.4 mm are shown.
std::string ShownLength();

} // namespace windows_test
