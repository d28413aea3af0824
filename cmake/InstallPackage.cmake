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

configure_file(${CMAKE_CURRENT_LIST_DIR}/TRS8_BTL.pc.in ${PROJECT_BINARY_DIR}/TRS8_BTL.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/TRS8_BTL.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
install(FILES ${PROJECT_SOURCE_DIR}/LICENSE DESTINATION ${CMAKE_INSTALL_DOCDIR})
