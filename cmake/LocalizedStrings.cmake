find_program(ICONV iconv REQUIRED)

# The Hebrew strings are also installed as "iw", because GNUstep recognizes only this older language
# code.
set(BRIM_LANGUAGES en de fr es it pt-BR nl sv pl tr ru uk ja ko zh-Hans zh-Hant ar he iw)

# brim_encode_strings(TABLE name FOLDER folder BUNDLE folder OUTPUT variable)
# Adds commands that encode the strings table of each language, FOLDER/LANGUAGE.lproj/NAME.strings, into the bundle. The
# variable receives the paths of the encoded files. UTF-16 with a byte order mark is the only encoding that both the
# phone and GNUstep detect reliably.
function(brim_encode_strings)
  cmake_parse_arguments(strings "" "TABLE;FOLDER;BUNDLE;OUTPUT" "" ${ARGN})
  set(encoded_files "")
  foreach(language IN LISTS BRIM_LANGUAGES)
    string(REGEX REPLACE "^iw$" he source_language ${language})
    set(source ${strings_FOLDER}/${source_language}.lproj/${strings_TABLE}.strings)
    set(folder ${strings_BUNDLE}/${language}.lproj)
    set(encoded ${folder}/${strings_TABLE}.strings)
    add_custom_command(
      OUTPUT ${encoded}
      COMMAND ${CMAKE_COMMAND} -E make_directory ${folder}
      COMMAND ${ICONV} --from-code=UTF-8 --to-code=UTF-16 --output=${encoded} ${source}
      DEPENDS ${source}
      COMMENT "Encoding the table ${strings_TABLE} of ${language}"
      VERBATIM)
    list(APPEND encoded_files ${encoded})
  endforeach()
  set(${strings_OUTPUT} ${encoded_files} PARENT_SCOPE)
endfunction()
