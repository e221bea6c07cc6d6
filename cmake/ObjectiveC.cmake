# Defines the target `ObjectiveC`: the Objective-C runtime and Foundation of the target machine. GCC's runtime belongs
# to one version of GCC. If the compiler (g++ or clang) uses the files of that version, it reports their path.
# Otherwise, the newest installed version for the target machine is used.
set(gcc_folders /usr/lib/gcc/${CMAKE_LIBRARY_ARCHITECTURE} /usr/lib/gcc-cross/${CMAKE_LIBRARY_ARCHITECTURE})
list(TRANSFORM gcc_folders PREPEND "${CMAKE_SYSROOT}")
function(brim_find_gcc_file variable file)
  set(target_options "")
  if(CMAKE_CXX_COMPILER_TARGET)
    set(target_options --target=${CMAKE_CXX_COMPILER_TARGET})
  endif()
  if(CMAKE_SYSROOT)
    list(APPEND target_options --sysroot=${CMAKE_SYSROOT})
  endif()
  execute_process(
    COMMAND ${CMAKE_CXX_COMPILER} ${target_options} -print-file-name=${file}
    OUTPUT_VARIABLE named OUTPUT_STRIP_TRAILING_WHITESPACE)
  list(TRANSFORM gcc_folders APPEND /*/${file} OUTPUT_VARIABLE patterns)
  file(GLOB installed ${patterns})
  list(SORT installed COMPARE NATURAL ORDER DESCENDING)
  foreach(candidate IN LISTS named installed)
    if(IS_ABSOLUTE "${candidate}" AND EXISTS "${candidate}")
      cmake_path(NORMAL_PATH candidate)
      set(${variable} ${candidate} PARENT_SCOPE)
      return()
    endif()
  endforeach()
  message(FATAL_ERROR "${file} of the Objective-C runtime is missing: install the package gobjc, or libobjc-VERSION-dev.")
endfunction()

# Creates a symbolic link only to the folder of the runtime's headers, because clang must not use GCC's other headers.
brim_find_gcc_file(objc_header include/objc/objc.h)
cmake_path(GET objc_header PARENT_PATH objc_folder)
file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/objc-headers)
file(CREATE_LINK ${objc_folder} ${CMAKE_BINARY_DIR}/objc-headers/objc SYMBOLIC)

brim_find_gcc_file(objc_library libobjc.so)
find_library(GNUSTEP_BASE_LIBRARY NAMES gnustep-base REQUIRED)

add_library(ObjectiveC INTERFACE)
target_include_directories(ObjectiveC INTERFACE ${CMAKE_SOURCE_DIR})
target_include_directories(ObjectiveC SYSTEM INTERFACE ${CMAKE_BINARY_DIR}/objc-headers)
# A message to nil is a call of a member function on a null pointer. The compiler must not assume that `this` is not null.
target_compile_options(ObjectiveC INTERFACE -fno-delete-null-pointer-checks)
target_link_options(ObjectiveC INTERFACE -Wl,--no-as-needed)
target_link_libraries(ObjectiveC INTERFACE ${GNUSTEP_BASE_LIBRARY} ${objc_library})

# The compiler options for code that also runs on the phone: no exceptions, no run-time type information, and no guards
# for the initialization of static variables. The code has unwind tables, because exceptions that the platform raises
# can pass through it.
add_library(FreestandingStyle INTERFACE)
target_compile_options(FreestandingStyle INTERFACE -fno-exceptions -funwind-tables -fno-rtti -fno-threadsafe-statics)
