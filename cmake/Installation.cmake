# Specifies the files that `cmake --install` installs. A program finds its libraries and data relative to its own
# location, so the installation folder can be moved.
install(TARGETS springboard messages phone_control RUNTIME DESTINATION bin)
set_target_properties(springboard messages phone_control PROPERTIES INSTALL_RPATH $ORIGIN/../lib/brim)

set(libraries simulator Brim transfers vcards web_server recorder)
if(TARGET window)
  list(APPEND libraries window web_page)
  install(DIRECTORY ${CMAKE_BINARY_DIR}/share/brim/page DESTINATION share/brim PATTERN copied EXCLUDE)
endif()
install(TARGETS ${libraries} LIBRARY DESTINATION lib/brim)
set_target_properties(${libraries} PROPERTIES INSTALL_RPATH $ORIGIN)

install(
  DIRECTORY ${BRIM_ASSET_BUNDLE} ${BRIM_SETTINGS_PANE_BUNDLE} ${CMAKE_BINARY_DIR}/share/brim/artwork
            ${CMAKE_BINARY_DIR}/share/brim/demonstration
  DESTINATION share/brim
  PATTERN assembled EXCLUDE)

install(FILES README.md CHANGELOG.md DESTINATION share/doc/brim)
install(DIRECTORY docs DESTINATION share/doc/brim PATTERN draw EXCLUDE)
