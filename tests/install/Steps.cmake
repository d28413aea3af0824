# SPDX-License-Identifier: MIT
# What the tests of the installed library share.

set(prefix "${workFolder}/prefix")

# No window shows up on a display that is there.
set(ENV{TRS8_BTL_TOOLKIT} headless)

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

# Installs the library into an empty prefix.
function(install_library)
    file(REMOVE_RECURSE "${workFolder}")
    file(MAKE_DIRECTORY "${workFolder}")
    run_step(DESCRIPTION "The installation"
        COMMAND ${CMAKE_COMMAND} --install "${buildFolder}" --prefix "${prefix}" --config "${config}")
endfunction()

# Builds the project `source` against the installed library; further arguments go to its configuration.
function(build_against_library source folder)
    string(REPLACE ";" " " flagText "${flags}")
    run_step(DESCRIPTION "The configuration with find_package"
        COMMAND ${CMAKE_COMMAND} -S "${source}" -B "${folder}" -G "${generator}"
            "-DCMAKE_PREFIX_PATH=${prefix}" "-DCMAKE_CXX_COMPILER=${compiler}" "-DCMAKE_CXX_FLAGS=${flagText}"
            ${ARGN})
    run_step(DESCRIPTION "The build with find_package" COMMAND ${CMAKE_COMMAND} --build "${folder}")
endfunction()

# Builds a program of one source by what pkg-config tells of the installed library. Sets `pkgFlags` to that.
function(build_with_pkg_config source program)
    find_program(pkgConfig NAMES pkg-config pkgconf REQUIRED)
    set(ENV{PKG_CONFIG_PATH} "${prefix}/${libFolder}/pkgconfig")
    run_step(DESCRIPTION "pkg-config" OUTPUT pkgFlags
        COMMAND ${pkgConfig} --cflags --libs "TRS8_BTL = ${libraryVersion}")
    set(pkgFlags "${pkgFlags}" PARENT_SCOPE)
    separate_arguments(pkgFlags UNIX_COMMAND "${pkgFlags}")
    run_step(DESCRIPTION "The build with pkg-config"
        COMMAND "${compiler}" -std=c++20 ${flags} "${source}" -o "${program}" ${pkgFlags}
            "-Wl,-rpath,${prefix}/${libFolder}")
endfunction()

# Compares the values of the program of debugger/ as gdb shows them; further arguments go to gdb.
function(compare_in_gdb program)
    find_program(gdb NAMES gdb REQUIRED)
    # The plain locale has no letters beyond ASCII.
    run_step(DESCRIPTION "The comparison in gdb"
        COMMAND "${gdb}" -nx -batch -iex "set host-charset UTF-8" ${ARGN}
            -x "${CMAKE_CURRENT_FUNCTION_LIST_DIR}/debugger/compare.py" "${program}")
endfunction()
