# What of the C++ standard library decides how strings and vectors lie in memory, which cross the library's interface.

# kivo_record_standard_library(<target> <template> <file>): writes what the target is compiled with into the file. Its name
# contains $<CONFIG>: each configuration has flags of its own.
function(kivo_record_standard_library target template file)
    set(configurations ${CMAKE_CONFIGURATION_TYPES})
    if(NOT configurations)
        set(configurations "${CMAKE_BUILD_TYPE}-")
    endif()
    foreach(configuration IN LISTS configurations)
        string(REGEX REPLACE "-$" "" configuration "${configuration}")
        kivo_probe_standard_library(facts "${configuration}")
        list(GET facts 0 KIVO_GLIBCXX)
        list(GET facts 1 KIVO_CXX11_ABI)
        list(GET facts 2 KIVO_GLIBCXX_DEBUG)
        # Definitions of the project around and of the target come on top.
        kivo_defined(debug ${target} _GLIBCXX_DEBUG _GLIBCXX_DEBUG=1)
        kivo_defined(old ${target} _GLIBCXX_USE_CXX11_ABI=0)
        kivo_defined(new ${target} _GLIBCXX_USE_CXX11_ABI=1 _GLIBCXX_USE_CXX11_ABI)
        set(KIVO_GLIBCXX_DEBUG "$<IF:${debug},1,${KIVO_GLIBCXX_DEBUG}>")
        set(KIVO_CXX11_ABI "$<IF:${old},0,$<IF:${new},1,${KIVO_CXX11_ABI}>>")
        file(READ "${template}" text)
        string(CONFIGURE "${text}" text @ONLY)
        file(GENERATE OUTPUT "${file}" CONTENT "${text}" CONDITION "$<CONFIG:${configuration}>")
    endforeach()
endfunction()

# kivo_probe_standard_library(<variable> <configuration>): whether the compiler, with the flags of all targets, has GNU's
# library, its interface of C++11, and its checked containers, as a list of 0 and 1.
function(kivo_probe_standard_library variable configuration)
    set(program "${CMAKE_CURRENT_BINARY_DIR}/standard_library")
    configure_file("${PROJECT_SOURCE_DIR}/cmake/standard_library.cpp.in" "${program}.cpp" COPYONLY)
    set(CMAKE_TRY_COMPILE_CONFIGURATION "${configuration}")
    try_compile(is_compiled "${program}.build" "${program}.cpp"
        COPY_FILE "${program}" OUTPUT_VARIABLE output)
    if(NOT is_compiled)
        message(FATAL_ERROR "The compiler does not build a small program:\n${output}")
    endif()
    file(STRINGS "${program}" line REGEX "\\[kivo [01][01][01]\\]")
    string(REGEX REPLACE ".*\\[kivo ([01])([01])([01])\\].*" "\\1;\\2;\\3" facts "${line}")
    set(${variable} "${facts}" PARENT_SCOPE)
endfunction()

# kivo_defined(<variable> <target> <definition>...): a generator expression for whether the target has one of them.
function(kivo_defined variable target)
    set(expressions "")
    foreach(definition IN LISTS ARGN)
        list(APPEND expressions
            "$<IN_LIST:${definition},$<TARGET_PROPERTY:${target},COMPILE_DEFINITIONS>>"
            "$<IN_LIST:-D${definition},$<TARGET_PROPERTY:${target},COMPILE_OPTIONS>>")
    endforeach()
    list(JOIN expressions "," expressions)
    set(${variable} "$<OR:${expressions}>" PARENT_SCOPE)
endfunction()
