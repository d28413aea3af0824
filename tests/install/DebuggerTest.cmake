# SPDX-License-Identifier: MIT
# gdb finds the printers that were installed with the library, and shows values of all kinds as they read.
include(${CMAKE_CURRENT_LIST_DIR}/Steps.cmake)

set(debuggerFolder "${CMAKE_CURRENT_LIST_DIR}/debugger")
install_library()
build_against_library("${debuggerFolder}" "${workFolder}/build")

find_program(gdb NAMES gdb REQUIRED)
# The plain locale has no letters beyond ASCII, and gdb takes scripts only from places that it trusts.
run_step(DESCRIPTION "The comparison in gdb"
    COMMAND "${gdb}" -nx -batch -iex "set host-charset UTF-8" -iex "add-auto-load-safe-path ${prefix}"
        -x "${debuggerFolder}/compare.py" "${workFolder}/build/values")

file(REMOVE_RECURSE "${workFolder}")
