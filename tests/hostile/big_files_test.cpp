/// Big files and what is no file at all, through the C interface and unitctl, each in a process of its own:
/// its end, its memory, and that the library works on.
#include "tests/hostile/SettingsText.h"
#include "tests/support/Process.h"
#include "tests/support/Settings.h"
#include "unitlib/capi/unitlib.h"

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <sys/stat.h>
#include <unistd.h>

namespace unitlib::test {
namespace {

namespace fs = std::filesystem;

/// A text repeated.
std::string Times(std::size_t Count, std::string_view Text) {
  std::string Result;
  Result.reserve(Count * Text.size());
  for (std::size_t I = 0; I < Count; ++I) Result += Text;
  return Result;
}

/// The lines of element Name of the small file, its end included.
std::string Block(const TSettingsText& Small, const std::string& Name) {
  const std::string Text = Small.Text();
  const std::size_t Begin = Text.find("<" + Name + " ");
  const std::string End = "</" + Name + ">\n";
  const std::size_t Close = Text.find(End, Begin);
  return Text.substr(Begin, (Close == Text.npos ? Text.find('\n', Begin) + 1 : Close + End.size()) - Begin);
}

/// The small file with Added in front of the first element Name.
std::string Before(const std::string& Name, const std::string& Added) {
  std::string Text = TSettingsText::Small().Text();
  return Text.insert(Text.find("<" + Name), Added);
}

std::string Repeated(const std::string& Name, std::size_t Count) {
  return Before(Name, Times(Count, Block(TSettingsText::Small(), Name)));
}

std::string WithAttribute(const std::string& Old, const std::string& New) {
  std::string Text = TSettingsText::Small().Text();
  return Text.replace(Text.find(Old), Old.size(), New);
}

struct TBigRow {
  const char* Name; // also the reason
  std::string (*Make)(std::size_t Count);
  std::size_t Count; // in the usual run
  ul_status Status;
  const char* Element;
  const char* Attribute;
};

constexpr std::size_t Million = 1000000;

const TBigRow Rows[] = {
    {"TenThousandConfigurations", [](std::size_t N) { return Repeated("Config", N); }, 10000, UL_OK, "", ""},
    {"AMillionSymbols", [](std::size_t N) { return Repeated("UnitSymbol", N); }, Million, UL_OK, "", ""},
    {"AMillionRounds", [](std::size_t N) { return Repeated("Round", N); }, Million / 4, UL_OK, "", ""},
    {"AMillionDigitGroups", [](std::size_t N) { return Repeated("CGroup", N); }, Million / 4, UL_OK, "", ""},
    {"TheSmallestConfigurations",
     [](std::size_t N) { return Before("Config", Times(N, "<a Description='' OrderIndex='0'/>")); },
     Million / 2, UL_OK, "", ""},
    {"ADescriptionOfHundredMegabytes",
     [](std::size_t N) { return WithAttribute("US Imperial System", std::string(N, 'x')); }, 100 * Million,
     UL_OK, "", ""},
    {"ANumberOfHundredMegabytes",
     [](std::size_t N) {
       return WithAttribute("CurConfigIndex=\"0", "CurConfigIndex=\"" + std::string(N, '9'));
     },
     100 * Million, UL_ERROR_XML, "TemplateConfig", "CurConfigIndex"},
    {"ASwitchOfTenMegabytes",
     [](std::size_t N) { return WithAttribute("DefEnable=\"false", "DefEnable=\"" + std::string(N, 'x')); },
     10 * Million, UL_ERROR_XML, "UseProjectSetting", "DefEnable"},
    {"AnElementNameOfTenMegabytes",
     [](std::size_t N) { return Before("Config", "<" + std::string(N, 'n') + "/>"); }, 10 * Million,
     UL_ERROR_XML, nullptr, "Description"},
    {"AMillionAttributes",
     [](std::size_t N) { return WithAttribute("<TemplateConfig ", "<TemplateConfig " + Times(N, "a='' ")); },
     Million, UL_OK, "", ""},
    {"AMillionElementsBesideTheSettings",
     [](std::size_t N) { return Before("DigitGroup", Times(N, "<a/>")); }, 4 * Million, UL_OK, "", ""},
    {"AMillionTextsBetweenElements", [](std::size_t N) { return Before("DigitGroup", Times(N, "b<a/>")); },
     2 * Million, UL_OK, "", ""},
    {"AMillionSections",
     [](std::size_t N) { return Before("DigitGroup", Times(N, "<![CDATA[]]><?p?><!---->")); }, Million, UL_OK,
     "", ""},
    {"AMillionReferences",
     [](std::size_t N) { return WithAttribute("US Imperial System", Times(N, "&lt;&#65;")); }, Million, UL_OK,
     "", ""},
    {"NestedAMillionTimes",
     [](std::size_t N) { return Before("DigitGroup", Times(N, "<a>") + Times(N, "</a>")); }, Million, UL_OK,
     "", ""},
    {"NestedWithoutEnd", [](std::size_t N) { return Times(N, "<a>"); }, 4 * Million, UL_ERROR_XML, "", ""},
    {"NestedAndCutInATag", [](std::size_t N) { return Times(N, "<a>") + "<a"; }, 4 * Million, UL_ERROR_XML,
     "", ""},
    {"NestedSubset",
     [](std::size_t N) {
       return "<!DOCTYPE a [" + Times(N, "<!E ") + Times(N, ">") + "]>" +
              TSettingsText::Small().Text().substr(39);
     },
     Million, UL_OK, "", ""},
    {"ClosedOnly", [](std::size_t N) { return Times(N, "</a>"); }, 4 * Million, UL_ERROR_XML, "", ""},
    {"BlanksOnly", [](std::size_t N) { return std::string(N, ' '); }, 20 * Million, UL_ERROR_XML, "", ""},
    {"LineEndsOnly", [](std::size_t N) { return std::string(N, '\n'); }, 20 * Million, UL_ERROR_XML, "", ""},
    {"BracketsOnly", [](std::size_t N) { return std::string(N, '<'); }, 20 * Million, UL_ERROR_XML, "", ""},
    {"QuotesOnly", [](std::size_t N) { return "<a " + std::string(N, '"'); }, 20 * Million, UL_ERROR_XML, "",
     ""},
    {"ACommentToTheEnd", [](std::size_t N) { return "<!--" + std::string(N, '-'); }, 20 * Million,
     UL_ERROR_XML, "", ""},
    {"WideText", [](std::size_t N) { return "\xFF\xFE" + Times(N, std::string_view("<\0a\0/\0>\0", 8)); },
     Million, UL_ERROR_XML, nullptr, ""},
};

class BigFile : public testing::TestWithParam<TBigRow> {
protected:
  BigFile() {
    WriteBytes(Folders.File("good.xml"), TSettingsText::Small().Text());
    fs::permissions(Folders.Root(), fs::perms::all); // for the process without rights
  }

