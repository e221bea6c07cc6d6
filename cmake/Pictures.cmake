# Renders a drawing to a PNG of a given size in pixels whenever the drawing or its style sheet changes.
find_program(RSVG_CONVERT rsvg-convert REQUIRED)

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
    COMMENT "Drawing ${name}"
    VERBATIM)
endfunction()
