# Makes a plug-in: oxa_add_plugin(name source...). The result is name.so, which shows its entry point
# and nothing else, built against the public headers alone. Installed with the package.
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
endfunction()
