# orlix_embed_text(target file function header)
# Compiles a text file into <target>: `function`, declared in `header` with its namespaces as
# "std::string_view Some::Space::Name()", returns the bytes of the file. A changed file is compiled anew.
function(orlix_embed_text target file function header)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${file})
  file(READ ${file} text)
  if(text MATCHES "\\)embedded\"")
    message(FATAL_ERROR "${file}: holds the delimiter of the text that it is put into")
  endif()
  get_filename_component(name ${file} NAME)
  set(source ${CMAKE_CURRENT_BINARY_DIR}/${name}.cpp)
  file(CONFIGURE OUTPUT ${source} @ONLY CONTENT "// Made from ${name}.
#include \"${header}\"

std::string_view ${function}() { return R\"embedded(@text@)embedded\"; }
")
  target_sources(${target} PRIVATE ${source})
endfunction()
