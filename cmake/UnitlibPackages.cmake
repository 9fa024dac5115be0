# Debian packages by CPack; tools/packages calls it. One row per package: which install components it holds and what it
# says of itself.
set(UNITLIB_DEBIAN_DIR ${PROJECT_SOURCE_DIR}/packaging/debian)
set(UNITLIB_DEBIAN_REVISION 1)
set(UNITLIB_DEBIAN_VERSION ${PROJECT_VERSION}-${UNITLIB_DEBIAN_REVISION})
set(UNITLIB_DEBIAN_DATE "" CACHE STRING "Date of the packages' changelog, as in RFC 2822")
set(UNITLIB_DEBIAN_MAINTAINER "unitlib developers <developers@unitlib.invalid>")
math(EXPR next_minor "${PROJECT_VERSION_MINOR} + 1")
set(UNITLIB_NEXT_MINOR ${PROJECT_VERSION_MAJOR}.${next_minor})

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME unitlib)
set(CPACK_PACKAGE_CONTACT "${UNITLIB_DEBIAN_MAINTAINER}")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_PRE_BUILD_SCRIPTS ${UNITLIB_DEBIAN_DIR}/compress_manuals.cmake)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_GROUPING ONE_PER_GROUP)
set(CPACK_COMPONENTS_ALL "")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE ${UNITLIB_DEBIAN_REVISION})
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
# The packages of one build depend on each other by name and version, not through the list of installed packages.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR}/unitlib ${PROJECT_BINARY_DIR}/unitlib/ui
  ${PROJECT_BINARY_DIR}/unitlib/capi)

set(lines "unitlib (${UNITLIB_DEBIAN_VERSION}) stable; urgency=medium\n\n  * Version ${PROJECT_VERSION}: see CHANGELOG.md.\n\n")
string(APPEND lines " -- ${UNITLIB_DEBIAN_MAINTAINER}  ${UNITLIB_DEBIAN_DATE}\n")
file(WRITE ${PROJECT_BINARY_DIR}/debian/changelog "${lines}")
find_program(GZIP gzip REQUIRED)
execute_process(COMMAND ${GZIP} -9nfk ${PROJECT_BINARY_DIR}/debian/changelog COMMAND_ERROR_IS_FATAL ANY)

# debian_package(<name> COMPONENTS c... SECTION s SUMMARY text DESCRIPTION text [DEPENDS text] [SUGGESTS text] [ALL]
#                [EXTRA file...])
# The first component carries copyright and changelog.
function(debian_package name)
  cmake_parse_arguments(P "ALL" "SECTION;SUMMARY;DESCRIPTION;DEPENDS;SUGGESTS" "COMPONENTS;EXTRA" ${ARGN})
  list(GET P_COMPONENTS 0 first)
  set(doc ${CMAKE_INSTALL_DATADIR}/doc/${name})
  install(FILES ${UNITLIB_DEBIAN_DIR}/copyright DESTINATION ${doc} COMPONENT ${first})
  install(FILES ${PROJECT_BINARY_DIR}/debian/changelog.gz DESTINATION ${doc} COMPONENT ${first} RENAME changelog.Debian.gz)
  if(EXISTS ${UNITLIB_DEBIAN_DIR}/${name}.lintian-overrides)
    install(FILES ${UNITLIB_DEBIAN_DIR}/${name}.lintian-overrides DESTINATION ${CMAKE_INSTALL_DATADIR}/lintian/overrides
      COMPONENT ${first} RENAME ${name})
  endif()
  foreach(component IN LISTS P_COMPONENTS)
    string(TOUPPER ${component} key)
    set(CPACK_COMPONENT_${key}_GROUP ${name} PARENT_SCOPE)
  endforeach()
  string(TOUPPER ${name} key)
  set(CPACK_DEBIAN_${key}_PACKAGE_NAME ${name} PARENT_SCOPE)
  set(CPACK_DEBIAN_${key}_PACKAGE_SECTION ${P_SECTION} PARENT_SCOPE)
  set(CPACK_DEBIAN_${key}_PACKAGE_DEPENDS "${P_DEPENDS}" PARENT_SCOPE)
  set(CPACK_DEBIAN_${key}_PACKAGE_SUGGESTS "${P_SUGGESTS}" PARENT_SCOPE)
  set(CPACK_DEBIAN_${key}_PACKAGE_CONTROL_EXTRA "${P_EXTRA}" PARENT_SCOPE)
  set(CPACK_DEBIAN_${key}_DESCRIPTION "${P_SUMMARY}\n${P_DESCRIPTION}" PARENT_SCOPE)
  if(P_ALL)
    set(CPACK_DEBIAN_${key}_PACKAGE_ARCHITECTURE all PARENT_SCOPE)
    set(CPACK_DEBIAN_${key}_PACKAGE_SHLIBDEPS OFF PARENT_SCOPE)
  endif()
  set(CPACK_COMPONENTS_ALL ${CPACK_COMPONENTS_ALL} ${P_COMPONENTS} PARENT_SCOPE)