  std::string Path(const char* Name) const { return (Folders.Root() / Name).string(); }

  /// Runs the probe and checks what holds whatever the file.
  void Probe(const std::string& File, bool AsNobody = false) const {
    std::vector<std::string> Command{UNITLIB_HOSTILE_PROBE, File, Path("good.xml"), Path("docs")};
    if (AsNobody) Command.emplace_back("nobody");
    const TProcessLimits Limits{HasSanitizer() ? 0UL : 256UL * 1024, 300};
    const TProcessResult Result = RunProcess(Command, Limits);
    EXPECT_EQ(Result.Status, 0) << Result.Err;
    EXPECT_EQ(Result.Err, "");
    FLines = Lines(Result.Out);
    EXPECT_EQ(FLines.size(), 7U) << Result.Out;
    FLines.resize(7);
    EXPECT_EQ(FLines[6], "2000") << "the good file";
  }
  int Status() const { return std::atoi(FLines[0].c_str()); }
  int Line() const { return std::atoi(FLines[1].c_str()); }
  const std::string& Element() const { return FLines[2]; }
  const std::string& Attribute() const { return FLines[3]; }
  const std::string& Message() const { return FLines[4]; }
  double PeakBytes() const { return 1024.0 * std::atoi(FLines[5].c_str()); }

  /// unitctl says one line and fails.
  void ExpectUnitctlRefuses(const std::string& File) const {
    const TProcessResult Result = RunProcess({UNITLIB_UNITCTL, "--settings", File, "show"}, {0, 300});
    EXPECT_EQ(Result.Status, 1) << Result.Out;
    EXPECT_EQ(Result.Out, "");
    const auto Said = Lines(Result.Err);
    ASSERT_EQ(Said.size(), 1U) << Result.Err;
    EXPECT_EQ(Said[0].rfind("unitctl: ", 0), 0U) << Said[0];
    EXPECT_LT(Said[0].size(), 1000U);
  }

