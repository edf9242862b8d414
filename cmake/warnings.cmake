# Compilers that nobody here has seen warn of other things, so warnings are errors only on request.
option(LISTWRIGHT_WERROR "Warnings are errors" OFF)
add_compile_options(-Wall -Wextra -Wpedantic -Wconversion -Wshadow -Wcast-align -Wformat=2 $<$<BOOL:${LISTWRIGHT_WERROR}>:-Werror>
                    "$<$<COMPILE_LANGUAGE:CXX>:-Woverloaded-virtual>")
if(NOT WIN32)  # whose interfaces have no destructor of any kind
  add_compile_options("$<$<COMPILE_LANGUAGE:CXX>:-Wnon-virtual-dtor>")
endif()
# A declaration table names only the fields that differ from the usual.
add_compile_options(-Wno-missing-field-initializers)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # With -O3, g++ 12 sees texts overlap that do not.
  add_compile_options(-Wduplicated-cond -Wlogical-op -Wno-restrict)
endif()
