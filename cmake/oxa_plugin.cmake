# Makes a plug-in: oxa_add_plugin(name source... [EXTENSION_FILES file...]). The result is name.so,
# which shows its entry point and nothing else, built against the public headers alone. A symbol that
# nobody defines is an error of the linker; -z undefs, added to the target's link options, allows it.
# Extension files, which declare its record types, are copied beside it. Installed with the package.
function(oxa_add_plugin name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "EXTENSION_FILES")
  add_library(${name} MODULE ${arg_UNPARSED_ARGUMENTS})
  target_link_libraries(${name} PRIVATE oxa::common)
  set_target_properties(${name} PROPERTIES
    PREFIX ""
    CXX_VISIBILITY_PRESET hidden
    VISIBILITY_INLINES_HIDDEN ON)
  if(OXA_PLUGIN_OUTPUT_DIRECTORY)
    set_target_properties(${name} PROPERTIES
      LIBRARY_OUTPUT_DIRECTORY ${OXA_PLUGIN_OUTPUT_DIRECTORY})
  endif()
  if(arg_EXTENSION_FILES)
    _oxa_copy_beside(${name} ${arg_EXTENSION_FILES})
  endif()

  set(map ${CMAKE_CURRENT_FUNCTION_LIST_DIR}/oxa_plugin.map)
  target_link_options(${name} PRIVATE LINKER:--version-script=${map})
  set_property(TARGET ${name} APPEND PROPERTY LINK_DEPENDS ${map})
  # Instrumented code refers to a runtime that the program brings.
  string(TOUPPER "${CMAKE_BUILD_TYPE}" configuration)
  get_target_property(options ${name} COMPILE_OPTIONS)
  set(flags "${options} ${CMAKE_CXX_FLAGS} ${CMAKE_CXX_FLAGS_${configuration}}")
  if(NOT flags MATCHES "-fsanitize=")
    target_link_options(${name} PRIVATE LINKER:-z,defs)
  endif()
endfunction()

# Copies files to where a plug-in is built, whenever they change.
function(_oxa_copy_beside name)
  get_target_property(folder ${name} LIBRARY_OUTPUT_DIRECTORY)
  if(NOT folder)
    set(folder ${CMAKE_CURRENT_BINARY_DIR})
  endif()
  foreach(file IN LISTS ARGN)
    cmake_path(ABSOLUTE_PATH file)
    cmake_path(GET file FILENAME copy)
    add_custom_command(OUTPUT ${folder}/${copy}
      COMMAND ${CMAKE_COMMAND} -E copy ${file} ${folder}/${copy}
      DEPENDS ${file} VERBATIM)
    list(APPEND copies ${folder}/${copy})
  endforeach()
  add_custom_target(${name}_extension_files DEPENDS ${copies})
  add_dependencies(${name} ${name}_extension_files)
endfunction()
