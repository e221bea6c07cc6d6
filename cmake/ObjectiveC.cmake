# Defines the target `ObjectiveC`: the Objective-C runtime and GNUstep Foundation of the build machine.
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
  message(FATAL_ERROR "The headers of the Objective-C runtime are missing. Install the package libobjc-12-dev.")
endif()
cmake_path(GET objc_header PARENT_PATH objc_folder)

# Adds only the runtime's folder to the include path. The folder around it contains g++'s internal headers, which clang
# must not use.
file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/objc-headers)
file(CREATE_LINK ${objc_folder} ${CMAKE_BINARY_DIR}/objc-headers/objc SYMBOLIC)

find_library(OBJC_LIBRARY NAMES objc libobjc.so.4 HINTS /usr/lib/gcc/x86_64-linux-gnu/12 REQUIRED)
find_library(GNUSTEP_BASE_LIBRARY NAMES gnustep-base REQUIRED)

add_library(ObjectiveC INTERFACE)
target_include_directories(ObjectiveC INTERFACE ${CMAKE_SOURCE_DIR})
target_include_directories(ObjectiveC SYSTEM INTERFACE ${CMAKE_BINARY_DIR}/objc-headers)
# A message to nil is a call of a member function on a null pointer. The compiler must not assume that `this` is not null.
target_compile_options(ObjectiveC INTERFACE -fno-delete-null-pointer-checks)
target_link_options(ObjectiveC INTERFACE -Wl,--no-as-needed)
target_link_libraries(ObjectiveC INTERFACE ${GNUSTEP_BASE_LIBRARY} ${OBJC_LIBRARY})

# The options of the phone's library: no exceptions, no run-time type information, no guards of static variables.
add_library(FreestandingStyle INTERFACE)
target_compile_options(FreestandingStyle INTERFACE -fno-exceptions -fno-rtti -fno-threadsafe-statics)
