# The Debian package. packaging/build-deb makes and checks it. It is built from the project's own source, so its version
# is the project's, without a revision, and it has one changelog.

set(docs ${CMAKE_INSTALL_DATADIR}/doc/folimark)
install(FILES packaging/copyright DESTINATION ${docs})
folimark_install_compressed(packaging/changelog changelog ${docs})

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME folimark)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "Folimark maintainers <maintainers@folimark.example>")
set(CPACK_DEBIAN_PACKAGE_SECTION graphics)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "albums of the media files in your folders")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
"Folimark lists every picture, film, sound and PDF file of a folder, and of
the folders inside it, beside a large preview of the selected file. The list
can be sorted, and searched by phrases. An album is only a reference to its
folder: the files are never copied, moved, changed or deleted.")
# Libraries are found by what the executables link. Files, folders and the help page are opened through xdg-open;
# the X plug-in comes with Qt's libraries, that for Wayland in a package of its own, fonts with fontconfig. Qt takes the
# desktop's own dialogs and colours if the plug-ins for them are there.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS xdg-utils)
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "qt6-gtk-platformtheme | qt6-xdgdesktopportal-platformtheme, qt6-wayland")
set(CPACK_DEBIAN_PACKAGE_SUGGESTS www-browser)
include(CPack)
