# A Debian package of what `cmake --install` installs. The libraries that it needs are found by
# dpkg-shlibdeps in the program itself.

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME quenara)
set(CPACK_PACKAGE_CONTACT "The Quenara developers <developers@quenara.invalid>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "run live church services on two screens")
set(CPACK_PACKAGE_DESCRIPTION
"A service is a rundown of items, each of them a list of designed slides.
During the service the operator selects, queues and sends them live; the
audience reads them on the second screen, and the people on stage see what
is now and what is next.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_STRIP_FILES ON)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION video)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# Qt's reader of drawings, once a part of its library, is loaded and so not found.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "qt6-svg-plugins | libqt6svg6 (<< 6.7)")
# Scripts and emoji that the program's own faces lack, photographs of every format, Wayland.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS
  "fonts-noto-core, fonts-noto-cjk, fonts-noto-color-emoji, qt6-image-formats-plugins, qt6-wayland")

include(CPack)
