# Installation: libraries, headers, package configuration, pkg-config files, Python module.
# Install components: core, ui, capi, capi_ui hold what a program needs to run, those with _dev what it needs to be
# built; tools the programs, python the module. docs/packages.md lists them.
include(CMakePackageConfigHelpers)

set(UNITLIB_CMAKE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/unitlib)
set(UNITLIB_PYTHON_DIR lib/python3/dist-packages CACHE STRING "Folder of Python modules below the prefix")
get_target_property(UNITLIB_CORE_TYPE unitlib TYPE)

# unitlib_install(<target> <component> HEADERS dir...)   one library with its headers, as its own export set
function(unitlib_install target component)
  cmake_parse_arguments(ARG "" "" "HEADERS" ${ARGN})
  install(TARGETS ${target} EXPORT unitlib-${component}
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT ${component}_dev
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT ${component} NAMELINK_COMPONENT ${component}_dev
    RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT ${component})
  install(EXPORT unitlib-${component} NAMESPACE unitlib:: DESTINATION ${UNITLIB_CMAKE_DIR} COMPONENT ${component}_dev
    FILE unitlib-${component}-targets.cmake)
  foreach(dir IN LISTS ARG_HEADERS)
    install(DIRECTORY ${PROJECT_SOURCE_DIR}/unitlib/${dir} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/unitlib
      COMPONENT ${component}_dev FILES_MATCHING PATTERN "*.h")
  endforeach()
endfunction()

# The way from the folder of the pkg-config files up to the prefix, so that an installed tree may be moved.
if(IS_ABSOLUTE "${CMAKE_INSTALL_LIBDIR}" OR IS_ABSOLUTE "${CMAKE_INSTALL_INCLUDEDIR}")
  message(FATAL_ERROR "CMAKE_INSTALL_LIBDIR and CMAKE_INSTALL_INCLUDEDIR are folders below the prefix")
endif()
file(RELATIVE_PATH UNITLIB_PC_UP "/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/")
string(REGEX REPLACE "/$" "" UNITLIB_PC_UP "${UNITLIB_PC_UP}")

# unitlib_pkgconfig(<component> NAME text LIBS flags REQUIRES modules PRIVATE modules CFLAGS flags)   unitlib-<component>.pc
function(unitlib_pkgconfig component)
  cmake_parse_arguments(PC "" "NAME;LIBS;REQUIRES;PRIVATE;CFLAGS" "" ${ARGN})
  string(REPLACE "_" "-" file "${PROJECT_BINARY_DIR}/unitlib-${component}.pc")
  configure_file(${PROJECT_SOURCE_DIR}/cmake/unitlib.pc.in ${file} @ONLY)
  install(FILES ${file} DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT ${component}_dev)
endfunction()

unitlib_install(unitlib core HEADERS rtl model convert expr typing notify)
install(FILES ${PROJECT_SOURCE_DIR}/unitlib/ZELUnitPackage.h DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/unitlib
  COMPONENT core_dev)
if(UNITLIB_CORE_TYPE STREQUAL "STATIC_LIBRARY")
  # Only the static library is installed, so every program needs what it is made of, with --static or without.
  unitlib_pkgconfig(core NAME "unitlib" LIBS "-lunitlib" REQUIRES "pugixml, libpcre2-8")
else()
  unitlib_pkgconfig(core NAME "unitlib" LIBS "-lunitlib" PRIVATE "pugixml, libpcre2-8")
endif()
if(TARGET unitlib_ui)
  unitlib_install(unitlib_ui ui HEADERS ui)
  if(NOT WIN32)
    # The toolkit has no pkg-config file. The classes of the dialogs are its own, so a program links it, too.
    find_package(wxWidgets 3.2 REQUIRED COMPONENTS core base)
    list(TRANSFORM wxWidgets_INCLUDE_DIRS PREPEND "-I" OUTPUT_VARIABLE wx_cflags)
    list(TRANSFORM wxWidgets_DEFINITIONS PREPEND "-D" OUTPUT_VARIABLE wx_definitions)
    string(JOIN " " wx_cflags ${wx_cflags} ${wx_definitions})
    string(JOIN " " wx_libs ${wxWidgets_LIBRARIES})
    unitlib_pkgconfig(ui NAME "unitlib dialogs" LIBS "-lunitlib_ui ${wx_libs}" CFLAGS "${wx_cflags}"
      REQUIRES "unitlib-core = ${PROJECT_VERSION}")
  endif()
endif()
if(TARGET unitlib_capi)
  unitlib_install(unitlib_capi capi)
  install(FILES ${PROJECT_SOURCE_DIR}/unitlib/capi/unitlib.h DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT capi_dev)
  get_target_property(capi_name unitlib_capi OUTPUT_NAME)
  unitlib_pkgconfig(capi NAME "unitlib C interface" LIBS "-l${capi_name}")
  if(TARGET unitlib_capi_ui)
    unitlib_install(unitlib_capi_ui capi_ui)
    unitlib_pkgconfig(capi_ui NAME "unitlib C interface with dialogs" LIBS "-lunitlib_c_ui")
  endif()
  install(DIRECTORY ${PROJECT_SOURCE_DIR}/python/unitlib DESTINATION ${UNITLIB_PYTHON_DIR} COMPONENT python
    FILES_MATCHING PATTERN "*.py" PATTERN "py.typed" PATTERN "__pycache__" EXCLUDE)
endif()

configure_package_config_file(${CMAKE_CURRENT_LIST_DIR}/unitlibConfig.cmake.in ${PROJECT_BINARY_DIR}/unitlibConfig.cmake
  INSTALL_DESTINATION ${UNITLIB_CMAKE_DIR})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/unitlibConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/unitlibConfig.cmake ${PROJECT_BINARY_DIR}/unitlibConfigVersion.cmake
  DESTINATION ${UNITLIB_CMAKE_DIR} COMPONENT core_dev)

if(UNITLIB_DEBIAN_PACKAGES)
  include(UnitlibPackages)
endif()
