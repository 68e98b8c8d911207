# Runs the port's script with stand-ins for vcpkg's functions: configures the library and looks for every file that the
# script names. cmake -DBUILD=<folder> -P offline_check.cmake

set(PORT kivofunctionplotter)
set(CURRENT_PORT_DIR "${CMAKE_CURRENT_LIST_DIR}/${PORT}")
set(CURRENT_PACKAGES_DIR "${BUILD}/package")

function(vcpkg_cmake_configure)
    cmake_parse_arguments(PARSE_ARGV 0 arg "" "SOURCE_PATH" "OPTIONS")
    execute_process(COMMAND ${CMAKE_COMMAND} -S "${arg_SOURCE_PATH}" -B "${BUILD}/build" -G Ninja
        -DCMAKE_BUILD_TYPE=Release -DCMAKE_INSTALL_LIBDIR=lib ${arg_OPTIONS}
        ERROR_VARIABLE complaints COMMAND_ERROR_IS_FATAL ANY)
    if(complaints MATCHES "not used by the project")
        message(FATAL_ERROR "the script sets what the project does not know: ${complaints}")
    endif()
endfunction()

function(vcpkg_cmake_install)
endfunction()

function(vcpkg_cmake_config_fixup)
    cmake_parse_arguments(PARSE_ARGV 0 arg "" "CONFIG_PATH" "")
    file(STRINGS "${BUILD}/build/KivoFunctionPlotter/cmake_install.cmake" rules REGEX "/${arg_CONFIG_PATH}\"")
    if(NOT rules)
        message(FATAL_ERROR "nothing is installed to ${arg_CONFIG_PATH}")
    endif()
endfunction()

function(vcpkg_fixup_pkgconfig)
endfunction()

function(vcpkg_install_copyright)
    cmake_parse_arguments(PARSE_ARGV 0 arg "" "" "FILE_LIST")
    file(INSTALL ${arg_FILE_LIST} DESTINATION "${CURRENT_PACKAGES_DIR}")
endfunction()

include("${CURRENT_PORT_DIR}/portfile.cmake")
