# Builds the settings pane's bundle for the phone. Its executable is compiled like the library. It is linked only with
# the stubs of the system's libraries, because it looks up the classes of the Settings application by name.
add_subdirectory(${repository}/settings_pane/resources settings_pane)

add_library(pane_objects OBJECT ${repository}/settings_pane/list_controller.cpp)
target_include_directories(pane_objects PRIVATE ${repository})
target_compile_options(pane_objects PRIVATE $<TARGET_PROPERTY:brim_objects,COMPILE_OPTIONS>)
if(NOT BRIM_SDK)
  target_include_directories(pane_objects SYSTEM PRIVATE include/standard)
endif()

set(pane_stubs ${CMAKE_CURRENT_SOURCE_DIR}/stubs/libSystem.tbd ${CMAKE_CURRENT_SOURCE_DIR}/stubs/libobjc.tbd)
set(linked_pane ${CMAKE_BINARY_DIR}/symbols/BrimPreferences)
set(pane ${BRIM_SETTINGS_PANE_BUNDLE}/BrimPreferences)
if(BRIM_SDK)
  set(link_pane ${CMAKE_CXX_COMPILER} ${slices} -isysroot ${BRIM_SDK} -miphoneos-version-min=${BRIM_SYSTEM_VERSION}
                -bundle -nostdlib -dead_strip -Wl,-unexported_symbol,*)
  set(strip_pane strip -x -o ${pane} ${linked_pane} COMMAND codesign --force --sign - ${pane})
else()
  set(link_pane ${BRIM_LINKER} -arch arm64 -platform_version ios ${BRIM_SYSTEM_VERSION} ${BRIM_SDK_VERSION} -bundle -S
                -dead_strip --icf=all -no_encryption -no_data_in_code_info -adhoc_codesign -unexported_symbol *)
  set(strip_pane ${BRIM_STRIP} -x -o ${pane} ${linked_pane})
endif()

add_custom_command(
  OUTPUT ${pane} ${linked_pane}
  COMMAND ${CMAKE_COMMAND} -E make_directory ${CMAKE_BINARY_DIR}/symbols ${BRIM_SETTINGS_PANE_BUNDLE}
  COMMAND ${link_pane} -o ${linked_pane} $<TARGET_OBJECTS:pane_objects> ${pane_stubs}
  COMMAND ${strip_pane}
  DEPENDS pane_objects $<TARGET_OBJECTS:pane_objects> ${pane_stubs}
  COMMENT "Linking BrimPreferences"
  COMMAND_EXPAND_LISTS VERBATIM)
add_custom_target(settings_pane ALL DEPENDS ${pane})
add_dependencies(settings_pane settings_pane_resources)
