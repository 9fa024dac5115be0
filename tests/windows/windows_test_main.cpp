/// Also the other process of its own tests: --other TASK FILE EVENTS
#include "tests/windows/OtherProcess.h"

#include <gmock/gmock.h>

#include <cwchar>

int wmain(int Count, wchar_t** Arguments) {
  testing::InitGoogleMock(&Count, Arguments);
  if (Count == 5 && std::wcscmp(Arguments[1], L"--other") == 0)
    return windows_test::RunOtherProcess(Arguments[2], Arguments[3], Arguments[4]);
  return RUN_ALL_TESTS();
}
