# Copies the package's files to ROOT and builds PACKAGE from them. The result does not depend on the file system: modes
# are set here; dpkg-deb sets owners, order and times.
cmake_policy(VERSION 3.25)
include(${CMAKE_CURRENT_LIST_DIR}/settings_pane.cmake)

file(REMOVE_RECURSE ${ROOT})
set(libraries ${ROOT}/Library/MobileSubstrate/DynamicLibraries)
set(support "${ROOT}/Library/Application Support/Brim")
file(MAKE_DIRECTORY ${ROOT}/DEBIAN ${libraries} ${support})
file(COPY_FILE ${LIBRARY} ${libraries}/Brim.dylib)
file(COPY_FILE ${FILTER} ${libraries}/Brim.plist)
file(COPY_FILE ${CONTROL} ${ROOT}/DEBIAN/control)
file(COPY ${ASSETS} DESTINATION ${support})
brim_copy_settings_pane(ROOT ${ROOT} BUNDLE ${PANE} ENTRY ${PANE_ENTRY} EXECUTABLE pane)
set(executables ${libraries}/Brim.dylib ${pane})

file(GLOB_RECURSE entries LIST_DIRECTORIES true ${ROOT}/*)
foreach(entry IN LISTS entries ITEMS ${ROOT})
  if(IS_DIRECTORY ${entry} OR entry IN_LIST executables)
    file(CHMOD ${entry} PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
  else()
    file(CHMOD ${entry} PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)
  endif()
endforeach()

# dpkg-deb limits the times of files to this one. All files are newer, so all of them get it. The compression is gzip,
# because every phone's dpkg can unpack it.
set(ENV{SOURCE_DATE_EPOCH} 1577836800)
execute_process(
  COMMAND ${DPKG_DEB} --root-owner-group --uniform-compression -Zgzip -z9 --build ${ROOT} ${PACKAGE}
  OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
