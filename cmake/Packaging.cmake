# `cpack -G DEB` in the build folder makes the Debian package of what the install rules put
# in place. The libraries it needs are found by dpkg-shlibdeps from the programs themselves,
# so the dependencies follow whatever the build linked. The launcher, the file types and the
# icon land where the desktop's own packages pick them up through their triggers.
set(CPACK_PACKAGE_NAME tavvel)
set(CPACK_PACKAGE_VENDOR "Tavvel developers")
set(CPACK_PACKAGE_CONTACT "Tavvel developers <tavvel@localhost>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY
    "Converts bank, card and investment statements to QIF or a delimited layout")
string(CONCAT CPACK_PACKAGE_DESCRIPTION
    "Tavvel reads OFX and QFX downloads, QIF files and text copied from a bank's web page, "
    "categorises the transactions with instructions it learns from your answers, and writes "
    "QIF files for personal-finance programs or a delimited layout you define. It comes with "
    "a desktop application (tavvel) and a terminal front end (tavvel-cli).")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION misc)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "shared-mime-info, desktop-file-utils, hicolor-icon-theme")
include(CPack)
