# Sets the compiler warnings for all targets.
option(BRIM_WARNINGS_AS_ERRORS "Fail the build on a warning" OFF)

add_compile_options(
  -Wall -Wextra -Wpedantic $<$<BOOL:${BRIM_WARNINGS_AS_ERRORS}>:-Werror> -Wshadow -Wconversion -Wsign-conversion
  -Wnon-virtual-dtor -Woverloaded-virtual -Wnull-dereference -Wimplicit-fallthrough)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # g++ 12 reports false positives for optional strings in optimized code.
  add_compile_options(-Wno-maybe-uninitialized)
endif()
