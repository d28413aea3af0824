# The Debian packages, which cpack makes of the installation and scripts/package of the rest. They need a build for
# /usr: there the library lies in the folder of the machine's kind.

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_CONTACT "TRS8_BTL developers <trs8-btl@example.org>")
set(CPACK_COMPONENTS_ALL Runtime Development Documentation Symbols)
set(packaged_targets TRS8_BTL_low TRS8_BTL TRS8_BTL_testing trs8_btl_form)
if(TARGET TRS8_BTL_qt)
    list(APPEND CPACK_COMPONENTS_ALL Qt)
    list(APPEND packaged_targets TRS8_BTL_qt)
endif()
# What scripts/package builds.
add_custom_target(packaged DEPENDS ${packaged_targets})
set(CPACK_DEB_COMPONENT_INSTALL ON)
# The installation sees /usr as its prefix, not a folder that stands for it.
set(CPACK_SET_DESTDIR ON)
# Each package has a summary of its own, in the first line of its description.
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_CURRENT_LIST_DIR}/DebianFolders.cmake)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SOURCE trs8-btl)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)

# The symbols name the sources as they lie below the project's root, wherever that was.
foreach(target IN LISTS packaged_targets)
    target_compile_options(${target} PRIVATE -ffile-prefix-map=${PROJECT_SOURCE_DIR}=.)
endforeach()

# Describes the package of a component: `kind` goes to the end of its summary, `content` to that of its description.
function(describe_package component name section kind content)
    set(CPACK_DEBIAN_${component}_PACKAGE_NAME ${name} PARENT_SCOPE)
    set(CPACK_DEBIAN_${component}_PACKAGE_SECTION ${section} PARENT_SCOPE)
    set(CPACK_DEBIAN_${component}_DESCRIPTION "foundation library for measuring${kind}
TRS8_BTL gives desktop applications for measuring and data management their
strings, variants, dates, string lists, streams, vectors, numbers with units
and text functions.

This package has ${content}." PARENT_SCOPE)
endfunction()

set(so_version ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR})
set(library_package libtrs8-btl${so_version})
describe_package(RUNTIME ${library_package} libs "" "the library")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SHLIBDEPS ON)

# The trigger renews the linker's cache. cpack would add scripts that do so, too, if it weren't for the two names of
# scripts; it leaves out what is no file.
set(control_folder ${PROJECT_BINARY_DIR}/debian)
file(WRITE ${control_folder}/triggers "activate-noawait ldconfig\n")
file(WRITE ${control_folder}/shlibs "libTRS8_BTL ${so_version} ${library_package} (>= ${PROJECT_VERSION})\n")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA ${control_folder}/triggers ${control_folder}/shlibs
                                               ${control_folder}/none/postinst ${control_folder}/none/postrm)

describe_package(DEVELOPMENT libtrs8-btl-dev libdevel " (development files)"
                 "the headers, the language files, the compiler of forms, the
CMake package and the file for pkg-config")
set(CPACK_COMPONENT_DEVELOPMENT_DEPENDS Runtime)
# It has a program, which needs the library of this very build.
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR}/src)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SUGGESTS ${library_package}-qt)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SUGGESTS "libjsoncpp-dev, libtrs8-btl-doc")

describe_package(QT ${library_package}-qt libs " (windows)" "the plug-in by which programs show windows on the desktop, with Qt")
set(CPACK_COMPONENT_QT_DEPENDS Runtime)
set(CPACK_DEBIAN_QT_PACKAGE_SHLIBDEPS ON)
# TIFF is one of Qt's further formats.
set(CPACK_DEBIAN_QT_PACKAGE_RECOMMENDS qt6-image-formats-plugins)

describe_package(SYMBOLS ${library_package}-dbgsym debug " (debug symbols)" "what gdb shows of the library's own code")
set(CPACK_COMPONENT_SYMBOLS_DEPENDS Runtime)

describe_package(DOCUMENTATION libtrs8-btl-doc doc " (documentation)" "the guide and the reference pages")
set(CPACK_DEBIAN_DOCUMENTATION_PACKAGE_ARCHITECTURE all)
# What scripts/docs makes; an installation by hand goes without.
install(DIRECTORY ${PROJECT_SOURCE_DIR}/build/docs/html DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/libtrs8-btl-doc
        COMPONENT Documentation EXCLUDE_FROM_ALL)

include(CPack)
