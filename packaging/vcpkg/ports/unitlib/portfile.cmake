# An overlay port that lives beside the sources it builds:
#   vcpkg install unitlib --overlay-ports=packaging/vcpkg/ports
get_filename_component(SOURCE_PATH "${CMAKE_CURRENT_LIST_DIR}/../../../.." ABSOLUTE)

vcpkg_check_features(OUT_FEATURE_OPTIONS FEATURE_OPTIONS FEATURES dialogs UNITLIB_BUILD_UI)
vcpkg_find_acquire_program(PKGCONFIG)
vcpkg_cmake_configure(SOURCE_PATH "${SOURCE_PATH}"
  OPTIONS ${FEATURE_OPTIONS} -DUNITLIB_BUILD_APPS=OFF -DUNITLIB_BUILD_TESTS=OFF "-DPKG_CONFIG_EXECUTABLE=${PKGCONFIG}")
vcpkg_cmake_install()
vcpkg_cmake_config_fixup(CONFIG_PATH lib/cmake/unitlib)
vcpkg_fixup_pkgconfig()
file(REMOVE_RECURSE "${CURRENT_PACKAGES_DIR}/debug/include" "${CURRENT_PACKAGES_DIR}/debug/share")
vcpkg_install_copyright(FILE_LIST "${SOURCE_PATH}/LICENSE")
