# SPDX-License-Identifier: MIT
# Installs the library into an empty prefix, then builds and runs a small program against it: once through the CMake
# package, once through pkg-config. Either way the program gets one include folder.
include(${CMAKE_CURRENT_LIST_DIR}/Steps.cmake)

function(expect_version output how)
    if(NOT output STREQUAL libraryVersion)
        message(FATAL_ERROR "The program built ${how} printed '${output}', not '${libraryVersion}'")
    endif()
endfunction()

# No header includes another by a quoted name: that would be looked for in folders of the user's, too.
function(expect_no_quoted_includes headers)
    foreach(header IN LISTS headers)
        file(STRINGS "${prefix}/include/TRS8_BTL/${header}" includes REGEX "^[ \t]*#[ \t]*include[ \t]*\"")
        if(includes)
            message(FATAL_ERROR "The installed ${header} says ${includes}")
        endif()
    endforeach()
endfunction()

# Compiles a source that includes all headers, with `text/`, `platform/` and the other rooms as folders of the user's
# own before ours in the order of search.
function(expect_no_clash_with_own_folders headers)
    set(includes "")
    foreach(header IN LISTS headers)
        file(WRITE "${workFolder}/own/${header}" "#error this is the user's own ${header}\n")
        string(APPEND includes "#include <TRS8_BTL/${header}>\n")
    endforeach()
    file(WRITE "${workFolder}/own/all.cpp" "${includes}")
    run_step(DESCRIPTION "The compilation of all headers beside folders of their names"
        COMMAND "${compiler}" -std=c++20 ${flags} -fsyntax-only "-I${workFolder}/own" "-I${prefix}/include"
            "${workFolder}/own/all.cpp")
endfunction()

set(consumerFolder "${CMAKE_CURRENT_LIST_DIR}/consumer")
install_library()
file(GLOB_RECURSE headers RELATIVE "${prefix}/include/TRS8_BTL" "${prefix}/include/TRS8_BTL/*")
expect_no_quoted_includes("${headers}")
# The bridge to Qt is for those who have that.
list(FILTER headers EXCLUDE REGEX "^interop/")
expect_no_clash_with_own_folders("${headers}")

build_against_library("${consumerFolder}" "${workFolder}/cmake" "-DwantedVersion=${libraryVersion}")
run_step(DESCRIPTION "The program built with find_package"
    COMMAND "${workFolder}/cmake/consumer" OUTPUT printed)
expect_version("${printed}" "with find_package")
run_step(DESCRIPTION "The program with a simulated instrument"
    COMMAND "${workFolder}/cmake/simulated" OUTPUT printed)
if(NOT printed STREQUAL "ready")
    message(FATAL_ERROR "The program with a simulated instrument printed '${printed}'")
endif()

run_step(DESCRIPTION "The program with a form"
    COMMAND "${workFolder}/cmake/formed" OUTPUT printed)
if(NOT printed STREQUAL "made from a form")
    message(FATAL_ERROR "The program with a form printed '${printed}'")
endif()

# Windows come from the plug-in alone; without a screen the application is as much of Qt's as with one.
if(EXISTS "${workFolder}/cmake/bridged" AND
   (EXISTS "${prefix}/${libFolder}/TRS8_BTL-0.2/libTRS8_BTL_qt.so" OR EXISTS "${prefix}/${libFolder}/libTRS8_BTL_qt.so"))
    run_step(DESCRIPTION "The program of Qt" OUTPUT printed
        COMMAND ${CMAKE_COMMAND} -E env TRS8_BTL_TOOLKIT=qt QT_QPA_PLATFORM=offscreen
            "LSAN_OPTIONS=suppressions=${CMAKE_CURRENT_LIST_DIR}/../support/QtLeaks.txt:print_suppressions=0"
            "${workFolder}/cmake/bridged")
    if(NOT printed STREQUAL "12,5 40 300")
        message(FATAL_ERROR "The program of Qt printed '${printed}'")
    endif()
endif()

file(STRINGS "${workFolder}/cmake/ProgramData/IDS/BTL_German.ids" texts REGEX "^200020000=The program")
if(NOT texts)
    message(FATAL_ERROR "The program lies in a folder without the English language files")
endif()
run_step(DESCRIPTION "The installation of a program"
    COMMAND "${CMAKE_COMMAND}" --install "${workFolder}/cmake" --prefix "${workFolder}/programs")
run_step(DESCRIPTION "The program in its folders"
    COMMAND "${workFolder}/programs/opt/Locator/Bin/located" OUTPUT printed)
if(NOT printed STREQUAL "Locator\\Bin\\ Located")
    message(FATAL_ERROR "The program in its folders printed '${printed}'")
endif()

build_with_pkg_config("${consumerFolder}/main.cpp" "${workFolder}/consumer")
if(NOT pkgFlags MATCHES "^-I[^ ]*/include -L")
    message(FATAL_ERROR "pkg-config tells more than one include folder: ${pkgFlags}")
endif()
run_step(DESCRIPTION "The program built with pkg-config"
    COMMAND "${workFolder}/consumer" OUTPUT printed)
expect_version("${printed}" "with pkg-config")

file(REMOVE_RECURSE "${workFolder}")
