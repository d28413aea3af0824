# trs8_btl_copy_language_files(ROOT [LANGUAGE])
#
# Puts the library's language files where a program in a folder of ROOT finds them: ROOT/ProgramData/IDS has a folder for
# each language, for the program to choose from, and by itself the set of LANGUAGE, which is German if none is named.
# TRS8_BTL_IDS_DIR is the folder that they come from.
function(trs8_btl_copy_language_files root)
    set(language German)
    if(ARGC GREATER 1)
        set(language ${ARGV1})
    endif()
    if(NOT IS_DIRECTORY "${TRS8_BTL_IDS_DIR}/${language}")
        message(FATAL_ERROR "There are no language files for ${language}")
    endif()
    set(target "${root}/ProgramData/IDS")
    file(GLOB_RECURSE files CONFIGURE_DEPENDS RELATIVE "${TRS8_BTL_IDS_DIR}" "${TRS8_BTL_IDS_DIR}/*.ids")
    foreach(file IN LISTS files)
        configure_file("${TRS8_BTL_IDS_DIR}/${file}" "${target}/${file}" COPYONLY)
        if(file MATCHES "^${language}/(.*)")
            configure_file("${TRS8_BTL_IDS_DIR}/${file}" "${target}/${CMAKE_MATCH_1}" COPYONLY)
        endif()
    endforeach()
endfunction()
