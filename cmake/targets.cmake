# How targets of this project are made.

set(OXA_WARNINGS -Wall -Wextra -Wpedantic -Wconversion -Wshadow)
if(OXA_WERROR)
  list(APPEND OXA_WARNINGS -Werror)
endif()

# Compiles a target of ours with our warnings.
function(oxa_warn target)
  target_compile_options(${target} PRIVATE ${OXA_WARNINGS})
endfunction()

# The same, checked by clang-tidy where that is asked for. Not for tests: on the macros of GoogleTest
# it takes many times as long as the compiler.
function(oxa_own target)
  oxa_warn(${target})
  if(OXA_CLANG_TIDY)
    set_target_properties(${target} PROPERTIES CXX_CLANG_TIDY "clang-tidy;--quiet")
  endif()
endfunction()

include(${CMAKE_CURRENT_LIST_DIR}/oxa_plugin.cmake)
