/// What docs/host-guide.md shows, part by part, as one program that runs as a test. No window system is needed.
// part includes
#include <unitlib/convert/ZELUnitConvertor.h>
#include <unitlib/expr/ZELUnitArthProcessor.h>
#include <unitlib/model/ZELUnitConfigFileGenerator.h>
#include <unitlib/model/ZELUnitMgr.h>
#include <unitlib/notify/ZELUnitRefreshUtils.h>
#include <unitlib/rtl/Errors.h>
#include <unitlib/rtl/FileFolders.h>
#include <unitlib/rtl/Text.h>
using namespace unitlib;
// end part

#include <cstdio>
#include <filesystem>
#include <iostream>
#include <thread>

namespace {

constexpr std::u16string_view ProjectFile = u"project-units.xml";

// part codes
enum : int { Length = 0, Area = 1, Volume = 2, Elevation = 3, Mass = 6, ResultLength = 7 };
// end part

// part load
void OpenProject(std::u16string_view Folder) {
  SetCommonDocumentsPath(Folder); // where the working copy goes; leave it out for the system's folder
  if (!std::filesystem::exists(ProjectFile)) GenerateUnitDefaultConfigFile(ProjectFile); // factory settings
  InitialUnitSystem(ProjectFile, CYAmInch, true); // US units, where the file has not chosen yet
}
// end part

// part convert
void ShowAndRead() {
  std::cout << ToUtf8(TMeasureDataManager::StoreToDisplay(Length, 1689.1)) << "\n"; // 5' 6 1/2"
  std::cout << ToUtf8(TMeasureDataManager::StoreToDisplay(Area, 92903.04)) << "\n"; // 1.000
  // The same with its symbol, from square metres (scale index 4: a million mm2).
  std::cout << ToUtf8(TMeasureDataManager::StoreToDisplay(Area, 92.90304, 4, true)) << "\n"; // 1,000.000 SF

  const std::u16string Typed = u"5'6 1/2\"";
  if (TMeasureDataManager::CheckDisplay(Length, Typed)) // always ask first: DisplayToStore takes any text
    std::cout << TMeasureDataManager::DisplayToStore(Length, Typed) << " mm\n"; // 1689.1 mm
}
// end part

// part arithmetic
/// Stored value of arithmetic typed into a field of calculated lengths, such as 3'6"+2*1': false when it is none.
bool ReadExpression(std::u16string_view Typed, double& Millimetres) {
  TParser Parser(Typed);
  auto Root = Parser.Parse();
  if (!Root || Parser.FHasError) return false; // Parser.FErrMsg and FErrPos say what and where
  Parser.Merge(Root);
  if (Parser.FHasError) return false;
  const double Value = Parser.GetDoubleValue(*Root);
  if (Parser.FHasError || Root->FIsVar || !Root->FIsImperial) return false;
  Millimetres = Value * 1000; // an imperial length counts in metres
  return true;
}
// end part

// part react
class TSchedule {
public:
  TSchedule() {
    UnitRefreshManager()->BeforeUnitChangeAttach(MethodOf<&TSchedule::CloseEditors>(this));
    UnitRefreshManager()->Attach(MethodOf<&TSchedule::Redraw>(this));
  }
  ~TSchedule() { // a listener that is gone must not be called
    UnitRefreshManager()->Detach(MethodOf<&TSchedule::Redraw>(this));
    UnitRefreshManager()->BeforeUnitChangeDetach(MethodOf<&TSchedule::CloseEditors>(this));
  }
  TSchedule(const TSchedule&) = delete;
  TSchedule& operator=(const TSchedule&) = delete;

private:
  void CloseEditors() { std::cout << "editors closed\n"; } // half-typed text is in the old unit
  void Redraw() { std::cout << ToUtf8(TMeasureDataManager::StoreToDisplay(Length, FWidth)) << "\n"; }

  double FWidth = 1689.1; // mm: stored values never change with the units
};
// end part

// part change
/// Shows lengths in metres with two decimals from now on, in this project.
void UseMetres() {
  UnitRefreshManager()->RefreshBeforeUnitChange();
  TMeasure* Measure = TSystemUnitDataManager::CurConfigMeasure(Length);
  Measure->SetCurUnit(u"Meters"); // by its description; an unknown one changes nothing
  Measure->GetCurUnit()->SetCurRound(u"2 decimal places");
  Measure->GetCurUnit()->SetCurUnitSymbol(u"m");
  TSystemUnitDataManager::UpdateDispalyValue(); // the examples that the dialog shows
  TSystemUnitDataManager::SaveConfigFile(ProjectFile);
  UnitRefreshManager()->RefreshUnit(); // prints 1.69 m
}
// end part

// part elevations
void Elevations() {
  const std::u16string Typed = u"L1+5'6\"";                 // storey level L1 and 5' 6" above it
  if (!CheckElevEditValue(Typed)) return;                   // refused: keep what was there
  const std::u16string Stored = GetElevStoreValue(Typed);   // L1+1.6764, in metres: keep this one
  std::cout << ToUtf8(Stored) << " "                        //
            << ToUtf8(GetElevEditValue(Stored)) << " "      // L1+5' 6", to be typed on
            << ToUtf8(GetElevDisplayValue(Stored)) << "\n"; // L1+5' 6", to be read
}
// end part

// part errors
/// False, with a message for the user, when the settings cannot be loaded.
bool LoadOrTell(std::u16string_view FileName) {
  try {
    InitialUnitSystem(FileName, CYAmInch, false);
    return true;
  } catch (const EXmlError& Problem) { // the content is wrong: a place to look at
    std::cout << Problem.Line() << ": " << ToUtf8(Problem.Element()) << "\n";
  } catch (const EFileError& Problem) { // the file cannot be read
    std::cout << "cannot read " << ToUtf8(Problem.Path()) << "\n";
  } catch (const EUnitError& Problem) { // any other error of the library
    std::cout << Problem.what() << "\n";
  }
  FreeUnitSystem(); // half a file is worse than none; load the one before, or the factory settings
  return false;
}
// end part

// part threads
/// Conversions on several threads: fine while nobody loads or changes settings.
void TotalOnThreads() {
  std::u16string Walls, Slabs;
  std::thread First([&Walls] { Walls = TMeasureDataManager::StoreToDisplay(Area, 92903.04); });
  std::thread Second([&Slabs] { Slabs = TMeasureDataManager::StoreToDisplay(Volume, 28316846.592); });
  First.join();
  Second.join(); // both have ended before settings may change again
  std::cout << ToUtf8(Walls) << " " << ToUtf8(Slabs) << "\n";
}
// end part

int Run() {
  OpenProject(u".");
  ShowAndRead();
  double Millimetres = 0;
  if (ReadExpression(u"3'6\"+2*1'", Millimetres)) std::cout << Millimetres << "\n";
  if (!ReadExpression(u"3'6\"+", Millimetres)) std::cout << "refused\n";
  {
    const TSchedule Schedule;
    UseMetres();
  }
  Elevations();
  TotalOnThreads();
  if (LoadOrTell(u"no-such-file.xml")) return 1;
  FreeUnitSystem();
  return 0;
}

} // namespace

/// Works in the current folder.
int main() {
  std::remove("project-units.xml");
  try {
    return Run();
  } catch (const std::exception& Problem) {
    std::cerr << Problem.what() << "\n";
    return 1;
  }
}
