# What the tests of all folders share: GoogleTest, where programs go, and how they are compiled.

find_package(GTest QUIET)
if(NOT GTest_FOUND) # cross-building: from the sources that Debian's package googletest brings
    set(gtest_force_shared_crt ON)
    set(INSTALL_GTEST OFF)
    set(BUILD_SHARED_LIBS OFF)
    add_subdirectory(/usr/src/googletest "${CMAKE_CURRENT_BINARY_DIR}/googletest" EXCLUDE_FROM_ALL)
    foreach(library gmock gtest_main)
        if(NOT TARGET GTest::${library})
            add_library(GTest::${library} ALIAS ${library})
        endif()
    endforeach()
endif()

# kivo_test_program(<target> <source>...): the options of every target, but few optimisations: compiling the tests takes
# longer than running what they could speed up. The program is built as tests/<target>, wherever its sources are.
function(kivo_test_program target)
    add_executable(${target} ${ARGN})
    kivo_test_options(${target})
    set_target_properties(${target} PROPERTIES RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/tests")
endfunction()

function(kivo_test_options target)
    kivo_compile_options(${target})
    target_compile_options(${target} PRIVATE "$<$<CONFIG:Release>:-O1>")
endfunction()
