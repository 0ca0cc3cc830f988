# Where everything lies, in the build tree and when installed. The application finds its resources from the place of
# its own executable: they lie in Resources/, beside the folder that holds the executable.

include(GNUInstallDirs)
set(FOLIMARK_HOME lib/folimark) # below the prefix

# The build tree gets real files, not a link: what the application does with a folder, it is to do here, too.
# A picture that changes is copied at the next build, a new one is noticed.
file(GLOB_RECURSE resources CONFIGURE_DEPENDS RELATIVE ${CMAKE_SOURCE_DIR}/Resources
     ${CMAKE_SOURCE_DIR}/Resources/*.html ${CMAKE_SOURCE_DIR}/Resources/*.png)
foreach(resource IN LISTS resources)
  configure_file(${CMAKE_SOURCE_DIR}/Resources/${resource} ${CMAKE_BINARY_DIR}/Resources/${resource} COPYONLY)
  cmake_path(GET resource PARENT_PATH folder)
  install(FILES Resources/${resource} DESTINATION ${FOLIMARK_HOME}/Resources/${folder})
endforeach()

install(TARGETS folimark folimark-pictures RUNTIME DESTINATION ${FOLIMARK_HOME}/bin)
# A link, so that the executable's own place stays the one beside Resources/.
file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/link)
file(CREATE_LINK ../${FOLIMARK_HOME}/bin/folimark ${CMAKE_BINARY_DIR}/link/folimark SYMBOLIC)
install(FILES ${CMAKE_BINARY_DIR}/link/folimark DESTINATION ${CMAKE_INSTALL_BINDIR})

install(DIRECTORY Resources/icons/hicolor DESTINATION ${CMAKE_INSTALL_DATADIR}/icons)
install(FILES Resources/art/folimark.svg DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
install(FILES packaging/folimark.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES packaging/folimark.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo
        RENAME example.folimark.folimark.metainfo.xml)

# folimark_install_compressed(FILE NAME FOLDER): installs FILE as NAME.gz, without a time in it.
function(folimark_install_compressed FILE NAME FOLDER)
  set(compressed ${CMAKE_BINARY_DIR}/compressed/${NAME}.gz)
  add_custom_command(OUTPUT ${compressed} DEPENDS ${CMAKE_SOURCE_DIR}/${FILE} VERBATIM
    COMMAND ${CMAKE_COMMAND} -E make_directory ${CMAKE_BINARY_DIR}/compressed
    COMMAND gzip -9nc ${CMAKE_SOURCE_DIR}/${FILE} > ${compressed})
  add_custom_target(compressed_${NAME} ALL DEPENDS ${compressed})
  install(FILES ${compressed} DESTINATION ${FOLDER})
endfunction()
folimark_install_compressed(packaging/folimark.1 folimark.1 ${CMAKE_INSTALL_MANDIR}/man1)
