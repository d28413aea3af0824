# SPDX-License-Identifier: MIT
# Installs the library into an empty prefix, then builds and runs a small program against it: once
# through the CMake package, once through pkg-config.
include(${CMAKE_CURRENT_LIST_DIR}/Steps.cmake)

function(expect_version output how)
    if(NOT output STREQUAL libraryVersion)
        message(FATAL_ERROR "The program built ${how} printed '${output}', not '${libraryVersion}'")
    endif()
endfunction()

set(consumerFolder "${CMAKE_CURRENT_LIST_DIR}/consumer")
install_library()
build_against_library("${consumerFolder}" "${workFolder}/cmake" "-DwantedVersion=${libraryVersion}")
run_step(DESCRIPTION "The program built with find_package"
    COMMAND "${workFolder}/cmake/consumer" OUTPUT printed)
expect_version("${printed}" "with find_package")

find_program(pkgConfig NAMES pkg-config pkgconf REQUIRED)
set(ENV{PKG_CONFIG_PATH} "${prefix}/${libFolder}/pkgconfig")
run_step(DESCRIPTION "pkg-config" OUTPUT pkgFlags
    COMMAND ${pkgConfig} --cflags --libs "TRS8_BTL = ${libraryVersion}")
separate_arguments(pkgFlags UNIX_COMMAND "${pkgFlags}")
run_step(DESCRIPTION "The build with pkg-config"
    COMMAND "${compiler}" -std=c++20 ${flags} "${consumerFolder}/main.cpp" -o "${workFolder}/consumer"
        ${pkgFlags} "-Wl,-rpath,${prefix}/${libFolder}")
run_step(DESCRIPTION "The program built with pkg-config"
    COMMAND "${workFolder}/consumer" OUTPUT printed)
expect_version("${printed}" "with pkg-config")

file(REMOVE_RECURSE "${workFolder}")
