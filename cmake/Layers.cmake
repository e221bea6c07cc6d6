# A layer is a group of folders whose files include headers only from the same layer and from the layers below it. CMake
# rejects dependency cycles between the targets; tests/structure checks each #include against these declarations.

# brim_layer(LAYER [FOLDERS folder...] [DEPENDS layer...])
# Declares a layer without building it. LAYER is also the folder of the layer, unless FOLDERS lists other folders. Paths
# are relative to the root of the repository.
function(brim_layer layer)
  cmake_parse_arguments(PARSE_ARGV 1 declared "" "" "FOLDERS;DEPENDS")
  if(NOT declared_FOLDERS)
    set(declared_FOLDERS ${layer})
  endif()
  list(JOIN declared_FOLDERS " " folders)
  list(JOIN declared_DEPENDS " " depends)
  set_property(GLOBAL APPEND_STRING PROPERTY BRIM_LAYERS "${layer}|${folders}|${depends}\n")
endfunction()

# brim_simulator_layer(NAME [FOLDERS folder...] [DEPENDS layer...] [LIBRARIES target...])
# Declares a layer of the simulator and builds it as an object library, which excludes main.cpp files. NAME and FOLDERS
# are relative to simulator/. The library `simulator` contains the object files of all these layers.
function(brim_simulator_layer name)
  cmake_parse_arguments(PARSE_ARGV 1 declared "" "" "FOLDERS;DEPENDS;LIBRARIES")
  if(NOT declared_FOLDERS)
    set(declared_FOLDERS ${name})
  endif()
  set(patterns ${declared_FOLDERS})
  list(TRANSFORM patterns APPEND "/*.cpp")
  file(GLOB sources CONFIGURE_DEPENDS ${patterns})
  list(FILTER sources EXCLUDE REGEX "/main\\.cpp$")

  set(declared_LINKED ${declared_DEPENDS})
  string(REPLACE "/" "_" target simulator_${name})
  add_library(${target} OBJECT ${sources})
  target_link_libraries(${target} PUBLIC platform ${declared_LIBRARIES})
  # The simulator includes headers of Brim's library, but does not link to it.
  list(FILTER declared_LINKED EXCLUDE REGEX "^library")
  foreach(dependency IN LISTS declared_LINKED)
    string(REGEX REPLACE "^simulator/(layout|drawing)$" "\\1" dependency ${dependency})
    string(REPLACE "/" "_" dependency ${dependency})
    target_link_libraries(${target} PUBLIC ${dependency})
  endforeach()
  set_property(GLOBAL APPEND PROPERTY BRIM_SIMULATOR_LAYERS ${target})

  list(TRANSFORM declared_FOLDERS PREPEND "simulator/")
  brim_layer(simulator/${name} FOLDERS ${declared_FOLDERS} DEPENDS platform ${declared_DEPENDS})
endfunction()

# Writes the declarations to layers.txt in the build folder, one line per layer: name|folders|dependencies.
function(brim_write_layers)
  get_property(layers GLOBAL PROPERTY BRIM_LAYERS)
  file(CONFIGURE OUTPUT ${CMAKE_BINARY_DIR}/layers.txt CONTENT "${layers}")
endfunction()
