# Warnings of both compilers, for every target of this project.
option(BRIM_WARNINGS_AS_ERRORS "Fail the build on a warning" OFF)

add_compile_options(
  -Wall -Wextra -Wpedantic $<$<BOOL:${BRIM_WARNINGS_AS_ERRORS}>:-Werror> -Wshadow -Wconversion -Wsign-conversion
  -Wnon-virtual-dtor -Woverloaded-virtual -Wnull-dereference -Wimplicit-fallthrough)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # g++ 12 suspects every optional string that it optimises.
  add_compile_options(-Wno-maybe-uninitialized)
endif()
