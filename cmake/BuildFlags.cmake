# What every target of the project is built with.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

if(NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES)
    set(CMAKE_BUILD_TYPE Release CACHE STRING "Kind of build" FORCE)
endif()

find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
    # A precompiled header defeats the cache unless it may take the header's definitions on trust.
    set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env CCACHE_SLOPPINESS=pch_defines,time_macros
                                    ${CCACHE_PROGRAM})
endif()

add_library(trs8_flags INTERFACE)
target_compile_options(trs8_flags INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Werror)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # GCC 12 finds overlapping copies in the standard string's own operator+ once that is inlined.
    target_compile_options(trs8_flags INTERFACE -Wno-restrict)
    if(TRS8_BTL_SANITIZE)
        # The checks that are woven in hide initialisations and sizes from the compiler's flow analysis.
        target_compile_options(trs8_flags INTERFACE -Wno-maybe-uninitialized -Wno-array-bounds
                                                    -Wno-stringop-overflow)
    endif()
endif()

# Sanitizers hold for all that is built: half-instrumented programs report what isn't there.
set(TRS8_BTL_SANITIZE_FLAGS "")
if(TRS8_BTL_SANITIZE)
    set(TRS8_BTL_SANITIZE_FLAGS -fsanitize=${TRS8_BTL_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
endif()
add_compile_options(${TRS8_BTL_SANITIZE_FLAGS})
add_link_options(${TRS8_BTL_SANITIZE_FLAGS})
if(TRS8_BTL_FUZZ)
    if(NOT CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
        message(FATAL_ERROR "TRS8_BTL_FUZZ needs clang++; take the preset fuzz")
    endif()
    add_compile_options(-fsanitize=fuzzer-no-link)
endif()
