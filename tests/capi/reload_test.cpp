/// The library loaded and unloaded 100 times in one process, with threads that outlive it.
#include "unitlib/capi/unitlib.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <latch>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#ifdef _WIN32
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
#else
#include <dlfcn.h>
#include <fstream>
#include <unistd.h>
#endif

namespace capi_test {
namespace {

#ifdef _WIN32
using TModule = HMODULE;
std::string LibraryFile() {
  return UNITLIB_CAPI_FILE_NAME; // beside the program, or wherever PATH leads
}
TModule Load() {
  return LoadLibraryA(LibraryFile().c_str());
}
template <class T> T* Find(TModule Module, const char* Name) {
  return reinterpret_cast<T*>(reinterpret_cast<void*>(GetProcAddress(Module, Name)));
}
void Unload(TModule Module) {
  ASSERT_TRUE(FreeLibrary(Module));
}
bool IsLoaded() {
  return GetModuleHandleA(UNITLIB_CAPI_FILE_NAME) != nullptr;
}
#else
using TModule = void*;
std::string LibraryFile() {
  const char* const Given = std::getenv("UNITLIB_CAPI_LIBRARY");
  return Given ? Given : UNITLIB_CAPI_FILE_NAME;
}
TModule Load() {
  return dlopen(LibraryFile().c_str(), RTLD_NOW | RTLD_LOCAL);
}
template <class T> T* Find(TModule Module, const char* Name) {
  return reinterpret_cast<T*>(dlsym(Module, Name));
}
void Unload(TModule Module) {
  ASSERT_EQ(0, dlclose(Module)) << dlerror();
}
bool IsLoaded() {
  void* const Module = dlopen(LibraryFile().c_str(), RTLD_NOW | RTLD_NOLOAD);
  if (Module) dlclose(Module);
  return Module != nullptr;
}
#endif

/// Fails on the calling thread, so that the library keeps a record for it.
void FailOnce(TModule Module) {
  const auto CheckDisplay = Find<decltype(ul_check_display_u8)>(Module, "ul_check_display_u8");
  ASSERT_TRUE(CheckDisplay);
  int32_t Valid = 0;
  EXPECT_EQ(UL_ERROR_NOT_LOADED, CheckDisplay(0, "5", 1, &Valid));
}

/// A thread with a record that stays until the library is gone.
class TSurvivor {
public:
  explicit TSurvivor(TModule Module)
      : FThread([this, Module] {
          FailOnce(Module);
          FFailed.count_down();
          FMayEnd.wait();
        }) {
    FFailed.wait();
  }
  ~TSurvivor() {
    FMayEnd.count_down();
    FThread.join();
  }

private:
  std::latch FFailed{1}, FMayEnd{1};
  std::thread FThread;
};

/// Uses the library as a host does, short of files.
void Use(TModule Module) {
  FailOnce(Module);
  const auto GetDisplayValue = Find<decltype(ul_get_display_value_u8)>(Module, "ul_get_display_value_u8");
  const auto RegisterUnit = Find<decltype(ul_register_unit_parser_u8)>(Module, "ul_register_unit_parser_u8");
  const auto HasUnit = Find<decltype(ul_has_unit_parser_u8)>(Module, "ul_has_unit_parser_u8");
  ASSERT_TRUE(GetDisplayValue && RegisterUnit && HasUnit);
  char Text[16] = "";
  EXPECT_EQ(UL_OK, GetDisplayValue("1 [m]", UL_TO_NUL, Text, 16, nullptr));
  EXPECT_STREQ("1 m", Text);
  int32_t Present = -1;
  EXPECT_EQ(UL_OK, HasUnit("TChainParser", UL_TO_NUL, &Present));
  EXPECT_EQ(0, Present) << "nothing is left of the library loaded before";
  EXPECT_EQ(UL_OK, RegisterUnit("TChainParser", UL_TO_NUL, 20116.8));
}

TEST(Reload, OneHundredTimes) {
  for (int Round = 0; Round < 100; ++Round) {
    SCOPED_TRACE(Round);
    const TModule Module = Load();
    ASSERT_TRUE(Module) << LibraryFile();
    Use(Module);
    std::thread([Module] { FailOnce(Module); }).join(); // a thread that ends before the library
    TSurvivor Survivor(Module);                         // and one that ends after it
    Unload(Module);
    ASSERT_FALSE(IsLoaded());
  }
}

#if defined(__linux__) && !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
size_t ResidentPages() {
  size_t Total = 0, Resident = 0;
  std::ifstream("/proc/self/statm") >> Total >> Resident;
  return Resident;
}

TEST(Reload, LeavesNoMemoryBehind) {
  auto Rounds = [](int Count) {
    for (int Round = 0; Round < Count; ++Round) {
      const TModule Module = Load();
      ASSERT_TRUE(Module);
      Use(Module);
      Unload(Module);
    }
  };
  Rounds(50); // until the allocator has its pages
  const size_t Before = ResidentPages();
  Rounds(200);
  EXPECT_LE(ResidentPages(), Before + 64) << "256 KiB over 200 rounds";
}
#endif

} // namespace
} // namespace capi_test
