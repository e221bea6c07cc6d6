# Builds Brim.dylib from the same sources as on Linux, optimized for size. It is linked with text stubs, which list
# every symbol that it can import.
set(install_name /Library/MobileSubstrate/DynamicLibraries/Brim.dylib)
set(exported _brim_installed_methods _brim_settings _brim_version)
file(GLOB stubs CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/stubs/*.tbd)

file(GLOB_RECURSE library_sources CONFIGURE_DEPENDS ${repository}/library/*.cpp)
set_source_files_properties(
  ${repository}/library/startup/inspection.cpp PROPERTIES COMPILE_DEFINITIONS BRIM_VERSION="${PROJECT_VERSION}")
add_library(brim_objects OBJECT ${library_sources})
target_include_directories(brim_objects PRIVATE ${repository})
# An exception that the platform raises can pass through the library's functions, so every function needs unwind tables.
# The compiler must not extract repeated code into functions, because it emits no unwind tables for these.
target_compile_options(
  brim_objects
  PRIVATE -Oz -fblocks -fno-exceptions -funwind-tables -mno-outline -fno-rtti
          -fno-threadsafe-statics -fno-stack-protector -fvisibility=hidden
          -fvisibility-inlines-hidden -fno-delete-null-pointer-checks -ffile-prefix-map=${repository}=.)
if(BRIM_SDK)
  # A newer compiler can have warnings that the supported compilers do not have.
  target_compile_options(brim_objects PRIVATE -Wno-error)
else()
  target_include_directories(brim_objects SYSTEM PRIVATE include/standard)
endif()

# The linked file contains the local symbols, which are needed to read crash logs. The installed file does not contain
# them and is therefore four times smaller.
set(linked ${CMAKE_BINARY_DIR}/symbols/Brim.dylib)
set(library ${CMAKE_BINARY_DIR}/Brim.dylib)
if(BRIM_SDK)
  list(TRANSFORM BRIM_ARCHITECTURES PREPEND -arch\; OUTPUT_VARIABLE slices)
  set(link ${CMAKE_CXX_COMPILER} ${slices} -isysroot ${BRIM_SDK} -miphoneos-version-min=${BRIM_SYSTEM_VERSION}
           -dynamiclib -nostdlib -dead_strip -install_name ${install_name})
  foreach(symbol IN LISTS exported)
    list(APPEND link -Wl,-exported_symbol,${symbol})
  endforeach()
  set(strip strip -x -o ${library} ${linked} COMMAND codesign --force --sign - ${library})
else()
  set(link ${BRIM_LINKER} -arch arm64 -platform_version ios ${BRIM_SYSTEM_VERSION} ${BRIM_SDK_VERSION} -dylib -S
           -dead_strip --icf=all -no_encryption -no_data_in_code_info -adhoc_codesign -install_name ${install_name})
  foreach(symbol IN LISTS exported)
    list(APPEND link -exported_symbol ${symbol})
  endforeach()
  set(strip ${BRIM_STRIP} -x -o ${library} ${linked}
            COMMAND ${CMAKE_COMMAND} -DFILE=${library} -P ${CMAKE_CURRENT_SOURCE_DIR}/check_size.cmake)
endif()

add_custom_command(
  OUTPUT ${library} ${linked}
  COMMAND ${CMAKE_COMMAND} -E make_directory ${CMAKE_BINARY_DIR}/symbols
  COMMAND ${link} -o ${linked} $<TARGET_OBJECTS:brim_objects> ${stubs}
  COMMAND ${strip}
  DEPENDS brim_objects $<TARGET_OBJECTS:brim_objects> ${stubs} ${CMAKE_CURRENT_SOURCE_DIR}/size_budget
  COMMENT "Linking Brim.dylib"
  COMMAND_EXPAND_LISTS VERBATIM)
add_custom_target(dylib ALL DEPENDS ${library})
