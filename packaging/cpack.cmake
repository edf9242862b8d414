# Debian packages: "cpack -G DEB" makes them from a build that was configured for the prefix /usr;
# build-deb does all of it.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_CONTACT "Listwright developers <listwright@localhost>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SOURCE listwright)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(version ${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE})

# debian/finish.cmake strips the binaries, finds the libraries that they depend on and adds Debian's
# documents. CPack's own way knows one strength of dependency only, and takes the plug-in's folder
# for one that the loader searches.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS OFF)
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_CURRENT_LIST_DIR}/debian/finish.cmake)

set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME listwright)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION text)
# The dialog is laid out for a narrow font. Qt speaks X11 by itself, Wayland with a plug-in.
set(CPACK_LISTWRIGHT_RECOMMENDS fonts-liberation)
set(CPACK_LISTWRIGHT_SUGGESTS cups qt6-wayland)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_ENHANCES "vim, neovim, emacs, geany")
set(CPACK_DEBIAN_RUNTIME_DESCRIPTION "builder of step lists for text editors
Listwright builds step lists: numbered, lettered, Roman, or with a prefix
and a suffix only; indented, aligned, with blank lines between steps and a
text before and after. They are set up in a dialog with a live preview,
kept as step files, and inserted into a text, copied or printed.

This package holds the command listwright, which opens the dialog or builds
a list without one and prints it, the plug-in that editors and other
programs load, adapters for editors, and stepdrive, which uses the dialog
by a script.")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libkvrnstep-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "listwright (= ${version})")
set(CPACK_DEBIAN_DEVELOPMENT_DESCRIPTION "builder of step lists for text editors - development files
Listwright builds step lists, in a dialog or by a call.

This package holds what hosts of the plug-in are built with: the headers of
its interfaces for C and C++, and descriptions for pkg-config and CMake.")

# What packages of programs that were linked with the library depend on.
file(WRITE ${CMAKE_CURRENT_BINARY_DIR}/shlibs
  "libkvrnstep ${interface} listwright (>= ${PROJECT_VERSION})\n")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA ${CMAKE_CURRENT_BINARY_DIR}/shlibs)

include(CPack)
