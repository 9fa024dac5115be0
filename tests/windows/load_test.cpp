/// The DLL in a host that loads it by name: nothing of the host changes, and it goes as it came, dialogs or
/// not.
#include "unitlib/capi/unitlib.h"

#include <gtest/gtest.h>

#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>

#include <clocale>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>

namespace windows_test {
namespace fs = std::filesystem;
namespace {

HMODULE LoadIt() {
  return LoadLibraryW(L"unitlib.dll");
}

template <class T> T* Find(HMODULE Module, const char* Name) {
  T* const Found = reinterpret_cast<T*>(reinterpret_cast<void*>(GetProcAddress(Module, Name)));
  EXPECT_TRUE(Found) << Name;
  return Found;
}
#define FIND(Module, Name) Find<decltype(Name)>(Module, #Name)

struct TFloatState {
  uint16_t X87;
  uint32_t Sse;
};

TFloatState GetFloatState() {
  TFloatState State{};
  asm volatile("fnstcw %0" : "=m"(State.X87) : : "memory");
  asm volatile("stmxcsr %0" : "=m"(State.Sse) : : "memory");
  State.X87 |= 0x40;   // reserved; set by some instructions and not by others
  State.Sse &= ~0x3FU; // what has happened, not what is set
  return State;
}

void SetFloatState(const TFloatState& State) {
  asm volatile("fldcw %0" : : "m"(State.X87) : "memory");
  asm volatile("ldmxcsr %0" : : "m"(State.Sse) : "memory");
}

TEST(Loading, LeavesTheFloatingPointStateAlone) {
  const TFloatState Before = GetFloatState(), Host = {0x1372, 0x1900};
  SetFloatState(Host); // errors interrupt: as many hosts have it
  const HMODULE Module = LoadIt();
  const TFloatState Loaded = GetFloatState();
  const BOOL Freed = FreeLibrary(Module);
  const TFloatState After = GetFloatState();
  SetFloatState(Before);
  ASSERT_TRUE(Module && Freed);
  EXPECT_EQ(Host.X87, Loaded.X87);
  EXPECT_EQ(Host.Sse, Loaded.Sse);
  EXPECT_EQ(Host.X87, After.X87);
  EXPECT_EQ(Host.Sse, After.Sse);
}

/// Settings in a folder of their own, and dialogs that a timer answers.
class Dialogs : public testing::Test {
protected:
  Dialogs() { fs::create_directories(FFolder); }
  ~Dialogs() override {
    std::error_code Ignored;
    fs::remove_all(FFolder, Ignored);
  }

  /// Opens the dialog and cancels it as soon as it is there.
  static void OpenAndCancel(HMODULE Module, const std::u16string& File, int32_t* Outcome) {
    const UINT_PTR Timer = SetTimer(nullptr, 0, 20, &CancelDialog);
    const ul_status Status =
        FIND(Module, ul_project_units_dialog)(UL_US_IMPERIAL, File.data(), static_cast<int32_t>(File.size()),
                                              nullptr, nullptr, nullptr, nullptr, Outcome);
    KillTimer(nullptr, Timer);
    EXPECT_EQ(UL_OK, Status);
  }

  std::u16string Prepare(HMODULE Module) const {
    const std::u16string File = (FFolder / "UnitConfig.xml").u16string(), Folder = FFolder.u16string();
    EXPECT_EQ(UL_OK,
              FIND(Module, ul_set_common_documents_path)(Folder.data(), static_cast<int32_t>(Folder.size())));
    EXPECT_EQ(UL_OK,
              FIND(Module, ul_generate_default_config_file)(File.data(), static_cast<int32_t>(File.size())));
    return File;
  }

  static HWND FDialog;

private:
  static void CALLBACK CancelDialog(HWND, UINT, UINT_PTR, DWORD) {
    const HWND Dialog = FindWindowW(nullptr, L"Project Units");
    if (!Dialog || !IsWindowVisible(Dialog)) return;
    FDialog = Dialog;
    PostMessageW(Dialog, WM_CLOSE, 0, 0);
  }

  const fs::path FFolder =
      fs::temp_directory_path() / ("unitlib-load-" + std::to_string(GetCurrentProcessId()));
};
HWND Dialogs::FDialog = nullptr;

size_t PrivateKilobytes() {
  MEMORYSTATUSEX Status{};
  Status.dwLength = sizeof Status;
  GlobalMemoryStatusEx(&Status);
  return static_cast<size_t>((Status.ullTotalVirtual - Status.ullAvailVirtual) / 1024);
}

TEST_F(Dialogs, OpenAgainWhenTheLibraryIsLoadedAgain) {
  size_t AfterTen = 0;
  for (int Round = 0; Round < 100; ++Round) {
    SCOPED_TRACE(Round);
    const HMODULE Module = LoadIt();
    ASSERT_TRUE(Module);
    const std::u16string File = Prepare(Module);
    if (Round % 4 == 0) { // with a dialog, and without
      int32_t Outcome = -1;
      FDialog = nullptr;
      OpenAndCancel(Module, File, &Outcome);
      EXPECT_EQ(UL_DIALOG_CANCEL, Outcome);
      EXPECT_TRUE(FDialog) << "the dialog was on the screen";
      EXPECT_FALSE(IsWindow(FDialog)) << "and is gone";
    }
    EXPECT_EQ(UL_OK, FIND(Module, ul_free_unit_system)());
    EXPECT_EQ(UL_OK, FIND(Module, ul_free_dialogs)());
    ASSERT_TRUE(FreeLibrary(Module));
    ASSERT_FALSE(GetModuleHandleW(L"unitlib.dll"));
    if (Round == 9) AfterTen = PrivateKilobytes();
  }
  const size_t Grown = PrivateKilobytes() - AfterTen;
  EXPECT_LE(Grown, 90 * 256u) << "kilobytes of address space over 90 rounds";
}

TEST_F(Dialogs, DoNotChangeTheLocaleOfTheHost) {
  std::setlocale(LC_ALL, "C");
  const HMODULE Module = LoadIt();
  ASSERT_TRUE(Module);
  int32_t Outcome = -1;
  OpenAndCancel(Module, Prepare(Module), &Outcome);
  EXPECT_STREQ("C", std::setlocale(LC_ALL, nullptr));
  FIND(Module, ul_free_dialogs)();
  EXPECT_TRUE(FreeLibrary(Module));
}

TEST_F(Dialogs, KeepTheFloatingPointStateOfTheHost) {
  const HMODULE Module = LoadIt();
  ASSERT_TRUE(Module);
  const std::u16string File = Prepare(Module);
  int32_t Outcome = -1;
  const TFloatState Before = GetFloatState(), Host = {0x1372, 0x1900};
  SetFloatState(Host);
  OpenAndCancel(Module, File, &Outcome);
  const TFloatState After = GetFloatState();
  SetFloatState(Before);
  EXPECT_EQ(UL_DIALOG_CANCEL, Outcome);
  EXPECT_EQ(Host.X87, After.X87);
  EXPECT_EQ(Host.Sse, After.Sse);
  FIND(Module, ul_free_dialogs)();
  EXPECT_TRUE(FreeLibrary(Module));
}

/// What a host leaves undone at its end must not make it crash: the process of this test ends without
/// freeing.
TEST_F(Dialogs, EndOfTheProcessNeedsNoHelp) {
  const HMODULE Module = LoadIt();
  ASSERT_TRUE(Module);
  int32_t Outcome = -1;
  OpenAndCancel(Module, Prepare(Module), &Outcome);
  EXPECT_EQ(UL_DIALOG_CANCEL, Outcome);
}

} // namespace
} // namespace windows_test
