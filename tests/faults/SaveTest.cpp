#include "tests/faults/SaveTest.h"

#include "unitlib/rtl/Errors.h"

namespace unitlib::test {
namespace fs = std::filesystem;

TSaveTest::TSaveTest() : FFolder(Folders.Root() / fs::u8path(u8"Gr\u00F6\u00DFe \u5355\u4F4D \U0001F4D0")) {
  fs::create_directory(FFolder);
}

std::u16string TSaveTest::Path16(const std::string& Name) const {
  return (FFolder / Name).u16string();
}

std::string TSaveTest::Content(const std::string& Name) const {
  return ReadBytes(Path16(Name));
}

void TSaveTest::Put(std::string_view Text, const std::string& Name) const {
  WriteBytes(Path16(Name), Text);
}

std::set<std::string> TSaveTest::Names() const {
  std::set<std::string> Result;
  for (const auto& Entry : fs::directory_iterator(FFolder)) Result.insert(Entry.path().filename().string());
  return Result;
}

TSaved TSaveTest::Try(const std::function<void()>& Save) const {
  TSaved Result = TSaved::Refused;
  try {
    Save();
    Result = TSaved::Yes;
  } catch (const EFileError& Error) {
    disarm_faults();
    EXPECT_NE(Error.Text(), u"") << Error.what();
  } catch (const std::exception& Error) {
    disarm_faults();
    ADD_FAILURE() << "no file error: " << Error.what();
  }
  disarm_faults();
  return Result;
}

} // namespace unitlib::test
