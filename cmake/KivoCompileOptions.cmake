# The warnings and code-generation flags of every target of this project; nothing is set globally.

# kivo_harden(<target>): in optimised builds, what stops a program before an overrun memory can be used against it. The
# sanitizers find more and do not bear checked library calls beside them.
function(kivo_harden target)
    if(KIVO_SANITIZE)
        return()
    endif()
    set(optimised "$<CONFIG:Release,RelWithDebInfo,MinSizeRel>")
    target_compile_options(${target} PRIVATE
        "$<${optimised}:-fstack-protector-strong;-U_FORTIFY_SOURCE;-D_FORTIFY_SOURCE=2>")
    if(WIN32)
        # MinGW's linker does this by itself in its newer versions; the protector's own library has to be asked for.
        set(link_options LINKER:--dynamicbase LINKER:--nxcompat LINKER:--high-entropy-va -fstack-protector-strong)
    else()
        set(link_options LINKER:-z,relro LINKER:-z,now LINKER:-z,noexecstack)
    endif()
    target_link_options(${target} PRIVATE "$<${optimised}:${link_options}>")
endfunction()

# kivo_compile_options(<target>): C++17, warnings, exact single precision, hardening, sanitizers where asked for.
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
    if(CMAKE_UNITY_BUILD)
        # What a local name hides may be another source's. Builds of each source by itself warn of the rest.
        target_compile_options(${target} PRIVATE -Wno-shadow)
    endif()
    kivo_harden(${target})
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