  TPrivateFolders Folders;

private:
  mutable std::vector<std::string> FLines;
};

TEST_P(BigFile, TakesLittleMemory) {
  const TBigRow& Row = GetParam();
  const std::string File = Path("big.xml");
  const std::size_t Count = HasSanitizer() ? Row.Count / 10 : Row.Count; // sanitizers take ten times as long
  const std::string Content = Row.Make(Count);
  WriteBytes(Folders.File("big.xml"), Content);
  Probe(Path("good.xml"));
  const double Usual = PeakBytes();
  Probe(File);
  EXPECT_EQ(Status(), Row.Status) << Message();
  if (Row.Element) {
    EXPECT_EQ(Element(), Row.Element);
  }
  EXPECT_EQ(Attribute(), Row.Attribute);
  EXPECT_LT(Message().size(), 1000U);
  const double Factor = (PeakBytes() - Usual) / static_cast<double>(Content.size());
  std::cout << "[ measured ] " << Content.size() << " bytes, memory " << Factor << " times the file\n";
  if (!HasSanitizer()) {
    EXPECT_LE(Factor, 20.0);
  }
  if (Row.Status != UL_OK) ExpectUnitctlRefuses(File);
}

INSTANTIATE_TEST_SUITE_P(Rows, BigFile, testing::ValuesIn(Rows),
                         [](const auto& Info) { return std::string(Info.param.Name); });

// ---------------------------------------------------------------- what is no file

class NoFile : public BigFile {
protected:
  /// The probe and unitctl refuse the path with a file error that says Cause.
  void ExpectRefused(const std::string& File, const std::string& Cause, bool AsNobody = false) {
    Probe(File, AsNobody);
    EXPECT_EQ(Status(), UL_ERROR_FILE) << Message();
    EXPECT_EQ(Message(), File + ": Cannot be read: " + Cause);
    if (!AsNobody) ExpectUnitctlRefuses(File);
  }
};

TEST_F(NoFile, AFolder) {
  ExpectRefused(Path("docs"), "Not a regular file");
}

TEST_F(NoFile, APipeNobodyWritesTo) {
  ASSERT_EQ(mkfifo(Path("pipe.xml").c_str(), 0666), 0);
  ExpectRefused(Path("pipe.xml"), "Not a regular file");
}

TEST_F(NoFile, EndlessDevices) {
  ExpectRefused("/dev/zero", "Not a regular file");
  ExpectRefused("/dev/urandom", "Not a regular file");
}

TEST_F(NoFile, AnEmptyDevice) {
  ExpectRefused("/dev/null", "Not a regular file");
}

TEST_F(NoFile, ATerabyteOfNothing) {
  WriteBytes(Folders.File("sparse.xml"), "<Unit>");
  ASSERT_EQ(truncate(Path("sparse.xml").c_str(), off_t{1} << 40), 0);
  ExpectRefused(Path("sparse.xml"), "File too large");
}

TEST_F(NoFile, ALinkToItself) {
  fs::create_symlink("loop.xml", fs::path(Path("loop.xml")));
  ExpectRefused(Path("loop.xml"), "Too many levels of symbolic links");
}

TEST_F(NoFile, AFileInPlaceOfAFolder) {
  Probe(Path("good.xml") + "/x.xml");
  EXPECT_EQ(Status(), UL_ERROR_FILE);
}

TEST_F(NoFile, NoPermission) {
  WriteBytes(Folders.File("secret.xml"), TSettingsText::Small().Text());
  fs::permissions(fs::path(Path("secret.xml")), fs::perms::none);
  ExpectRefused(Path("secret.xml"), "Permission denied", true);
}

TEST_F(NoFile, NoPermissionOnTheFolder) {
  fs::create_directory(Folders.Root() / "closed");
  WriteBytes(Folders.File("closed/in.xml"), TSettingsText::Small().Text());
  fs::permissions(Folders.Root() / "closed", fs::perms::none);
  ExpectRefused(Path("closed/in.xml"), "Permission denied", true);
  fs::permissions(Folders.Root() / "closed", fs::perms::owner_all);
}

TEST_F(NoFile, Missing) {
  Probe(Path("none.xml"));
  EXPECT_EQ(Status(), UL_ERROR_FILE);
  ExpectUnitctlRefuses(Path("none.xml"));
}

// A file of the system that tells no size is read to its end.
TEST_F(NoFile, AFileThatTellsNoSize) {
  Probe("/proc/self/status");
  EXPECT_EQ(Status(), UL_ERROR_XML) << Message();
}

} // namespace
} // namespace unitlib::test
