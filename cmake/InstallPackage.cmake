# The installed library, with a CMake package and a pkg-config file; src/CMakeLists.txt sees to the headers.

include(CMakePackageConfigHelpers)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/TRS8_BTL)

install(TARGETS TRS8_BTL TRS8_BTL_testing EXPORT TRS8_BTLTargets LIBRARY COMPONENT Runtime
        NAMELINK_COMPONENT Development ARCHIVE COMPONENT Development)
if(TARGET TRS8_BTL_qt)
    # The library looks for plug-ins in a folder of its minor version, beside itself.
    install(TARGETS TRS8_BTL_qt COMPONENT Qt LIBRARY
            DESTINATION ${CMAKE_INSTALL_LIBDIR}/TRS8_BTL-${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR})
endif()
install(TARGETS trs8_btl_form EXPORT TRS8_BTLTargets RUNTIME COMPONENT Development)
install(EXPORT TRS8_BTLTargets NAMESPACE TRS8_BTL:: DESTINATION ${package_dir} COMPONENT Development)

set(ids_dir ${CMAKE_INSTALL_DATADIR}/TRS8_BTL/IDS)
configure_package_config_file(${CMAKE_CURRENT_LIST_DIR}/TRS8_BTLConfig.cmake.in
                              ${PROJECT_BINARY_DIR}/TRS8_BTLConfig.cmake INSTALL_DESTINATION ${package_dir}
                              PATH_VARS ids_dir)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/TRS8_BTLConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/TRS8_BTLConfig.cmake ${PROJECT_BINARY_DIR}/TRS8_BTLConfigVersion.cmake
              ${CMAKE_CURRENT_LIST_DIR}/ProgramLayout.cmake ${CMAKE_CURRENT_LIST_DIR}/VersionData.cmake
              ${CMAKE_CURRENT_LIST_DIR}/VersionData.cpp.in ${CMAKE_CURRENT_LIST_DIR}/Forms.cmake
        DESTINATION ${package_dir} COMPONENT Development)
# A program takes its own copy of the language files along, which its users may change.
install(DIRECTORY ${PROJECT_SOURCE_DIR}/data/IDS/ DESTINATION ${ids_dir} COMPONENT Development)

file(RELATIVE_PATH pkgconfig_to_prefix /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
configure_file(${CMAKE_CURRENT_LIST_DIR}/TRS8_BTL.pc.in ${PROJECT_BINARY_DIR}/TRS8_BTL.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/TRS8_BTL.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT Development)
install(FILES ${PROJECT_SOURCE_DIR}/LICENSE DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT License)

# gdb takes a script from beside the library or from the same folder below its own auto-load folder. Without a question
# it trusts only the latter, which exists once on a machine, in /usr. The prefix is known when it is installed.
install(CODE "
    set(gdb_folder \"\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_LIBDIR}\")
    if(CMAKE_INSTALL_PREFIX STREQUAL \"/usr\")
        set(gdb_folder \"/usr/${CMAKE_INSTALL_DATADIR}/gdb/auto-load\${gdb_folder}\")
    endif()
    file(INSTALL DESTINATION \"\${gdb_folder}\" TYPE FILE RENAME \"$<TARGET_FILE_NAME:TRS8_BTL>-gdb.py\"
         FILES \"${PROJECT_SOURCE_DIR}/gdb/TRS8_BTL-gdb.py\")" COMPONENT Runtime)