endfunction()

# shared_libraries(<out> <package> <library>...)   control files that tell others which version to depend on, and renew
# the loader's cache. Before version 1 a minor version may change the C++ classes; the C interface only grows.
function(shared_libraries out package)
  set(folder ${PROJECT_BINARY_DIR}/debian/${package})
  set(content)
  foreach(library IN LISTS ARGN)
    set(depends "${package} (>= ${PROJECT_VERSION})")
    if(NOT library MATCHES "^libunitlib_c")
      string(APPEND depends ", ${package} (<< ${UNITLIB_NEXT_MINOR}~)")
    endif()
    string(APPEND content "${library} ${PROJECT_VERSION_MAJOR} ${depends}\n")
  endforeach()
  file(WRITE ${folder}/shlibs "${content}")
  file(WRITE ${folder}/triggers "activate-noawait ldconfig\n")
  set(${out} ${folder}/shlibs ${folder}/triggers PARENT_SCOPE)
endfunction()

set(what "unitlib shows stored quantities of construction, CAD and BIM programs in the\nunit, rounding and symbol that a project asks for, and reads typed ones back,\nfeet and fractional inches included.\n.\n")
set(major ${PROJECT_VERSION_MAJOR})
set(same "(= ${UNITLIB_DEBIAN_VERSION})")

shared_libraries(extra libunitlib${major} libunitlib libunitlib_c)
debian_package(libunitlib${major} COMPONENTS core capi SECTION libs EXTRA ${extra}
  SUMMARY "project units for construction programs"
  DESCRIPTION "${what}This package holds the shared libraries of the core and of the C interface.")
shared_libraries(extra libunitlib-ui${major} libunitlib_ui libunitlib_c_ui)
debian_package(libunitlib-ui${major} COMPONENTS ui capi_ui SECTION libs EXTRA ${extra}
  DEPENDS "libunitlib${major} ${same}"
  SUMMARY "project units for construction programs - dialogs"
  DESCRIPTION "${what}This package holds the shared libraries of the two settings dialogs, for\nC++ and C.")
debian_package(libunitlib-dev COMPONENTS core_dev capi_dev SECTION libdevel
  DEPENDS "libunitlib${major} ${same}" SUGGESTS "libunitlib-ui-dev"
  SUMMARY "project units for construction programs - development files"
  DESCRIPTION "${what}This package holds headers, CMake and pkg-config files, guides and examples.")
debian_package(libunitlib-ui-dev COMPONENTS ui_dev capi_ui_dev SECTION libdevel
  DEPENDS "libunitlib-dev ${same}, libunitlib-ui${major} ${same}, libwxgtk3.2-dev"
  SUMMARY "project units for construction programs - dialog development files"
  DESCRIPTION "${what}This package holds what a program with the settings dialogs is built with.")
debian_package(unitlib-tools COMPONENTS tools SECTION utils
  DEPENDS "libunitlib${major} ${same}, libunitlib-ui${major} ${same}"
  SUMMARY "project units for construction programs - tools"
  DESCRIPTION "${what}This package holds unitctl, which makes and changes settings and converts\nvalues, expressions and schedules, and takeoff, a small host program.")
debian_package(python3-unitlib COMPONENTS python SECTION python ALL
  DEPENDS "libunitlib${major} (>= ${UNITLIB_DEBIAN_VERSION}), python3 (>= 3.10)"
  EXTRA ${UNITLIB_DEBIAN_DIR}/python3-unitlib/postinst ${UNITLIB_DEBIAN_DIR}/python3-unitlib/prerm
  SUMMARY "project units for construction programs - Python module"
  DESCRIPTION "${what}This package holds the Python module on top of the C interface.")

# For who develops with the packages: the guides and the examples.
set(doc ${CMAKE_INSTALL_DATADIR}/doc/libunitlib-dev)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/docs/ DESTINATION ${doc} COMPONENT core_dev
  FILES_MATCHING PATTERN "*.md" PATTERN "*.png" PATTERN "*.svg")
execute_process(COMMAND ${GZIP} -9nc ${PROJECT_SOURCE_DIR}/CHANGELOG.md
  OUTPUT_FILE ${PROJECT_BINARY_DIR}/debian/upstream-changelog.gz COMMAND_ERROR_IS_FATAL ANY)
install(FILES ${PROJECT_BINARY_DIR}/debian/upstream-changelog.gz DESTINATION ${doc} COMPONENT core_dev RENAME changelog.gz)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/examples/ DESTINATION ${doc}/examples COMPONENT core_dev
  FILES_MATCHING PATTERN "*.c" PATTERN "*.cpp" PATTERN "*.py" PATTERN "*.csv" PATTERN "windows-host" EXCLUDE
  PATTERN "__pycache__" EXCLUDE)
install(FILES ${UNITLIB_DEBIAN_DIR}/takeoff.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT tools)

include(CPack)
