# Copies the package's files to ROOT and builds PACKAGE from them. PREFIX is the folder that contains the installed files,
# or empty. The result does not depend on the file system: modes are set here; dpkg-deb sets owners, order and times.
cmake_policy(VERSION 3.25)
include(${CMAKE_CURRENT_LIST_DIR}/settings_pane.cmake)

file(REMOVE_RECURSE ${ROOT})
set(libraries ${ROOT}${PREFIX}/Library/MobileSubstrate/DynamicLibraries)
set(support "${ROOT}${PREFIX}/Library/Application Support/Brim")
file(MAKE_DIRECTORY ${ROOT}/DEBIAN ${libraries} ${support})
file(COPY_FILE ${LIBRARY} ${libraries}/Brim.dylib)
file(COPY_FILE ${FILTER} ${libraries}/Brim.plist)
file(COPY ${ASSETS} DESTINATION ${support})
brim_copy_settings_pane(ROOT ${ROOT}${PREFIX} BUNDLE ${PANE} ENTRY ${PANE_ENTRY} EXECUTABLE pane)
set(executables ${libraries}/Brim.dylib ${pane})

# In KiB. The size of each file is rounded up, and a folder counts as 1 KiB.
set(installed_size 0)
file(GLOB_RECURSE entries LIST_DIRECTORIES true ${ROOT}/*)
list(FILTER entries EXCLUDE REGEX "/DEBIAN$")
foreach(entry IN LISTS entries)
  if(IS_DIRECTORY ${entry})
    set(size 1)
  else()
    file(SIZE ${entry} size)
  endif()
  math(EXPR installed_size "${installed_size} + (${size} + 1023) / 1024")
endforeach()
file(READ ${CONTROL} control)
string(REPLACE "\nDescription:" "\nInstalled-Size: ${installed_size}\nDescription:" control "${control}")
file(WRITE ${ROOT}/DEBIAN/control "${control}")

file(GLOB_RECURSE entries LIST_DIRECTORIES true ${ROOT}/*)
foreach(entry IN LISTS entries ITEMS ${ROOT})
  if(IS_DIRECTORY ${entry} OR entry IN_LIST executables)
    file(CHMOD ${entry} PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
  else()
    file(CHMOD ${entry} PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)
  endif()
endforeach()

# dpkg-deb replaces every later file time with this time. All files are newer, so all of them get the same time. The
# compression is gzip, because every phone's dpkg can decompress it.
set(ENV{SOURCE_DATE_EPOCH} 1577836800)
execute_process(
  COMMAND ${DPKG_DEB} --root-owner-group --uniform-compression -Zgzip -z9 --build ${ROOT} ${PACKAGE}
  OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
