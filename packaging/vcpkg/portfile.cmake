# An overlay port of the checkout that it lies in: vcpkg install curveeditor --overlay-ports=packaging/vcpkg
# For a registry replace the next line by the archive of the release tag v${VERSION}.
get_filename_component(SOURCE_PATH "${CMAKE_CURRENT_LIST_DIR}/../.." ABSOLUTE)

vcpkg_check_features(OUT_FEATURE_OPTIONS features FEATURES gui CURVEEDITOR_BUILD_GUI)
vcpkg_cmake_configure(
  SOURCE_PATH "${SOURCE_PATH}"
  OPTIONS ${features} -DCURVEEDITOR_BUILD_TESTS=OFF -DCURVEEDITOR_BUILD_EXAMPLES=OFF)
vcpkg_cmake_install()
vcpkg_cmake_config_fixup(PACKAGE_NAME CurveEditor CONFIG_PATH lib/cmake/CurveEditor)
vcpkg_fixup_pkgconfig()

file(REMOVE_RECURSE "${CURRENT_PACKAGES_DIR}/debug/include")
vcpkg_install_copyright(FILE_LIST "${SOURCE_PATH}/LICENSE")
