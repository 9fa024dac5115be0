# Compiler switches that every target of this project shares.
#   unitlib_flags(<target>...)   warnings, sanitizers and the switches that keep arithmetic equal on every platform
#                                Optimised builds are hardened as well: checked buffers, stack and containers (see UNITLIB_HARDENING)
include(CheckPIESupported)
check_pie_supported() # programs are linked as what they are compiled as

function(unitlib_flags)
  foreach(target IN LISTS ARGN)
    target_compile_options(${target} PRIVATE
      $<$<COMPILE_LANGUAGE:CXX,C>:-Wall -Wextra -Wconversion -Wshadow>
      $<$<BOOL:${UNITLIB_WARNINGS_AS_ERRORS}>:-Werror>
      # GCC 12 alone takes "literal" + text for an overlapping copy (its bug 105651, mended in 13).
      $<$<AND:$<COMPILE_LANG_AND_ID:CXX,GNU>,$<VERSION_LESS:$<CXX_COMPILER_VERSION>,13>>:-Wno-restrict>
      # No fused multiply-add: a double product is rounded before it is added, on every machine alike.
      -ffp-contract=off)
    if(MINGW)
      target_compile_options(${target} PRIVATE
        # GCC 12 sees overlapping copies in std::string where there are none.
        $<$<COMPILE_LANG_AND_ID:CXX,GNU>:-Wno-restrict>
        # No path of the building machine in what is shipped.
        $<$<COMPILE_LANGUAGE:CXX,C>:-ffile-prefix-map=${PROJECT_SOURCE_DIR}=. -ffile-prefix-map=${UNITLIB_WINDOWS_PREFIX}=.>)
    endif()
    if(UNITLIB_HARDENING AND NOT UNITLIB_SANITIZE)
      # An index out of a container's range ends the program instead of reading on.
      target_compile_definitions(${target} PRIVATE $<$<CONFIG:Release,RelWithDebInfo,MinSizeRel>:_GLIBCXX_ASSERTIONS>)
      if(NOT WIN32) # the Windows runtime has its own guards; the linker there sets DYNAMICBASE and NXCOMPAT by itself
        target_compile_options(${target} PRIVATE $<$<CONFIG:Release,RelWithDebInfo,MinSizeRel>:-U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2
          -fstack-protector-strong -fstack-clash-protection $<$<STREQUAL:${CMAKE_SYSTEM_PROCESSOR},x86_64>:-fcf-protection>>)
        target_link_options(${target} PRIVATE $<$<CONFIG:Release,RelWithDebInfo,MinSizeRel>:LINKER:-z,relro,-z,now,-z,noexecstack>)
      endif()
    endif()
    if(UNITLIB_SANITIZE)
      target_compile_options(${target} PRIVATE -fsanitize=${UNITLIB_SANITIZE} -fno-omit-frame-pointer
        -fno-sanitize-recover=all)
      target_link_options(${target} PRIVATE -fsanitize=${UNITLIB_SANITIZE})
    endif()
    if(UNITLIB_BUILD_FUZZ)
      target_compile_options(${target} PRIVATE -fsanitize=fuzzer-no-link) # what libFuzzer steers by
    endif()
  endforeach()
endfunction()
