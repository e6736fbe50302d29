# Makes a plug-in: oxa_add_plugin(name source...). The result is name.so, which shows its entry point
# and nothing else, built against the public headers alone. A symbol that nobody defines is an error of
# the linker; -z undefs, added to the target's link options, allows it. Installed with the package.
function(oxa_add_plugin name)
  add_library(${name} MODULE ${ARGN})
  target_link_libraries(${name} PRIVATE oxa::common)
  set_target_properties(${name} PROPERTIES
    PREFIX ""
    CXX_VISIBILITY_PRESET hidden
    VISIBILITY_INLINES_HIDDEN ON)
  if(OXA_PLUGIN_OUTPUT_DIRECTORY)
    set_target_properties(${name} PROPERTIES
      LIBRARY_OUTPUT_DIRECTORY ${OXA_PLUGIN_OUTPUT_DIRECTORY})
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
