# Builds the package that installs the library, its filter, its assets and the settings pane on a phone. The build is reproducible, because
# owners, times and the order of files are fixed.
find_program(DPKG_DEB dpkg-deb REQUIRED)

configure_file(package/control.in ${CMAKE_BINARY_DIR}/control @ONLY)

# Runs at every build, because it is fast and the assets are too many files to list as dependencies.
add_custom_target(
  package_file ALL
  COMMAND ${CMAKE_COMMAND} -DROOT=${CMAKE_BINARY_DIR}/package -DLIBRARY=${library}
          -DFILTER=${CMAKE_CURRENT_SOURCE_DIR}/package/Brim.plist -DASSETS=${BRIM_ASSET_BUNDLE}
          -DPANE=${BRIM_SETTINGS_PANE_BUNDLE} -DPANE_ENTRY=${BRIM_SETTINGS_PANE_ENTRY}
          -DCONTROL=${CMAKE_BINARY_DIR}/control
          -DPACKAGE=${CMAKE_BINARY_DIR}/brim_${PROJECT_VERSION}_iphoneos-arm.deb -DDPKG_DEB=${DPKG_DEB} -P
          ${CMAKE_CURRENT_SOURCE_DIR}/package/assemble.cmake
  COMMENT "Packing brim_${PROJECT_VERSION}_iphoneos-arm.deb"
  VERBATIM)
add_dependencies(package_file dylib assets settings_pane)
