# Packages: `cpack` in the build folder makes them; packaging/linux/build and packaging/windows/build drive it.
set(CPACK_PACKAGE_NAME quillset-xml)
set(CPACK_PACKAGE_VENDOR "The Quillset XML developers")
set(QUILLSET_PACKAGER "The Quillset XML developers <quillset-xml@localhost.localdomain>" CACHE STRING
    "Whom a package names as its maintainer: name and <address>")
set(CPACK_PACKAGE_CONTACT ${QUILLSET_PACKAGER})
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "editor that places scenery objects for Flight Simulator 2004")
set(CPACK_PACKAGE_DESCRIPTION "Keeps an ordered list of placements (library objects, generic buildings,
effects) in the XML source of the simulator's scenery compiler, edits them
in a property sheet, shows them in a preview and compiles them to a BGL
file. A compiler comes with it.")
set(CPACK_RESOURCE_FILE_LICENSE ${PROJECT_SOURCE_DIR}/LICENSE)
set(CPACK_STRIP_FILES ON)
set(CPACK_PACKAGE_CHECKSUM SHA256)
if(WIN32)
    set(CPACK_GENERATOR ZIP)
    set(CPACK_PACKAGE_FILE_NAME quillset-xml-${PROJECT_VERSION}-windows-x86_64)
elseif(QUILLSET_PORTABLE)
    set(CPACK_GENERATOR TXZ)
    set(CPACK_PACKAGE_FILE_NAME quillset-xml-${PROJECT_VERSION}-linux-${CMAKE_SYSTEM_PROCESSOR})
elseif(GZIP_PROGRAM)
    set(CPACK_GENERATOR DEB)
    set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
    set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
    set(CPACK_DEBIAN_PACKAGE_SECTION editors)
    set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
    set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
    set(CPACK_DEBIAN_PACKAGE_DEPENDS "hicolor-icon-theme")
    set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "xdg-utils") # opens the manual
    set(CPACK_DEBIAN_PACKAGE_SUGGESTS "wine")
    # Debian's own rules for what a package must hold.
    set(CPACK_DEBIAN_PACKAGE_VERSION ${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE})
    string(TIMESTAMP changelog_date "%a, %d %b %Y %H:%M:%S +0000" UTC)
    configure_file(linux/changelog.in changelog.Debian @ONLY)
    configure_file(${PROJECT_SOURCE_DIR}/CHANGELOG.md changelog COPYONLY)
    execute_process(COMMAND ${GZIP_PROGRAM} -9nkf changelog.Debian changelog
        WORKING_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR} COMMAND_ERROR_IS_FATAL ANY)
    install(FILES ${CMAKE_CURRENT_BINARY_DIR}/changelog.Debian.gz ${CMAKE_CURRENT_BINARY_DIR}/changelog.gz
        linux/copyright DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/quillset-xml)
    unset(CPACK_DEBIAN_PACKAGE_VERSION) # CPack appends the release itself
endif()
include(CPack)
