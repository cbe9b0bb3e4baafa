# Compiles files into a target. The faces of resources/fonts.list and the icons of
# resources/icons.list are taken from where the system's packages have put them, the faces under
# names of their own.

function(quenara_read_list path result)
  file(STRINGS ${path} lines REGEX "^[^#]")
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${path})
  set(${result} ${lines} PARENT_SCOPE)
endfunction()

# quenara_embed(<target> <resource> <files...>): each file as :/<resource>/<file name>.
function(quenara_embed target resource)
  foreach(file IN LISTS ARGN)
    get_filename_component(name ${file} NAME)
    set_source_files_properties(${file} PROPERTIES QT_RESOURCE_ALIAS ${name})
  endforeach()
  qt_add_resources(${target} ${target}_${resource} PREFIX /${resource} FILES ${ARGN})
endfunction()

# The system's Python, whatever stands before it in the path.
find_program(QUENARA_PYTHON python3 PATHS /usr/bin NO_DEFAULT_PATH)
find_program(QUENARA_PYTHON python3 REQUIRED)

# quenara_name_face(<source> <family> <file>): the font file under another family name.
function(quenara_name_face source family file)
  set(script ${PROJECT_SOURCE_DIR}/cmake/own_face.py)
  get_filename_component(folder ${file} DIRECTORY)
  add_custom_command(OUTPUT ${file}
    COMMAND ${CMAKE_COMMAND} -E make_directory ${folder}
    COMMAND ${QUENARA_PYTHON} -B ${script} ${source} ${family} ${file}
    DEPENDS ${script} ${source} VERBATIM)
endfunction()

function(quenara_embed_fonts target)
  quenara_read_list(${PROJECT_SOURCE_DIR}/resources/fonts.list faces)
  foreach(face IN LISTS faces)
    if(NOT face MATCHES "^([^ ]+) (.+)$")
      message(FATAL_ERROR "resources/fonts.list: a file and a family name, not ${face}")
    endif()
    set(name ${CMAKE_MATCH_1})
    set(family ${CMAKE_MATCH_2})
    find_file(QUENARA_FONT_${name} ${name} REQUIRED NO_CMAKE_FIND_ROOT_PATH
      PATHS /usr/share/fonts /usr/local/share/fonts
      PATH_SUFFIXES truetype/lato opentype/inter truetype/inter)
    mark_as_advanced(QUENARA_FONT_${name})
    set(file ${PROJECT_BINARY_DIR}/fonts/${name})
    quenara_name_face(${QUENARA_FONT_${name}} ${family} ${file})
    list(APPEND files ${file})
  endforeach()
  quenara_embed(${target} fonts ${files})
endfunction()

function(quenara_embed_icons target)
  quenara_read_list(${PROJECT_SOURCE_DIR}/resources/icons.list symbols)
  find_path(QUENARA_BOOTSTRAP_ICONS play-fill.svg REQUIRED
    PATHS /usr/share/bootstrap-icons/svg /usr/share/nodejs/bootstrap-icons/icons
          /usr/share/bootstrap-icons/icons)
  foreach(symbol IN LISTS symbols)
    separate_arguments(symbol)
    list(POP_FRONT symbol name icon)
    set(file ${PROJECT_BINARY_DIR}/icons/${name}.svg)
    configure_file(${QUENARA_BOOTSTRAP_ICONS}/${icon}.svg ${file} COPYONLY)
    list(APPEND files ${file})
  endforeach()
  quenara_embed(${target} icons ${files})
endfunction()
