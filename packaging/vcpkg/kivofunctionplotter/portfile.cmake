# An overlay port: it builds the checkout that it lies in.
get_filename_component(SOURCE_PATH "${CURRENT_PORT_DIR}/../../.." ABSOLUTE)

vcpkg_cmake_configure(
    SOURCE_PATH "${SOURCE_PATH}"
    OPTIONS
        -DKIVO_BUILD_TESTS=OFF
        -DKIVO_BUILD_EXAMPLES=OFF
        -DKIVO_BUILD_VIEWER=OFF
        -DKIVO_BUILD_CONTROLS=OFF
        -DKIVO_WARNINGS_AS_ERRORS=OFF
)
vcpkg_cmake_install()
vcpkg_cmake_config_fixup(CONFIG_PATH lib/cmake/KivoFunctionPlotter)
vcpkg_fixup_pkgconfig()

file(REMOVE_RECURSE "${CURRENT_PACKAGES_DIR}/debug/include")
file(INSTALL "${CURRENT_PORT_DIR}/usage" DESTINATION "${CURRENT_PACKAGES_DIR}/share/${PORT}")
vcpkg_install_copyright(FILE_LIST
    "${SOURCE_PATH}/LICENSE" "${SOURCE_PATH}/LICENSES/Apache-2.0.txt" "${SOURCE_PATH}/LICENSES/Matplotlib.txt")
