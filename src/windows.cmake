# The type library, which the module carries as a resource. Its compiler's include files, and the
# library of the base types, come with Wine's development files.
find_program(WIDL ${LISTWRIGHT_WIDL} REQUIRED)
find_path(WIDL_INCLUDE oaidl.idl PATHS /usr/include/wine/wine/windows /usr/include/wine/windows
  REQUIRED NO_CMAKE_FIND_ROOT_PATH)
file(GLOB base_types /usr/lib/*/wine/x86_64-windows/stdole2.tlb)
list(GET base_types 0 base_types)
cmake_path(GET base_types PARENT_PATH WIDL_LIBRARIES)
math(EXPR bits "${CMAKE_SIZEOF_VOID_P} * 8")
set(idl ${CMAKE_CURRENT_SOURCE_DIR}/component/windows/kvrnstep.idl)
set(type_library ${CMAKE_CURRENT_BINARY_DIR}/kvrnstep.tlb)
add_custom_command(OUTPUT ${type_library}
  COMMAND ${WIDL} -m${bits} -t -I ${WIDL_INCLUDE} -L ${WIDL_LIBRARIES} -o ${type_library} ${idl}
  DEPENDS ${idl})

# The module's version, where the system and the module itself look for it.
set(file_version
  ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR}.0.${PROJECT_VERSION_PATCH})
string(REPLACE "." "," file_version_numbers ${file_version})
configure_file(component/windows/version.h.in version.h @ONLY)
configure_file(component/windows/kvrnstep.manifest.in kvrnstep.manifest @ONLY)

set(resources ${CMAKE_CURRENT_SOURCE_DIR}/component/windows/kvrnstep.rc)
file(GLOB pictures CONFIGURE_DEPENDS
  ${PROJECT_SOURCE_DIR}/assets/icons/*.ico ${PROJECT_SOURCE_DIR}/assets/cursors/*.cur
  ${PROJECT_SOURCE_DIR}/assets/pictures/*.ico)
set_source_files_properties(${resources} PROPERTIES
  INCLUDE_DIRECTORIES "${CMAKE_CURRENT_BINARY_DIR};${CMAKE_CURRENT_SOURCE_DIR}/component/windows;${PROJECT_SOURCE_DIR}/assets;${PROJECT_SOURCE_DIR}/frontends/windows"
  OBJECT_DEPENDS "${type_library};${pictures};${CMAKE_CURRENT_BINARY_DIR}/version.h;${CMAKE_CURRENT_BINARY_DIR}/kvrnstep.manifest")
add_library(kvrnstep_resources OBJECT ${resources})
target_sources(kvrnstep PRIVATE $<TARGET_OBJECTS:kvrnstep_resources>
  component/windows/kvrnstep.def)

target_link_libraries(kvrnstep PRIVATE kvrnstep_windows ole32 oleaut32 uuid)
target_link_libraries(kvrnstep_core PUBLIC advapi32)

# One module beside the programs, under its plain name.
set_target_properties(kvrnstep PROPERTIES PREFIX "")
target_link_options(kvrnstep PRIVATE -Wl,--gc-sections -Wl,--enable-stdcall-fixup)
install(TARGETS kvrnstep RUNTIME)
