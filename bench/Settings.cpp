#include "bench/Settings.h"

#include "unitlib/model/ZELUnitConfigFileGenerator.h"
#include "unitlib/model/ZELUnitConst.h"
#include "unitlib/model/ZELUnitMgr.h"
#include "unitlib/rtl/FileFolders.h"

#include <filesystem>
#include <random>

namespace unitlib::bench {
namespace {

class TPrivateFolder {
public:
  TPrivateFolder()
      : FPath(std::filesystem::temp_directory_path() /
              ("unitlib-bench-" + std::to_string(std::random_device()()))) {
    std::filesystem::create_directories(FPath);
    SetExePath(FPath.u16string());
    SetCommonDocumentsPath(FPath.u16string());
  }
  ~TPrivateFolder() {
    std::error_code Ignored;
    std::filesystem::remove_all(FPath, Ignored);
  }
  const std::filesystem::path& Path() const { return FPath; }

private:
  std::filesystem::path FPath;
};

const std::filesystem::path& Folder() {
  static const TPrivateFolder Private;
  return Private.Path();
}

TUnit& Use(int ClassifyCode, std::u16string_view Unit) {
  TMeasure& Measure = *TSystemUnitDataManager::CurConfigMeasure(ClassifyCode);
  Measure.SetCurUnit(Unit);
  return *Measure.GetCurUnit();
}

} // namespace

std::u16string PrivateFile(const std::string& Name) {
  return (Folder() / Name).u16string();
}

void LoadFactorySettings() {
  const std::u16string File = PrivateFile("units.xml");
  GenerateUnitDefaultConfigFile(File);
  InitialUnitSystem(File, CYStandMetric, false);
  TSystemUnitDataManager::SetCurConfig(CYStandMetric);
  UseMetres();
}

void UseMetres() {
  for (const int Measure : {0, ElevationMeasure}) {
    TUnit& Unit = Use(Measure, _SMeter);
    Unit.SetCurUnitSymbol(u"m");
    Unit.UseDigitGroup.Checked = true;
    Unit.CurRoundIndex = Unit.DefRoundIndex;
  }
}

void UseFeet() {
  for (const int Measure : {0, ElevationMeasure}) {
    TUnit& Unit = Use(Measure, _SYCHEFENSHIYCUN);
    for (int I = 0; I < Unit.RoundContainer.Count(); ++I)
      if (Unit.RoundContainer[I].Increment == u"1/16") Unit.CurRoundIndex = I;
  }
}

} // namespace unitlib::bench
