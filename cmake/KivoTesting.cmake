# What the tests of all folders share: GoogleTest, how programs are compiled, and how CTest runs them.

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

# kivo_test_options(<target>): the options of every target, but no optimisation and no debug information in optimised builds:
# compiling the tests takes longer than running what either could speed up.
function(kivo_test_options target)
    kivo_compile_options(${target})
    target_compile_options(${target} PRIVATE "$<$<CONFIG:Release>:-O0;-U_FORTIFY_SOURCE;-g0>")
    if(KIVO_SANITIZE)
        target_compile_options(${target} PRIVATE -g1) # lines are enough for reports
    endif()
endfunction()

# kivo_test_program(<target> <source>...): built as tests/<target>, wherever its sources are. What all tests include is
# compiled once.
function(kivo_test_program target)
    add_executable(${target} ${ARGN})
    kivo_test_options(${target})
    set_target_properties(${target} PROPERTIES RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/tests")
    if(CMAKE_UNITY_BUILD)
        kivo_join_tests(${target} ${ARGN})
    endif()
endfunction()

# kivo_join_tests(<target> <source>...): makes its unity sources of tests whose names need not be unique among them: each is
# read in a namespace of its own, behind what all of them include. Left out is what cannot be in a namespace.
function(kivo_join_tests target)
    set(includes "")
    foreach(source ${ARGN})
        set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${source}")
        file(STRINGS "${source}" outside REGEX "^(namespace [A-Za-z:]+ {|extern \"C\"|#(if|define))|operator (new|delete)")
        if(outside)
            set_source_files_properties("${source}" PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
        else()
            file(STRINGS "${source}" lines REGEX "^#include ")
            list(APPEND includes ${lines})
        endif()
    endforeach()
    list(REMOVE_DUPLICATES includes)
    list(JOIN includes "\n" includes)
    set(header "${CMAKE_CURRENT_BINARY_DIR}/${target}-includes.h")
    file(CONFIGURE OUTPUT "${header}" CONTENT "#pragma once\n${includes}\n" @ONLY)
    set_target_properties(${target} PROPERTIES
        UNITY_BUILD_UNIQUE_ID KIVO_SOURCE
        UNITY_BUILD_CODE_BEFORE_INCLUDE "#include \"${header}\"\nnamespace KIVO_SOURCE {"
        UNITY_BUILD_CODE_AFTER_INCLUDE "}")
    target_include_directories(${target} PRIVATE "${CMAKE_CURRENT_SOURCE_DIR}") # for headers that lie beside the tests
    # Suites in unnamed namespaces are the bases of tests outside, which is wrong in headers alone.
    target_compile_options(${target} PRIVATE -Wno-subobject-linkage)
endfunction()

# kivo_computing_sources(<source>...): tests that compute so much by themselves that optimising them pays.
function(kivo_computing_sources)
    set_source_files_properties(${ARGN} PROPERTIES COMPILE_OPTIONS -O1 SKIP_PRECOMPILE_HEADERS ON)
endfunction()

# The kinds of builds are tested side by side; the name of a test begins with its build's.
if(WIN32)
    set(KIVO_TESTED windows)
elseif(KIVO_SANITIZE STREQUAL thread)
    set(KIVO_TESTED threads)
elseif(KIVO_SANITIZE)
    set(KIVO_TESTED sanitizers)
else()
    set(KIVO_TESTED linux)
endif()
set(KIVO_SCRIPTS "${PROJECT_SOURCE_DIR}/scripts")
set(kivo_test_environment "KIVO_BUILD=${PROJECT_BINARY_DIR}")

# kivo_add_test(<name> [QUICK] [LABELS label...] [LOCK resource] [FIXTURE name] [COST seconds] COMMAND word...):
# a test "<build>.<name>" of CTest's, run in the checkout. QUICK ones are those of `./test.sh quick`. COST has long ones begin
# first.
function(kivo_add_test name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "QUICK" "LOCK;FIXTURE;COST" "LABELS;ENVIRONMENT;COMMAND")
    set(test ${KIVO_TESTED}.${name})
    list(TRANSFORM arg_COMMAND REPLACE "^scripts/" "${KIVO_SCRIPTS}/")
    if(KIVO_SANITIZE)
        list(PREPEND arg_COMMAND "${KIVO_SCRIPTS}/sanitizers.sh")
    endif()
    add_test(NAME ${test} COMMAND ${arg_COMMAND} WORKING_DIRECTORY "${PROJECT_SOURCE_DIR}")
    if(arg_QUICK)
        list(APPEND arg_LABELS quick)
    endif()
    set_tests_properties(${test} PROPERTIES
        LABELS "${KIVO_TESTED};${arg_LABELS}"
        ENVIRONMENT "${kivo_test_environment};${arg_ENVIRONMENT}"
        TIMEOUT 1500)
    if(arg_LOCK)
        set_tests_properties(${test} PROPERTIES RESOURCE_LOCK ${arg_LOCK})
    endif()
    if(arg_FIXTURE)
        set_tests_properties(${test} PROPERTIES FIXTURES_REQUIRED ${arg_FIXTURE})
    endif()
    if(arg_COST)
        set_tests_properties(${test} PROPERTIES COST ${arg_COST})
    endif()
endfunction()

# kivo_run_tests(<name> <target> [DISPLAY] [SHARDS count] [FILTER filter] ...): runs a GoogleTest program, without a display or
# with one of its own, in so many processes; further arguments are those of kivo_add_test.
function(kivo_run_tests name target)
    cmake_parse_arguments(PARSE_ARGV 2 run "DISPLAY" "SHARDS;FILTER" "ENVIRONMENT")
    set(command "$<TARGET_FILE:${target}>")
    set(further ${run_UNPARSED_ARGUMENTS})
    if(WIN32)
        set(command "${KIVO_SCRIPTS}/with-display.sh" "${KIVO_SCRIPTS}/with-wine.sh" ${command})
        list(APPEND further LOCK wine FIXTURE wine)
    elseif(run_DISPLAY)
        set(command "${KIVO_SCRIPTS}/with-display.sh" ${command})
    else()
        set(command env -u DISPLAY -u WAYLAND_DISPLAY ${command})
    endif()
    if(run_FILTER)
        list(APPEND command "--gtest_filter=${run_FILTER}")
    endif()
    if(NOT run_SHARDS)
        set(run_SHARDS 1)
    endif()
    foreach(shard RANGE 1 ${run_SHARDS})
        set(part ${name})
        set(environment ${run_ENVIRONMENT})
        if(run_SHARDS GREATER 1)
            string(APPEND part ".${shard}")
            math(EXPR index "${shard} - 1")
            list(APPEND environment GTEST_TOTAL_SHARDS=${run_SHARDS} GTEST_SHARD_INDEX=${index})
        endif()
        kivo_add_test(${part} ${further} ENVIRONMENT ${environment}
            COMMAND "${KIVO_SCRIPTS}/run-tests.sh" ${KIVO_TESTED}.${part} ${command})
    endforeach()
endfunction()
