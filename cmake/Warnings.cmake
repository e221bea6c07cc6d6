# Warnings of both compilers, as errors, for every target of this project.
add_compile_options(
  -Wall -Wextra -Wpedantic -Werror -Wshadow -Wconversion -Wsign-conversion -Wnon-virtual-dtor -Woverloaded-virtual
  -Wnull-dereference -Wimplicit-fallthrough)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # g++ 12 suspects every optional string that it optimises.
  add_compile_options(-Wno-maybe-uninitialized)
endif()
