# 64-bit Windows.
# Use: cmake --toolchain cmake/toolchain-x86_64-w64-mingw32.cmake ... (after tools/windows-deps)

set(UNITLIB_MINGW_TRIPLE x86_64-w64-mingw32)

include(${CMAKE_CURRENT_LIST_DIR}/mingw-common.cmake)
