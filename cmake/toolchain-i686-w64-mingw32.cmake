# 32-bit Windows, the platform of the host application.
# Use: cmake --toolchain cmake/toolchain-i686-w64-mingw32.cmake ... (after tools/windows-deps)

set(UNITLIB_MINGW_TRIPLE i686-w64-mingw32)

# Double arithmetic in SSE registers, as on 64-bit Linux: the x87 unit would keep 64 bits of mantissa between
# operations and round twice. The stack is realigned because a host compiled for i386 calls with 4-byte alignment,
# and SSE spills need 16.
set(unitlib_arch_flags "-msse2 -mfpmath=sse -mstackrealign")
set(CMAKE_C_FLAGS_INIT "${unitlib_arch_flags}")
set(CMAKE_CXX_FLAGS_INIT "${unitlib_arch_flags}")

include(${CMAKE_CURRENT_LIST_DIR}/mingw-common.cmake)
