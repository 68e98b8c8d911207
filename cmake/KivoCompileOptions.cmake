# The warnings and code-generation flags of every target of this project; nothing is set globally.

# kivo_compile_options(<target>): C++17, warnings, exact single precision, sanitizers where asked for.
function(kivo_compile_options target)
    target_compile_features(${target} PUBLIC cxx_std_17)
    set_target_properties(${target} PROPERTIES
        CXX_EXTENSIONS OFF
        CXX_VISIBILITY_PRESET hidden
        VISIBILITY_INLINES_HIDDEN ON)
    target_compile_options(${target} PRIVATE
        -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wno-sign-conversion -Wnon-virtual-dtor -Woverloaded-virtual
        -Wcast-qual -Wundef
        -ffp-contract=off)
    if(KIVO_WARNINGS_AS_ERRORS)
        target_compile_options(${target} PRIVATE -Werror)
    endif()
    if(KIVO_SANITIZE)
        target_compile_options(${target} PRIVATE
            -fsanitize=${KIVO_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
        target_link_options(${target} PRIVATE -fsanitize=${KIVO_SANITIZE})
    endif()
    if(WIN32)
        target_compile_definitions(${target} PRIVATE NOMINMAX WIN32_LEAN_AND_MEAN)
    endif()
endfunction()
