# Builds the packages that install the library, its filter, its assets and the settings pane on a phone: one for phones
# whose packages are in the root folder, and one for phones whose packages are in /var/jb. Both contain the same files.
# The build is reproducible, because the owners, times and order of the files are fixed.
find_program(DPKG_DEB dpkg-deb REQUIRED)

# brim_add_package(ARCHITECTURE PREFIX): adds the target that builds a package. PREFIX is the folder that contains the
# installed files, or empty.
function(brim_add_package architecture prefix)
  set(package brim_${PROJECT_VERSION}_${architecture}.deb)
  configure_file(package/control.in ${CMAKE_BINARY_DIR}/control_${architecture} @ONLY)
  # Runs at every build, because there are too many asset files to list as dependencies and the command is fast.
  add_custom_target(
    package_${architecture} ALL
    COMMAND ${CMAKE_COMMAND} -DROOT=${CMAKE_BINARY_DIR}/package_${architecture} -DPREFIX=${prefix} -DLIBRARY=${library}
            -DFILTER=${CMAKE_CURRENT_SOURCE_DIR}/package/Brim.plist -DASSETS=${BRIM_ASSET_BUNDLE}
            -DPANE=${BRIM_SETTINGS_PANE_BUNDLE} -DPANE_ENTRY=${BRIM_SETTINGS_PANE_ENTRY}
            -DCONTROL=${CMAKE_BINARY_DIR}/control_${architecture} -DPACKAGE=${CMAKE_BINARY_DIR}/${package}
            -DDPKG_DEB=${DPKG_DEB} -P ${CMAKE_CURRENT_SOURCE_DIR}/package/assemble.cmake
    COMMENT "Packing ${package}"
    VERBATIM)
  add_dependencies(package_${architecture} dylib assets settings_pane)
endfunction()

brim_add_package(iphoneos-arm "")
brim_add_package(iphoneos-arm64 /var/jb)
