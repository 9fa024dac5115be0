#include "tests/apps/UnitctlRun.h"

#include "apps/unitctl/CommandLine.h"

#include <cstdio>
#include <memory>

namespace unitlib::test {
namespace {

struct TClose {
  void operator()(std::FILE* File) const { std::fclose(File); }
};
using TFile = std::unique_ptr<std::FILE, TClose>;

TFile NewFile(const std::string& Content = {}) {
  TFile File(std::tmpfile());
  std::fwrite(Content.data(), 1, Content.size(), File.get());
  std::fflush(File.get());
  std::rewind(File.get());
  return File;
}

std::string ContentOf(std::FILE* File) {
  std::rewind(File);
  std::string Result;
  char Buffer[4096];
  while (const std::size_t Got = std::fread(Buffer, 1, sizeof Buffer, File)) Result.append(Buffer, Got);
  return Result;
}

} // namespace

TRunResult RunCommand(const std::vector<std::string>& Arguments, const std::string& Input) {
  const TFile In = NewFile(Input);
  const TFile Out = NewFile();
  const TFile Err = NewFile();
  TRunResult Result;
  Result.Status = app::RunUnitctl(Arguments, {In.get(), Out.get(), Err.get()});
  Result.Out = ContentOf(Out.get());
  Result.Err = ContentOf(Err.get());
  return Result;
}

std::string OutputOf(const std::vector<std::string>& Arguments, const std::string& Input) {
  const TRunResult Result = RunCommand(Arguments, Input);
  EXPECT_EQ(Result.Status, 0);
  EXPECT_EQ(Result.Err, "");
  return Result.Out;
}

TUnitctl::TUnitctl() {
  EXPECT_EQ(RunCommand({"init", "--system", "0"}).Status, 0);
}

std::string TUnitctl::WriteFile(const std::string& Name, std::string_view Content) const {
  WriteBytes((Folders.Root() / Name).u16string(), Content);
  return Path(Name);
}

std::string TUnitctl::ReadFile(const std::string& Name) const {
  return ReadBytes((Folders.Root() / Name).u16string());
}

} // namespace unitlib::test
