find_program(RSVG_CONVERT rsvg-convert REQUIRED)

# brim_render_picture(DRAWING file OUTPUT file WIDTH pixels HEIGHT pixels [STYLE file])
# Adds a command that renders an SVG drawing to a PNG file. STYLE is a style sheet for the drawing.
function(brim_render_picture)
  cmake_parse_arguments(picture "" "DRAWING;OUTPUT;WIDTH;HEIGHT;STYLE" "" ${ARGN})
  set(style "")
  if(picture_STYLE)
    set(style --stylesheet=${picture_STYLE})
  endif()
  cmake_path(GET picture_OUTPUT PARENT_PATH folder)
  cmake_path(GET picture_OUTPUT FILENAME name)
  add_custom_command(
    OUTPUT ${picture_OUTPUT}
    COMMAND ${CMAKE_COMMAND} -E make_directory ${folder}
    COMMAND ${RSVG_CONVERT} --width=${picture_WIDTH} --height=${picture_HEIGHT} ${style} --output=${picture_OUTPUT}
            ${picture_DRAWING}
    DEPENDS ${picture_DRAWING} ${picture_STYLE}
    COMMENT "Rendering ${name}"
    VERBATIM)
endfunction()
