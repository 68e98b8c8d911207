# What of the library is installed: the library itself (component runtime), and what building with it takes
# (component development; the static library is part of that).

include(CMakePackageConfigHelpers)
set(kivo_package_dir "${CMAKE_INSTALL_LIBDIR}/cmake/KivoFunctionPlotter")

install(TARGETS KivoFunctionPlotter EXPORT KivoFunctionPlotterTargets
    RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}" COMPONENT runtime
    LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT runtime NAMELINK_COMPONENT development
    ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT development)
install(FILES
    src/KivoFunctionPlotter.h src/KivoHost.h src/KivoPicture.h src/KivoPlatform.h src/KivoWindow.h
    "${kivo_generated_headers}/KivoVersion.h"
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
