# brim_copy_settings_pane(ROOT folder BUNDLE folder ENTRY file EXECUTABLE variable)
# Copies the settings pane's bundle, and the property list that adds it to the Settings application, below ROOT: the
# package's root, or the folder in it that represents the root of the installed files. The variable receives the path of
# the copied executable.
function(brim_copy_settings_pane)
  cmake_parse_arguments(pane "" "ROOT;BUNDLE;ENTRY;EXECUTABLE" "" ${ARGN})
  file(COPY ${pane_BUNDLE} DESTINATION ${pane_ROOT}/Library/PreferenceBundles)
  file(COPY ${pane_ENTRY} DESTINATION ${pane_ROOT}/Library/PreferenceLoader/Preferences)
  set(${pane_EXECUTABLE} ${pane_ROOT}/Library/PreferenceBundles/BrimPreferences.bundle/BrimPreferences PARENT_SCOPE)
endfunction()
