# The libraries and the toolkit's plugins that a portable folder carries, and their licences.
# Where the debugging form of the toolkit is installed beside it, LOCATION may name that one.
get_target_property(qt_core Qt6::Core IMPORTED_LOCATION_RELEASE)
if(NOT qt_core)
    get_target_property(qt_core Qt6::Core LOCATION)
endif()
get_filename_component(qt_libraries ${qt_core} DIRECTORY)
set(qt_plugins ${QT6_INSTALL_PREFIX}/${QT6_INSTALL_PLUGINS})
if(WIN32)
    # Qt finds its plugins beside the program without being told.
    set(library_folder .)
    set(plugin_folder .)
    install(DIRECTORY ${qt_libraries}/../licenses/ DESTINATION licences OPTIONAL)
    foreach(package IN ITEMS gcc-mingw-w64-x86-64-posix-runtime mingw-w64-x86-64-dev)
        install(FILES /usr/share/doc/${package}/copyright DESTINATION licences RENAME ${package}.txt OPTIONAL)
    endforeach()
    set(windows_style styles/qwindowsvistastyle)
    if(Qt6_VERSION VERSION_GREATER_EQUAL 6.7)
        set(windows_style styles/qmodernwindowsstyle)
    endif()
    set(wanted_plugins platforms/qwindows ${windows_style} imageformats/qjpeg imageformats/qico)
    if(MSVC) # its own libraries come from the compiler's folder
        set(CMAKE_INSTALL_SYSTEM_RUNTIME_DESTINATION .)
        include(InstallRequiredSystemLibraries)
    endif()
else()
    set(library_folder lib)
    set(plugin_folder plugins)
    set(wanted_plugins platforms/libqxcb platforms/libqoffscreen imageformats/libqjpeg imageformats/libqico
        xcbglintegrations/libqxcb-glx-integration xcbglintegrations/libqxcb-egl-integration
        platforminputcontexts/libcomposeplatforminputcontextplugin
        platforminputcontexts/libibusplatforminputcontextplugin)
    install(FILES linux/qt.conf DESTINATION .)
    install(FILES icons/quillset-xml.svg DESTINATION .)
    # The old kind of run path: it also holds for the libraries that a library or a plugin needs in turn.
    set_target_properties(quillset-xml PROPERTIES INSTALL_RPATH "$ORIGIN/lib")
    set_target_properties(bglcomp bgl-list PROPERTIES INSTALL_RPATH "$ORIGIN/../lib")
    foreach(program IN ITEMS quillset-xml bglcomp bgl-list)
        target_link_options(${program} PRIVATE LINKER:--disable-new-dtags)
    endforeach()
endif()

set(plugin_files)
foreach(plugin IN LISTS wanted_plugins)
    set(file ${qt_plugins}/${plugin}${CMAKE_SHARED_LIBRARY_SUFFIX})
    if(NOT EXISTS ${file})
        message(WARNING "The portable folder will lack the plugin ${file}")
        continue()
    endif()
    get_filename_component(kind ${plugin} DIRECTORY)
    install(PROGRAMS ${file} DESTINATION ${plugin_folder}/${kind})
    list(APPEND plugin_files ${file})
endforeach()

# At the time of installation, when the programs are there to be looked into.
configure_file(libraries.cmake.in libraries.cmake @ONLY)
install(SCRIPT ${CMAKE_CURRENT_BINARY_DIR}/libraries.cmake)
