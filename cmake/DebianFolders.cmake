# Completes the folders that cpack makes the Debian packages of: takes the symbols out of the library, and gives each
# package its licence and its logs of changes.

set(sourceFolder "${CMAKE_CURRENT_LIST_DIR}/..")
set(version "${CPACK_PACKAGE_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE}")

# Moves the symbols to the place at which gdb looks for those of a library with this build-id.
function(divide_symbols library)
    execute_process(COMMAND readelf --notes --wide "${library}" OUTPUT_VARIABLE notes COMMAND_ERROR_IS_FATAL ANY)
    if(NOT notes MATCHES "Build ID: ([0-9a-f][0-9a-f])([0-9a-f]+)")
        message(FATAL_ERROR "${library} has no build-id, so gdb would never find its symbols")
    endif()
    set(folder "${CPACK_TEMPORARY_DIRECTORY}/Symbols/usr/lib/debug/.build-id/${CMAKE_MATCH_1}")
    file(MAKE_DIRECTORY "${folder}")
    execute_process(COMMAND objcopy --only-keep-debug "${library}" "${folder}/${CMAKE_MATCH_2}.debug"
        COMMAND_ERROR_IS_FATAL ANY)
    file(CHMOD "${folder}/${CMAKE_MATCH_2}.debug" PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)
    execute_process(COMMAND strip --strip-unneeded --remove-section=.comment "${library}" COMMAND_ERROR_IS_FATAL ANY)
endfunction()

# Writes a file and compresses it, as the same bytes each time.
function(write_compressed file text)
    file(WRITE "${file}" "${text}")
    execute_process(COMMAND gzip -9nf "${file}" COMMAND_ERROR_IS_FATAL ANY)
endfunction()

function(add_papers component package)
    set(folder "${CPACK_TEMPORARY_DIRECTORY}/${component}/usr/share/doc/${package}")
    configure_file("${sourceFolder}/LICENSE" "${folder}/copyright" COPYONLY)
    file(READ "${sourceFolder}/CHANGELOG.md" changes)
    write_compressed("${folder}/changelog" "${changes}")
    string(TIMESTAMP date "%a, %d %b %Y %H:%M:%S +0000" UTC)
    write_compressed("${folder}/changelog.Debian"
        "${CPACK_DEBIAN_PACKAGE_SOURCE} (${version}) unstable; urgency=medium

  * Version ${CPACK_PACKAGE_VERSION}; changelog.gz tells what is new in it.

 -- ${CPACK_PACKAGE_CONTACT}  ${date}
")
endfunction()

# Nobody looks into a tool of the build.
function(strip_programs)
    file(GLOB programs "${CPACK_TEMPORARY_DIRECTORY}/Development/usr/bin/*")
    execute_process(COMMAND strip --strip-unneeded --remove-section=.comment ${programs} COMMAND_ERROR_IS_FATAL ANY)
endfunction()

file(GLOB_RECURSE libraries "${CPACK_TEMPORARY_DIRECTORY}/Runtime/*.so.${CPACK_PACKAGE_VERSION}"
     "${CPACK_TEMPORARY_DIRECTORY}/Qt/*.so")
foreach(library IN LISTS libraries)
    divide_symbols("${library}")
endforeach()
strip_programs()
foreach(component IN LISTS CPACK_COMPONENTS_ALL)
    string(TOUPPER "${component}" name)
    add_papers("${component}" "${CPACK_DEBIAN_${name}_PACKAGE_NAME}")
endforeach()
