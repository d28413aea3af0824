# The version data of a program, a library or an add-in, which BTL::ReadVersionInfo reads from its file.

# Escapes a text for a string of the assembler.
function(trs8_btl_quote_version_text text result)
    string(REPLACE "\\" "\\\\" text "${text}")
    string(REPLACE "\"" "\\\"" text "${text}")
    string(REPLACE "\n" "\\n" text "${text}")
    string(REPLACE "\r" "\\r" text "${text}")
    set(${result} "${text}" PARENT_SCOPE)
endfunction()

# The name of the file that is made of a target, without the numbers that a library may have behind it.
function(trs8_btl_file_name target type result)
    string(REPLACE "MODULE_LIBRARY" "SHARED_MODULE" type ${type})
    set(prefix "${CMAKE_${type}_PREFIX}")
    set(suffix "${CMAKE_${type}_SUFFIX}")
    set(output_name ${target})
    foreach(part prefix suffix output_name)
        string(TOUPPER ${part} property)
        get_target_property(value ${target} ${property})
        if(NOT value STREQUAL "value-NOTFOUND")
            set(${part} "${value}")
        endif()
    endforeach()
    set(${result} "${prefix}${output_name}${suffix}" PARENT_SCOPE)
endfunction()

# trs8_btl_version(TARGET [FILE_VERSION number] [PRODUCT name] [PRODUCT_VERSION number] [DESCRIPTION text]
#                  [COMPANY name] [COPYRIGHT text] [TRADEMARKS text] [COMMENTS text] [AUTHOR name] [FILE_DATE date]
#                  [BUILDER name] [INTERNAL_NAME name] [ORIGINAL_FILENAME name])
#
# Writes version data into a program, a shared library or a module: the ELF section .note.trs8_btl.version, which the
# linker, strip and objcopy leave alone and `readelf --notes` shows. Texts are UTF-8; the library reads them in the code
# page 1252. An empty text counts as none. By default the version of the file is that of the target or of the project,
# product, version and description are those of the project, the builder is the compiler, and the names are those of the
# target and of its file; the other keys are left out.
function(trs8_btl_version target)
    set(keys FILE_VERSION FileVersion PRODUCT ProductName PRODUCT_VERSION ProductVersion DESCRIPTION FileDescription
             COMPANY CompanyName COPYRIGHT LegalCopyright TRADEMARKS LegalTrademarks COMMENTS Comments AUTHOR Autor
             FILE_DATE Dateidatum BUILDER Builder INTERNAL_NAME InternalName ORIGINAL_FILENAME OriginalFilename)
    set(options ${keys})
    list(FILTER options INCLUDE REGEX "^[A-Z_]+$")
    cmake_parse_arguments(PARSE_ARGV 1 version "" "${options}" "")
    if(DEFINED version_UNPARSED_ARGUMENTS)
        message(FATAL_ERROR "trs8_btl_version: what is ${version_UNPARSED_ARGUMENTS}?")
    endif()
    if(NOT TARGET ${target})
        message(FATAL_ERROR "trs8_btl_version: there is no target ${target}")
    endif()
    get_target_property(type ${target} TYPE)
    if(NOT type MATCHES "^(EXECUTABLE|(SHARED|MODULE)_LIBRARY)$")
        message(FATAL_ERROR "trs8_btl_version: ${target} is no program, shared library or module")
    endif()
    get_target_property(has_version ${target} TRS8_BTL_HAS_VERSION)
    if(has_version)
        message(FATAL_ERROR "trs8_btl_version: ${target} has version data already")
    endif()

    get_target_property(file_version ${target} VERSION)
    if(NOT file_version)
        set(file_version "${PROJECT_VERSION}")
    endif()
    trs8_btl_file_name(${target} ${type} file_name)
    set(default_FILE_VERSION "${file_version}")
    set(default_PRODUCT "${PROJECT_NAME}")
    set(default_PRODUCT_VERSION "${PROJECT_VERSION}")
    set(default_DESCRIPTION "${PROJECT_DESCRIPTION}")
    set(default_BUILDER "${CMAKE_CXX_COMPILER_ID} ${CMAKE_CXX_COMPILER_VERSION}")
    set(default_INTERNAL_NAME "${target}")
    set(default_ORIGINAL_FILENAME "${file_name}")

    set(texts "")
    while(keys)
        list(POP_FRONT keys option key)
        set(text "${version_${option}}")
        if(text STREQUAL "")
            set(text "${default_${option}}")
        endif()
        if(NOT text STREQUAL "")
            trs8_btl_quote_version_text("${text}" text)
            string(APPEND texts ".ascii \"${key}=${text}\\0\"\n")
        endif()
    endwhile()
    set(source "${CMAKE_CURRENT_BINARY_DIR}/${target}_version.cpp")
    set(VERSION_TEXTS "${texts}")
    configure_file("${CMAKE_CURRENT_FUNCTION_LIST_DIR}/VersionData.cpp.in" "${source}" @ONLY)
    target_sources(${target} PRIVATE "${source}")
    set_source_files_properties("${source}" TARGET_DIRECTORY ${target} PROPERTIES SKIP_PRECOMPILE_HEADERS ON)
    set_target_properties(${target} PROPERTIES TRS8_BTL_HAS_VERSION ON)
endfunction()
