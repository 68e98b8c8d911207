# What of the library is installed: the library itself (component runtime), and what building with it takes
# (component development; the static library is part of that).

include(CMakePackageConfigHelpers)
include(KivoPkgConfig)
set(kivo_package_dir "${CMAKE_INSTALL_LIBDIR}/cmake/KivoFunctionPlotter")

install(TARGETS KivoFunctionPlotter EXPORT KivoFunctionPlotterTargets
    RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}" COMPONENT runtime
    LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT runtime NAMELINK_COMPONENT development
    ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT development)
install(FILES
    ${kivo_headers}
    "${kivo_generated_headers}/KivoVersion.h"
    "${kivo_build_headers}/KivoBuild.h"
    DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}" COMPONENT development)

# find_package(KivoFunctionPlotter)
install(EXPORT KivoFunctionPlotterTargets
    NAMESPACE KivoFunctionPlotter::
    DESTINATION "${kivo_package_dir}" COMPONENT development)
configure_package_config_file("${PROJECT_SOURCE_DIR}/cmake/KivoFunctionPlotterConfig.cmake.in"
    "${CMAKE_CURRENT_BINARY_DIR}/KivoFunctionPlotterConfig.cmake"
    INSTALL_DESTINATION "${kivo_package_dir}")
write_basic_package_version_file("${CMAKE_CURRENT_BINARY_DIR}/KivoFunctionPlotterConfigVersion.cmake"
    COMPATIBILITY SameMinorVersion)
install(FILES
    "${CMAKE_CURRENT_BINARY_DIR}/KivoFunctionPlotterConfig.cmake"
    "${CMAKE_CURRENT_BINARY_DIR}/KivoFunctionPlotterConfigVersion.cmake"
    DESTINATION "${kivo_package_dir}" COMPONENT development)

# pkg-config. Only the static library needs the packages of what it is made of.
kivo_pkg_config_places()
if(NOT BUILD_SHARED_LIBS)
    list(JOIN KIVO_NATIVE_MODULES " " kivo_pc_requires)
    list(TRANSFORM kivo_system_libraries PREPEND "-l" OUTPUT_VARIABLE kivo_pc_libs)
    if(NOT WIN32)
        list(APPEND kivo_pc_libs "-Wl,-z,nodelete") # a plugin that it is linked into stays loaded
    endif()
    list(JOIN kivo_pc_libs " " kivo_pc_libs)
    set(kivo_pc_definitions "-DKIVO_STATIC")
endif()
configure_file("${PROJECT_SOURCE_DIR}/cmake/KivoFunctionPlotter.pc.in"
    "${CMAKE_CURRENT_BINARY_DIR}/KivoFunctionPlotter.pc" @ONLY)
install(FILES "${CMAKE_CURRENT_BINARY_DIR}/KivoFunctionPlotter.pc"
    DESTINATION "${kivo_pc_dir}" COMPONENT development)
