# SPDX-License-Identifier: MIT
# Installs the library into an empty prefix, then builds and runs a small program against it: once
# through the CMake package, once through pkg-config.
function(run_step)
    cmake_parse_arguments(PARSE_ARGV 0 step "" "DESCRIPTION;OUTPUT" "COMMAND")
    execute_process(COMMAND ${step_COMMAND}
        RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE errors)
    if(NOT result EQUAL 0)
        message(FATAL_ERROR "${step_DESCRIPTION} failed (${result})\n${output}\n${errors}")
    endif()
    if(step_OUTPUT)
        string(STRIP "${output}" output)
        set(${step_OUTPUT} "${output}" PARENT_SCOPE)
    endif()
endfunction()

function(expect_version output how)
    if(NOT output STREQUAL libraryVersion)
        message(FATAL_ERROR "The program built ${how} printed '${output}', not '${libraryVersion}'")
    endif()
endfunction()

set(consumerFolder "${CMAKE_CURRENT_LIST_DIR}/consumer")
set(prefix "${workFolder}/prefix")
file(REMOVE_RECURSE "${workFolder}")
file(MAKE_DIRECTORY "${workFolder}")

run_step(DESCRIPTION "The installation"
    COMMAND ${CMAKE_COMMAND} --install "${buildFolder}" --prefix "${prefix}" --config "${config}")

string(REPLACE ";" " " flagText "${flags}")
run_step(DESCRIPTION "The configuration with find_package"
    COMMAND ${CMAKE_COMMAND} -S "${consumerFolder}" -B "${workFolder}/cmake" -G "${generator}"
        "-DCMAKE_PREFIX_PATH=${prefix}" "-DCMAKE_CXX_COMPILER=${compiler}" "-DCMAKE_CXX_FLAGS=${flagText}"
        "-DwantedVersion=${libraryVersion}")
run_step(DESCRIPTION "The build with find_package"
    COMMAND ${CMAKE_COMMAND} --build "${workFolder}/cmake")
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
