# Installation: libraries, headers and the package configuration. Components: core, ui, capi, tools.
include(CMakePackageConfigHelpers)

set(UNITLIB_CMAKE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/unitlib)
get_target_property(UNITLIB_CORE_TYPE unitlib TYPE)

# unitlib_install(<target> <component> HEADERS dir...)   one library with its headers, as its own export set
function(unitlib_install target component)
  cmake_parse_arguments(ARG "" "" "HEADERS" ${ARGN})
  install(TARGETS ${target} EXPORT unitlib-${component}
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT ${component}
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT ${component}
    RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT ${component})
  install(EXPORT unitlib-${component} NAMESPACE unitlib:: DESTINATION ${UNITLIB_CMAKE_DIR} COMPONENT ${component}
    FILE unitlib-${component}-targets.cmake)
  foreach(dir IN LISTS ARG_HEADERS)
    install(DIRECTORY ${PROJECT_SOURCE_DIR}/unitlib/${dir} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/unitlib
      COMPONENT ${component} FILES_MATCHING PATTERN "*.h")
  endforeach()
endfunction()

unitlib_install(unitlib core HEADERS rtl model convert expr typing notify)
install(FILES ${PROJECT_SOURCE_DIR}/unitlib/ZELUnitPackage.h DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/unitlib COMPONENT core)
if(TARGET unitlib_ui)
  unitlib_install(unitlib_ui ui HEADERS ui)
endif()
if(TARGET unitlib_capi)
  unitlib_install(unitlib_capi capi)
  install(FILES ${PROJECT_SOURCE_DIR}/unitlib/capi/unitlib.h DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT capi)
  if(TARGET unitlib_capi_ui)
    unitlib_install(unitlib_capi_ui capi_ui)
  endif()
endif()

configure_package_config_file(${CMAKE_CURRENT_LIST_DIR}/unitlibConfig.cmake.in ${PROJECT_BINARY_DIR}/unitlibConfig.cmake
  INSTALL_DESTINATION ${UNITLIB_CMAKE_DIR})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/unitlibConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/unitlibConfig.cmake ${PROJECT_BINARY_DIR}/unitlibConfigVersion.cmake
  DESTINATION ${UNITLIB_CMAKE_DIR} COMPONENT core)
