# Warnings are errors, with g++ and with clang++.
add_compile_options(-Wall -Wextra -Wpedantic -Wconversion -Wshadow -Wnon-virtual-dtor
                    -Woverloaded-virtual -Wcast-align -Wformat=2 -Werror)
# A declaration table names only the fields that differ from the usual.
add_compile_options(-Wno-missing-field-initializers)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  add_compile_options(-Wduplicated-cond -Wlogical-op)
endif()
