# Run by CPack between installing and packing: what Debian wants in its packages besides.
cmake_policy(VERSION 3.25)

set(runtime ${CPACK_TEMPORARY_DIRECTORY}/runtime/usr)
set(development ${CPACK_TEMPORARY_DIRECTORY}/development/usr)

set(version ${CPACK_PACKAGE_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE})
file(STRINGS ${CMAKE_CURRENT_LIST_DIR}/changelog newest LIMIT_COUNT 1)
if(NOT newest MATCHES "\\(${version}\\)")
  message(FATAL_ERROR "packaging/debian/changelog does not begin with version ${version}")
endif()

# Documents; both packages come from one source, so they share them.
set(documents ${runtime}/share/doc/listwright)
configure_file(${CMAKE_CURRENT_LIST_DIR}/copyright ${documents}/copyright COPYONLY)
configure_file(${CMAKE_CURRENT_LIST_DIR}/changelog ${documents}/changelog.Debian COPYONLY)
configure_file(${CMAKE_CURRENT_LIST_DIR}/listwright.lintian-overrides
  ${runtime}/share/lintian/overrides/listwright COPYONLY)
configure_file(${CMAKE_CURRENT_LIST_DIR}/libkvrnstep-dev.lintian-overrides
  ${development}/share/lintian/overrides/libkvrnstep-dev COPYONLY)
file(MAKE_DIRECTORY ${development}/share/doc)
file(CREATE_LINK listwright ${development}/share/doc/libkvrnstep-dev SYMBOLIC)
file(GLOB pages ${runtime}/share/man/man*/*)
execute_process(COMMAND gzip -9n ${documents}/changelog.Debian ${pages} COMMAND_ERROR_IS_FATAL ANY)

# Here the prefix is known.
file(GLOB_RECURSE pc ${development}/*/kvrnstep.pc)
file(READ ${pc} description)
string(REGEX REPLACE "^prefix=[^\n]*" "prefix=/usr" description "${description}")
file(WRITE ${pc} "${description}")

file(GLOB_RECURSE binaries ${runtime}/bin/* ${runtime}/lib/*)
foreach(file IN LISTS binaries)
  if(IS_SYMLINK ${file})
    list(REMOVE_ITEM binaries ${file})
  endif()
endforeach()
execute_process(
  COMMAND strip --strip-unneeded --remove-section=.comment --remove-section=.note ${binaries}
  COMMAND_ERROR_IS_FATAL ANY)

# What the commands and the dialog need is needed. Without the libraries of a module that prints a
# list, or plays a user of the real dialog, only that is missing, but people expect it. Sounds are
# for hosts that ask for them, and no command does; an editor's plug-in is of use only where that
# editor has brought its libraries.
set(needed ${binaries})
set(expected ${binaries})
set(extra ${binaries})
list(FILTER expected INCLUDE REGEX "/kvrnstep-(cups|qt-driven)\\.so$")
list(FILTER extra INCLUDE REGEX "/(kvrnstep-sound|geany/[^/]*)\\.so$")
list(REMOVE_ITEM needed ${expected} ${extra})
foreach(strength IN ITEMS Depends:needed Recommends:expected Suggests:extra)
  string(REPLACE ":" ";" strength ${strength})
  list(GET strength 0 field)
  list(GET strength 1 files)
  list(APPEND arguments -d${field} ${${files}})
endforeach()
# dpkg-shlibdeps wants to be in a source package, and to see which folder becomes a package.
set(package ${CPACK_TEMPORARY_DIRECTORY}/runtime)
file(WRITE ${package}/debian/control
  "Source: listwright\n\nPackage: listwright\nArchitecture: any\n")
file(MAKE_DIRECTORY ${package}/DEBIAN)
execute_process(COMMAND dpkg-shlibdeps -O ${arguments}
  WORKING_DIRECTORY ${package} OUTPUT_VARIABLE libraries COMMAND_ERROR_IS_FATAL ANY)
file(REMOVE_RECURSE ${package}/debian ${package}/DEBIAN)

foreach(field IN ITEMS Depends Recommends Suggests)
  string(TOUPPER ${field} upper)
  set(packages ${CPACK_LISTWRIGHT_${upper}})
  if(libraries MATCHES "shlibs:${field}=([^\n]+)")
    list(APPEND packages ${CMAKE_MATCH_1})
  endif()
  list(JOIN packages ", " CPACK_DEBIAN_RUNTIME_PACKAGE_${upper})
endforeach()
