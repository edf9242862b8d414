enable_language(RC)

# What all files of a Windows build are compiled with.
add_compile_definitions(UNICODE _UNICODE NOMINMAX WIN32_LEAN_AND_MEAN
  # Windows 10; the system's headers then declare all that it has.
  _WIN32_WINNT=0x0A00)

# GoogleTest comes as source here; before our warnings, which are not its own.
set(googletest /usr/src/googletest)
if(LISTWRIGHT_TESTS AND EXISTS ${googletest})
  set(INSTALL_GTEST OFF)
  set(BUILD_GMOCK OFF)
  add_subdirectory(${googletest} googletest EXCLUDE_FROM_ALL)
  set(GTest_FOUND ON)
endif()
