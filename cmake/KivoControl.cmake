# The ready-made controls: a library for each toolkit that is installed, and a component of the package. The base library
# knows none of them.

include(CMakePackageConfigHelpers)
set(kivo_control_components "" CACHE INTERNAL "the controls of this build")

# kivo_control(<component> HEADERS file... SOURCES file... LINK library... DEPENDENCY call [PRIVATE library...]
#              [MODULES prefix module...] [SETUP file] TOOLKIT name PACKAGES debian-package...):
# the library KivoPlot<component>, KivoFunctionPlotter::<component> to its users, and how it is installed. DEPENDENCY is the
# text of the call that finds the libraries of LINK, which users need, too: "Qt6 COMPONENTS Widgets"; where that is PkgConfig,
# MODULES are what pkg_check_modules is asked for then. SETUP is a file that makes targets of what DEPENDENCY finds. PACKAGES are those that building with it takes in Debian.
function(kivo_control component)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "DEPENDENCY;SETUP;TOOLKIT" "HEADERS;SOURCES;LINK;PRIVATE;MODULES;PACKAGES")
    set(target KivoPlot${component})
    string(TOLOWER ${component} lower)
    add_library(${target} ${arg_HEADERS} ${arg_SOURCES})
    add_library(KivoFunctionPlotter::${component} ALIAS ${target})
    kivo_compile_options(${target})
    set_target_properties(${target} PROPERTIES
        EXPORT_NAME ${component}
        VERSION ${PROJECT_VERSION}
        SOVERSION ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR})
    set_property(TARGET ${target} PROPERTY INSTALL_RPATH "$ORIGIN") # where the library lies
    string(TOUPPER ${component} upper)
    if(BUILD_SHARED_LIBS)
        target_compile_definitions(${target} PRIVATE KIVO_BUILDING_${upper})
    else()
        target_compile_definitions(${target} PUBLIC KIVO_STATIC)
    endif()
    target_include_directories(${target} PUBLIC
        "$<BUILD_INTERFACE:${CMAKE_CURRENT_SOURCE_DIR}/include>" "$<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>"
        PRIVATE "${PROJECT_SOURCE_DIR}/controls/core/shared")
    target_link_libraries(${target} PUBLIC KivoFunctionPlotter::KivoFunctionPlotter ${arg_LINK} PRIVATE ${arg_PRIVATE})
    if(KIVO_INSTALL)
        kivo_install_control()
    endif()
    set(kivo_control_components ${kivo_control_components} ${component} CACHE INTERNAL "")
    set(kivo_control_${component}_toolkit "${arg_TOOLKIT}" CACHE INTERNAL "")
    set(kivo_control_${component}_packages "${arg_PACKAGES}" CACHE INTERNAL "")
endfunction()

# With the variables of the function above.
macro(kivo_install_control)
    set(package_dir "${CMAKE_INSTALL_LIBDIR}/cmake/KivoFunctionPlotter")
    install(TARGETS ${target} EXPORT ${target}Targets
        RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}" COMPONENT ${lower}
        LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT ${lower} NAMELINK_COMPONENT ${lower}-development
        ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT ${lower}-development)
    install(FILES ${arg_HEADERS} DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}" COMPONENT ${lower}-development)
    install(EXPORT ${target}Targets NAMESPACE KivoFunctionPlotter::
        DESTINATION "${package_dir}" COMPONENT ${lower}-development)
    set(KIVO_CONTROL_DEPENDENCY "${arg_DEPENDENCY}")
    set(KIVO_CONTROL_TARGET ${target})
    set(KIVO_CONTROL_MODULES "")
    if(arg_MODULES)
        list(POP_FRONT arg_MODULES prefix)
        list(JOIN arg_MODULES " " modules)
        set(KIVO_CONTROL_MODULES "pkg_check_modules(${prefix} QUIET IMPORTED_TARGET ${modules})
if(NOT ${prefix}_FOUND)
    set(KivoFunctionPlotter_FOUND FALSE)
    set(KivoFunctionPlotter_NOT_FOUND_MESSAGE \"pkg-config does not find all of: ${modules}\")
    return()
endif()")
    endif()
    if(arg_SETUP)
        set(KIVO_CONTROL_MODULES "include(\"\${CMAKE_CURRENT_LIST_DIR}/${arg_SETUP}\")")
        install(FILES "${arg_SETUP}" DESTINATION "${package_dir}" COMPONENT ${lower}-development)
    endif()
    configure_file("${PROJECT_SOURCE_DIR}/cmake/KivoControlComponent.cmake.in"
        "${CMAKE_CURRENT_BINARY_DIR}/KivoFunctionPlotter-${component}.cmake" @ONLY)
    install(FILES "${CMAKE_CURRENT_BINARY_DIR}/KivoFunctionPlotter-${component}.cmake"
        DESTINATION "${package_dir}" COMPONENT ${lower}-development)
endmacro()
