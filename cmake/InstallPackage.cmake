# The installed library, with a CMake package and a pkg-config file; src/CMakeLists.txt sees to the headers.

include(CMakePackageConfigHelpers)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/TRS8_BTL)

install(TARGETS TRS8_BTL EXPORT TRS8_BTLTargets)
install(EXPORT TRS8_BTLTargets NAMESPACE TRS8_BTL:: DESTINATION ${package_dir})

configure_package_config_file(${CMAKE_CURRENT_LIST_DIR}/TRS8_BTLConfig.cmake.in
                              ${PROJECT_BINARY_DIR}/TRS8_BTLConfig.cmake INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/TRS8_BTLConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/TRS8_BTLConfig.cmake ${PROJECT_BINARY_DIR}/TRS8_BTLConfigVersion.cmake
        DESTINATION ${package_dir})

file(RELATIVE_PATH pkgconfig_to_prefix /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
configure_file(${CMAKE_CURRENT_LIST_DIR}/TRS8_BTL.pc.in ${PROJECT_BINARY_DIR}/TRS8_BTL.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/TRS8_BTL.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
install(FILES ${PROJECT_SOURCE_DIR}/LICENSE DESTINATION ${CMAKE_INSTALL_DOCDIR})

# gdb takes a script from beside the library or from the same folder below its own auto-load folder. Without a question
# it trusts only the latter, which exists once on a machine, in /usr.
if(CMAKE_INSTALL_PREFIX STREQUAL "/usr")
    set(gdb_folder ${CMAKE_INSTALL_DATADIR}/gdb/auto-load${CMAKE_INSTALL_FULL_LIBDIR})
else()
    set(gdb_folder ${CMAKE_INSTALL_LIBDIR})
endif()
install(FILES ${PROJECT_SOURCE_DIR}/gdb/TRS8_BTL-gdb.py DESTINATION ${gdb_folder}
        RENAME $<TARGET_FILE_NAME:TRS8_BTL>-gdb.py)
