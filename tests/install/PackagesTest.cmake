# SPDX-License-Identifier: MIT
# Makes the Debian packages and has dpkg install them into an empty root, on which the README's program is built and run
# as the README tells, and on which gdb shows values by the symbols that come apart.
include(${CMAKE_CURRENT_LIST_DIR}/Steps.cmake)

cmake_path(SET projectFolder NORMALIZE "${CMAKE_CURRENT_LIST_DIR}/../..")
set(root "${workFolder}/root")
set(prefix "${root}/usr")
set(readme "${projectFolder}/README.md")
# dpkg asks for the administrator's programs in the path of whoever calls it.
set(ENV{PATH} "$ENV{PATH}:/usr/sbin:/sbin")

function(make_packages)
    file(REMOVE_RECURSE "${workFolder}")
    run_step(DESCRIPTION "scripts/package" COMMAND "${projectFolder}/scripts/package" "${workFolder}/packages")
    file(GLOB packages "${workFolder}/packages/*.deb")
    foreach(package IN LISTS packages)
        run_step(DESCRIPTION "dpkg-deb" OUTPUT name COMMAND dpkg-deb --field "${package}" Package)
        set(package_${name} "${package}" PARENT_SCOPE)
        list(APPEND names "${name}")
    endforeach()
    set(packages "${packages}" PARENT_SCOPE)
    string(REGEX MATCH "^[0-9]+\\.[0-9]+" soVersion "${libraryVersion}")
    set(library "libtrs8-btl${soVersion}")
    set(library "${library}" PARENT_SCOPE)
    # The windows are there where Qt is.
    list(REMOVE_ITEM names "${library}-qt")
    if(NOT names STREQUAL "libtrs8-btl-dev;libtrs8-btl-doc;${library}-dbgsym;${library}")
        message(FATAL_ERROR "The packages are ${names}")
    endif()
endfunction()

# Makes a root in which nothing is installed but what the library says it needs, as dpkg knows it of this machine.
function(make_root)
    run_step(DESCRIPTION "dpkg-deb" OUTPUT needs COMMAND dpkg-deb --field "${package_${library}}" Depends)
    foreach(need IN ITEMS libc6 libicu libstdc++6)
        string(FIND "${needs}" "${need}" place)
        if(place EQUAL -1)
            message(FATAL_ERROR "The library doesn't say that it needs ${need}, only ${needs}")
        endif()
    endforeach()
    string(REGEX REPLACE " *\\([^)]*\\)" "" needs "${needs}")
    string(REGEX REPLACE " *[,|] *" ";" needs "${needs}")
    run_step(DESCRIPTION "dpkg-query" OUTPUT status COMMAND dpkg-query --status ${needs})
    file(WRITE "${root}/var/lib/dpkg/status" "${status}\n")
    file(MAKE_DIRECTORY "${root}/var/lib/dpkg/info" "${root}/var/lib/dpkg/updates")
endfunction()

# dpkg as root in the root, whoever runs the test; a machine may leave pages out of what it installs.
set(dpkg fakeroot dpkg --force-not-root "--root=${root}" "--log=${workFolder}/dpkg.log" "--path-include=*" --install)

# The headers of one version are no use with the library of another.
function(expect_refusal_without_library)
    execute_process(COMMAND ${dpkg} "${package_libtrs8-btl-dev}"
        RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE output)
    if(result EQUAL 0 OR NOT output MATCHES "depends on ${library} \\(= ${libraryVersion}-1\\)")
        message(FATAL_ERROR "dpkg installed the headers without the library (${result})\n${output}")
    endif()
endfunction()

function(expect_no_path_of_this_machine)
    execute_process(COMMAND grep -rlF "${projectFolder}" "${root}" OUTPUT_VARIABLE files RESULT_VARIABLE result)
    if(NOT result EQUAL 1)
        message(FATAL_ERROR "${projectFolder} stands in these files of packages:\n${files}")
    endif()
endfunction()

function(expect_files)
    foreach(file IN LISTS ARGN)
        if(NOT EXISTS "${root}/${file}")
            message(FATAL_ERROR "No package has ${file}")
        endif()
    endforeach()
endfunction()

# Writes the README's program with its CMakeLists.txt to `folder`, and what it prints to expected.txt there.
function(extract_readme_program folder)
    file(READ "${readme}" text)
    string(REGEX MATCH "\n```cmake\n([^`]*)```" project "${text}")
    file(WRITE "${folder}/CMakeLists.txt" "${CMAKE_MATCH_1}")
    run_step(DESCRIPTION "The extraction of the README's program"
        COMMAND awk -v page=README.md -v whole=1 -v "program=${folder}/main.cpp" -v "expected=${folder}/expected.txt"
            -f "${projectFolder}/tests/guide/Snippets.awk" "${readme}")
endfunction()

function(expect_readme_output program)
    run_step(DESCRIPTION "The README's program"
        COMMAND ${CMAKE_COMMAND} -E env "LD_LIBRARY_PATH=${prefix}/${libFolder}" ${CMAKE_COMMAND}
            -D "program=${program}" -D "expected=${workFolder}/hello/expected.txt" -D page=README.md
            -D "workFolder=${workFolder}/run" -P "${projectFolder}/tests/guide/RunPage.cmake")
endfunction()

make_packages()
make_root()
# dpkg would refuse the windows in a root without Qt; the test of the toolkit shows that they work.
list(REMOVE_ITEM packages "${package_${library}-qt}")
expect_refusal_without_library()
run_step(DESCRIPTION "dpkg" COMMAND ${dpkg} ${packages})
expect_no_path_of_this_machine()
set(gdbScript "usr/share/gdb/auto-load/usr/${libFolder}/libTRS8_BTL.so.${libraryVersion}-gdb.py")
expect_files(${gdbScript} usr/share/doc/libtrs8-btl-doc/html/index.html
    usr/share/doc/libtrs8-btl-doc/html/md_docs_guide_tour.html)

extract_readme_program("${workFolder}/hello")
build_against_library("${workFolder}/hello" "${workFolder}/hello/build")
expect_readme_output("${workFolder}/hello/build/hello")
set(ENV{PKG_CONFIG_SYSROOT_DIR} "${root}")
build_with_pkg_config("${workFolder}/hello/main.cpp" "${workFolder}/hello/hello")
expect_readme_output("${workFolder}/hello/hello")

# gdb looks for the script in its own root, not in this one.
build_against_library("${CMAKE_CURRENT_LIST_DIR}/debugger" "${workFolder}/values")
compare_in_gdb("${workFolder}/values/values" -iex "set debug-file-directory ${root}/usr/lib/debug"
    -iex "source ${root}/${gdbScript}")

file(REMOVE_RECURSE "${workFolder}")
