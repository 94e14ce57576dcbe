# The Debian package, built by `cpack` in the build folder (scripts/package does it).
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME quorlin)
set(CPACK_PACKAGE_VENDOR "The Quorlin developers")
set(CPACK_PACKAGE_CONTACT "The Quorlin developers <${QUORLIN_FEEDBACK_ADDRESS}>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "click and type into a window again and again on a timer")
set(CPACK_PACKAGE_DESCRIPTION "Quorlin clicks (left, double, right) and optionally types into whatever
window lies under a screen point, again and again, at a fixed or random
interval. It plays track lists of up to 30 steps; a step can wait for a
picture to show on the screen. It never moves the mouse cursor.")
set(CPACK_PACKAGE_HOMEPAGE_URL "${QUORLIN_WEBSITE}")
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION x11)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# xdg-open hands the links to the desktop; the window's fonts, where the classic ones are missing.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "xdg-utils, fonts-liberation, fonts-dejavu-core")
include(CPack)
