/// A long life in short: millions of conversions and thousands of loads and saves, with memory that stays as
/// it is.
///   unitlib_soak [CONVERSIONS [CYCLES]]      50 million and 10,000 by default
/// Exit status 0: every result was right and memory stayed flat.
#include "unitlib/convert/ZELUnitConvertor.h"
#include "unitlib/expr/ZELUnitArthProcessor.h"
#include "unitlib/model/ZELUnitConfigFileGenerator.h"
#include "unitlib/model/ZELUnitMgr.h"
#include "unitlib/rtl/FileFolders.h"
#include "unitlib/rtl/Files.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <random>
#include <string>

namespace {

using namespace unitlib;
using TManager = TSystemUnitDataManager;

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr long Room = 1L << 20; // a sanitizer keeps what is freed for a while
#else
constexpr long Room = 512; // KiB that the allocator may take for its own order
#endif

/// Resident memory in KiB.
long Memory() {
  long Pages = 0, Resident = 0;
  std::ifstream("/proc/self/statm") >> Pages >> Resident;
  return Resident * 4;
}

[[noreturn]] void Fail(const char* What, long Step) {
  std::fprintf(stderr, "wrong: %s at step %ld\n", What, Step);
  std::exit(1);
}

/// Shows a length and reads it again, shows an area and an elevation: four conversions.
void Convert(long Step) {
  const double Inches = static_cast<double>(Step % 100000) / 16;
  const std::u16string Shown = TMeasureDataManager::StoreToDisplay(0, Inches * 25.4);
  const double Read = TMeasureDataManager::DisplayToStore(0, Shown);
  if (std::fabs(Read - Inches * 25.4) > 25.4 / 32) Fail("a length", Step); // half of the smallest increment
  const std::u16string Area = TMeasureDataManager::StoreToDisplay(1, static_cast<double>(Step) * 92903.04);
  if (Area.empty()) Fail("an area", Step);
  if (GetElevDisplayValue(u"1.6764") != u"5' 6\"") Fail("an elevation", Step);
}

void LoadAndSave(long Step, const std::u16string& File) {
  TManager::InitUnitSystemSetting(File);
  TManager::SetCurConfig(0);
  TManager::SetCurDigitGroupIndex(static_cast<int>(Step % 2));
  TManager::SaveConfigFile({});
  if (Step % 10 != 0) return;
  try {
    TManager::InitSystemUnit(File + u".none.xml"); // a failure now and then
    Fail("a missing file", Step);
  } catch (const std::exception&) {
  }
}

/// Runs Step Count times; memory at the end is that of the first tenth.
bool Run(const char* What, long Count, const std::function<void(long)>& Step) {
  const auto Start = std::chrono::steady_clock::now();
  long Warm = 0, Most = 0;
  for (long I = 0; I < Count; ++I) {
    Step(I);
    if (I == Count / 10) Warm = Memory();
    if (I > Count / 10 && I % (Count / 100 + 1) == 0) Most = std::max(Most, Memory());
  }
  const std::chrono::duration<double> Took = std::chrono::steady_clock::now() - Start;
  std::printf("%ld %s in %.0f s: %ld KiB after a tenth, at most %ld KiB later\n", Count, What, Took.count(),
              Warm, Most);
  return Most <= Warm + Room;
}

} // namespace

int main(int Count, char** Values) {
  const long Conversions = Count > 1 ? std::atol(Values[1]) : 50'000'000,
             Cycles = Count > 2 ? std::atol(Values[2]) : 10'000;
  const auto Folder =
      std::filesystem::temp_directory_path() / ("unitlib-soak-" + std::to_string(std::random_device{}()));
  std::filesystem::create_directory(Folder);
  const std::u16string File = (Folder / "settings.xml").u16string();
  GenerateUnitDefaultConfigFile(File);
  TManager::InitUnitSystemSetting(File);
  TManager::SetCurConfig(0);
  constexpr long PerStep = 4;
  const bool Flat = Run("steps of four conversions", Conversions / PerStep, Convert);
  const bool StillFlat = Run("loads and saves", Cycles, [&](long Step) { LoadAndSave(Step, File); });
  FreeUnitSystem();
  std::filesystem::remove_all(Folder);
  std::puts(Flat && StillFlat ? "memory is flat" : "memory grows");
  return Flat && StillFlat ? 0 : 1;
}
