# The files by which a Linux desktop knows the program, and its manual pages.
install(FILES linux/quillset-xml.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES linux/quillset-xml.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
set(icons ${CMAKE_INSTALL_DATADIR}/icons/hicolor)
install(FILES icons/quillset-xml.svg DESTINATION ${icons}/scalable/apps)
foreach(size IN ITEMS 16 24 32 48 64 128 256)
    install(FILES icons/quillset-xml-${size}.png DESTINATION ${icons}/${size}x${size}/apps
        RENAME quillset-xml.png)
endforeach()

# The tools are commands of their own, too. The editor itself does not take this link for an installed compiler.
foreach(tool IN ITEMS bglcomp bgl-list)
    install(CODE "
        set(commands \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_BINDIR}\")
        file(MAKE_DIRECTORY \"\${commands}\")
        file(CREATE_LINK ../${compiler_folder}/${tool} \"\${commands}/${tool}\" SYMBOLIC)")
endforeach()

find_program(GZIP_PROGRAM gzip)
foreach(page IN ITEMS quillset-xml.1 bglcomp.1 bgl-list.1)
    configure_file(linux/${page}.in ${page} @ONLY)
    if(GZIP_PROGRAM)
        execute_process(COMMAND ${GZIP_PROGRAM} -9nkf ${page} WORKING_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR}
            COMMAND_ERROR_IS_FATAL ANY)
        install(FILES ${CMAKE_CURRENT_BINARY_DIR}/${page}.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
    else()
        install(FILES ${CMAKE_CURRENT_BINARY_DIR}/${page} DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
    endif()
endforeach()
