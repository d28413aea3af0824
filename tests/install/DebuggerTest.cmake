# SPDX-License-Identifier: MIT
# gdb finds the printers that were installed with the library, and shows values of all kinds as they read.
include(${CMAKE_CURRENT_LIST_DIR}/Steps.cmake)

install_library()
build_against_library("${CMAKE_CURRENT_LIST_DIR}/debugger" "${workFolder}/build")
# gdb takes scripts only from places that it trusts.
compare_in_gdb("${workFolder}/build/values" -iex "add-auto-load-safe-path ${prefix}")

file(REMOVE_RECURSE "${workFolder}")
