# Declares the layers of the source tree. A folder can include headers of its own and of the folders it DEPENDS on.
#
# Each declaration is appended to the global property BRIM_LAYERS as "folder: dependency dependency ...".
function(brim_layer folder)
  cmake_parse_arguments(layer "" "" "DEPENDS" ${ARGN})
  list(JOIN layer_DEPENDS " " dependencies)
  set_property(GLOBAL APPEND PROPERTY BRIM_LAYERS "${folder}: ${dependencies}")
endfunction()
