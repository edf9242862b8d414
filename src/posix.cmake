set_source_files_properties(platform/posix/module.cpp PROPERTIES
  COMPILE_DEFINITIONS LISTWRIGHT_VERSION="${PROJECT_VERSION}")

set_target_properties(kvrnstep PROPERTIES VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR})
# Few segments and nothing that nobody calls: a host that loads the plug-in pays for each page.
target_link_options(kvrnstep PRIVATE
  -Wl,--exclude-libs,ALL -Wl,--gc-sections -Wl,-z,noseparate-code
  -Wl,-z,pack-relative-relocs -Wl,-z,defs)
install(TARGETS kvrnstep LIBRARY DESTINATION ${LISTWRIGHT_PLUGIN_DIR})
