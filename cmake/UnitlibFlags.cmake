# Compiler switches that every target of this project shares.
#   unitlib_flags(<target>...)   warnings, sanitizers and the switches that keep arithmetic equal on every platform
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
    if(UNITLIB_SANITIZE)
      target_compile_options(${target} PRIVATE -fsanitize=${UNITLIB_SANITIZE} -fno-omit-frame-pointer
        -fno-sanitize-recover=all)
      target_link_options(${target} PRIVATE -fsanitize=${UNITLIB_SANITIZE})
    endif()
  endforeach()
endfunction()
