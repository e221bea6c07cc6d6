# The compiler warnings for all targets. Warnings are errors.
add_compile_options(
  -Wall -Wextra -Wpedantic -Werror -Wshadow -Wconversion -Wsign-conversion -Wnon-virtual-dtor -Woverloaded-virtual
  -Wnull-dereference -Wimplicit-fallthrough)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # g++ 12 reports false positives for optional strings in optimized code.
  add_compile_options(-Wno-maybe-uninitialized)
endif()
