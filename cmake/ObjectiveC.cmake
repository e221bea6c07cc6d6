# The Objective-C runtime and Foundation of this machine, as the target `ObjectiveC`.
execute_process(
  COMMAND ${CMAKE_C_COMPILER} -print-file-name=include/objc/objc.h
  OUTPUT_VARIABLE objc_header OUTPUT_STRIP_TRAILING_WHITESPACE)
file(GLOB objc_candidates /usr/lib/gcc/*/12/include/objc/objc.h)
list(APPEND objc_candidates ${objc_header})
foreach(candidate IN LISTS objc_candidates)
  if(IS_ABSOLUTE ${candidate} AND EXISTS ${candidate})
    set(objc_header ${candidate})
    break()
  endif()
endforeach()
if(NOT EXISTS ${objc_header})
  message(FATAL_ERROR "The Objective-C runtime's headers are missing: install libobjc-12-dev.")
endif()
cmake_path(GET objc_header PARENT_PATH objc_folder)

# Only the runtime's own folder: the rest of the compiler's headers must stay the compiler's.
file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/objc-headers)
file(CREATE_LINK ${objc_folder} ${CMAKE_BINARY_DIR}/objc-headers/objc SYMBOLIC)

find_library(OBJC_LIBRARY NAMES objc libobjc.so.4 HINTS /usr/lib/gcc/x86_64-linux-gnu/12 REQUIRED)
find_library(GNUSTEP_BASE_LIBRARY NAMES gnustep-base REQUIRED)

add_library(ObjectiveC INTERFACE)
target_include_directories(ObjectiveC INTERFACE ${CMAKE_SOURCE_DIR})
target_include_directories(ObjectiveC SYSTEM INTERFACE ${CMAKE_BINARY_DIR}/objc-headers)
# A message to nil is a member function called on a null pointer: the compilers must not conclude that it cannot be.
target_compile_options(ObjectiveC INTERFACE -fno-delete-null-pointer-checks)
target_link_options(ObjectiveC INTERFACE -Wl,--no-as-needed)
target_link_libraries(ObjectiveC INTERFACE ${GNUSTEP_BASE_LIBRARY} ${OBJC_LIBRARY})

# What the phone's library is built with: no exceptions, no run-time type information, no guarded statics.
add_library(FreestandingStyle INTERFACE)
target_compile_options(FreestandingStyle INTERFACE -fno-exceptions -fno-rtti -fno-threadsafe-statics)
