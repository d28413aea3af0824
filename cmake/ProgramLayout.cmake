# The layout of folders that a program of the library stands in: NAME/Bin, and NAME/ProgramData beside it.
# TRS8_BTL_IDS_DIR is the folder that the library's language files come from.

# Fails for a language that there are no files for.
function(trs8_btl_check_language language)
    if(NOT IS_DIRECTORY "${TRS8_BTL_IDS_DIR}/${language}")
        message(FATAL_ERROR "There are no language files for ${language}")
    endif()
endfunction()

# trs8_btl_copy_language_files(ROOT [LANGUAGE])
#
# Puts the library's language files where a program in a folder of ROOT finds them: ROOT/ProgramData/IDS has a folder for
# each language, for the program to choose from, and by itself the set of LANGUAGE, which is German if none is named.
function(trs8_btl_copy_language_files root)
    set(language German)
    if(ARGC GREATER 1)
        set(language ${ARGV1})
    endif()
    trs8_btl_check_language(${language})
    set(target "${root}/ProgramData/IDS")
    file(GLOB_RECURSE files CONFIGURE_DEPENDS RELATIVE "${TRS8_BTL_IDS_DIR}" "${TRS8_BTL_IDS_DIR}/*.ids")
    foreach(file IN LISTS files)
        configure_file("${TRS8_BTL_IDS_DIR}/${file}" "${target}/${file}" COPYONLY)
        if(file MATCHES "^${language}/(.*)")
            configure_file("${TRS8_BTL_IDS_DIR}/${file}" "${target}/${CMAKE_MATCH_1}" COPYONLY)
        endif()
    endforeach()
endfunction()

# trs8_btl_install_program(TARGET [NAME name] [DESTINATION folder] [LANGUAGE language] [PROGRAM_DATA folder...])
#
# Installs a program as DESTINATION/NAME/Bin/TARGET, and beside Bin the folder ProgramData with the library's language
# files, as trs8_btl_copy_language_files puts them, and with what the folders of PROGRAM_DATA hold, such as
# Product/Application.ini. NAME is that of the target if none is given; DESTINATION counts from the prefix and is the
# prefix itself by default.
function(trs8_btl_install_program target)
    cmake_parse_arguments(PARSE_ARGV 1 program "" "NAME;DESTINATION;LANGUAGE" "PROGRAM_DATA")
    if(program_UNPARSED_ARGUMENTS)
        message(FATAL_ERROR "trs8_btl_install_program: what is ${program_UNPARSED_ARGUMENTS}?")
    endif()
    foreach(default "NAME;${target}" "DESTINATION;." "LANGUAGE;German")
        list(GET default 0 name)
        if(NOT program_${name})
            list(GET default 1 program_${name})
        endif()
    endforeach()
    trs8_btl_check_language(${program_LANGUAGE})
    set(root "${program_DESTINATION}/${program_NAME}")
    install(TARGETS ${target} RUNTIME DESTINATION "${root}/Bin")
    install(DIRECTORY "${TRS8_BTL_IDS_DIR}/" "${TRS8_BTL_IDS_DIR}/${program_LANGUAGE}/"
            DESTINATION "${root}/ProgramData/IDS")
    foreach(folder IN LISTS program_PROGRAM_DATA)
        file(REAL_PATH "${folder}" folder BASE_DIRECTORY "${CMAKE_CURRENT_SOURCE_DIR}")
        install(DIRECTORY "${folder}/" DESTINATION "${root}/ProgramData")
    endforeach()
endfunction()
