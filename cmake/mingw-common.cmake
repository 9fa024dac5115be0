# What both Windows toolchain files share; they set UNITLIB_MINGW_TRIPLE (and their own flags) first.
#
# UNITLIB_WINDOWS_PREFIX  folder with the cross-built packages; by default the one that tools/windows-deps fills:
#                         ${XDG_CACHE_HOME:-~/.cache}/unitlib/windows/<triple>

set(CMAKE_SYSTEM_NAME Windows)
string(REGEX REPLACE "-.*" "" CMAKE_SYSTEM_PROCESSOR "${UNITLIB_MINGW_TRIPLE}")

# The posix-thread compilers: std::thread and std::mutex work, and the thread library is linked in below.
set(CMAKE_C_COMPILER ${UNITLIB_MINGW_TRIPLE}-gcc-posix)
set(CMAKE_CXX_COMPILER ${UNITLIB_MINGW_TRIPLE}-g++-posix)
set(CMAKE_RC_COMPILER ${UNITLIB_MINGW_TRIPLE}-windres)

# One file, nothing beside it: no libgcc, libstdc++ or winpthread DLL to ship. The fixed time stamp makes
# two builds of one source equal, byte for byte.
foreach(kind EXE SHARED MODULE)
  set(CMAKE_${kind}_LINKER_FLAGS_INIT "-static -static-libgcc -static-libstdc++ -Wl,--no-insert-timestamp")
endforeach()

if(NOT DEFINED UNITLIB_WINDOWS_PREFIX)
  if(NOT "$ENV{XDG_CACHE_HOME}" STREQUAL "")
    set(UNITLIB_WINDOWS_PREFIX "$ENV{XDG_CACHE_HOME}/unitlib/windows/${UNITLIB_MINGW_TRIPLE}")
  else()
    set(UNITLIB_WINDOWS_PREFIX "$ENV{HOME}/.cache/unitlib/windows/${UNITLIB_MINGW_TRIPLE}")
  endif()
endif()
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES UNITLIB_WINDOWS_PREFIX)

# Programs come from this machine, everything that is compiled or linked in from the two Windows trees.
set(CMAKE_FIND_ROOT_PATH "${UNITLIB_WINDOWS_PREFIX}" /usr/${UNITLIB_MINGW_TRIPLE})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
set(ENV{PKG_CONFIG_LIBDIR} "${UNITLIB_WINDOWS_PREFIX}/lib/pkgconfig")
set(ENV{PKG_CONFIG_PATH} "")

# wxWidgets, GoogleTest and pugixml bring package configs of their own; FindwxWidgets does not know this layout.
set(CMAKE_FIND_PACKAGE_PREFER_CONFIG ON)

# ctest, add_custom_command and try_run reach Windows programs through Wine.
get_filename_component(unitlib_wine_run "${CMAKE_CURRENT_LIST_DIR}/../tools/wine-run" ABSOLUTE)
set(CMAKE_CROSSCOMPILING_EMULATOR
  "${unitlib_wine_run};--arch;${CMAKE_SYSTEM_PROCESSOR}")
