# How targets of this project are made.

set(OXA_WARNINGS -Wall -Wextra -Wpedantic -Wconversion -Wshadow)
if(OXA_WERROR)
  list(APPEND OXA_WARNINGS -Werror)
endif()

# Compiles a target of ours with our warnings, and with clang-tidy where that is asked for.
function(oxa_own target)
  target_compile_options(${target} PRIVATE ${OXA_WARNINGS})
  if(OXA_CLANG_TIDY)
    set_target_properties(${target} PROPERTIES CXX_CLANG_TIDY "clang-tidy;--quiet")
  endif()
endfunction()

include(${CMAKE_CURRENT_LIST_DIR}/oxa_plugin.cmake)
