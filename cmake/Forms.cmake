# Forms in programs and libraries: see docs/FORMS.md.

# trs8_btl_forms(TARGET FILE...)
#
# Compiles each text NAME.form and puts it into TARGET, a program or library, where its class finds it by its own name.
# A fault in one stops the build and is told with file, line and column. From a static library the forms come along into
# what is linked with it.
function(trs8_btl_forms target)
    if(NOT ARGN)
        message(FATAL_ERROR "trs8_btl_forms: which files?")
    endif()
    # The library's own forms can't be made with a program that needs the library.
    set(tool TRS8_BTL::trs8_btl_form)
    if(target STREQUAL "TRS8_BTL")
        set(tool trs8_btl_form_own)
    endif()
    get_target_property(type ${target} TYPE)
    set(folder "${CMAKE_CURRENT_BINARY_DIR}/${target}_forms")
    file(MAKE_DIRECTORY "${folder}")
    foreach(file IN LISTS ARGN)
        file(REAL_PATH "${file}" file BASE_DIRECTORY "${CMAKE_CURRENT_SOURCE_DIR}")
        cmake_path(GET file STEM name)
        string(MAKE_C_IDENTIFIER "trs8_btl_form_${target}_${name}" symbol)
        set(source "${folder}/${name}.form.cpp")
        set(search "")
        if(TARGET TRS8_BTL::TRS8_BTL AND NOT target STREQUAL "TRS8_BTL")
            # Where the library was installed, the loader needn't look.
            set(search ${CMAKE_COMMAND} -E env "LD_LIBRARY_PATH=$<TARGET_FILE_DIR:TRS8_BTL::TRS8_BTL>:$ENV{LD_LIBRARY_PATH}")
        endif()
        add_custom_command(OUTPUT "${source}" COMMAND ${search} $<TARGET_FILE:${tool}> source "${file}" -o "${source}"
                                                      --symbol ${symbol}
                           DEPENDS "${file}" ${tool} COMMENT "Compiling ${name}.form" VERBATIM)
        target_sources(${target} PRIVATE "${source}")
        if(type STREQUAL "STATIC_LIBRARY")
            target_link_options(${target} INTERFACE "LINKER:--undefined=${symbol}")
        endif()
    endforeach()
endfunction()
