# Fails unless a shared object shows exactly the symbols in a list: ids as read-only data, anything
# else as functions. cmake -DNM=nm -DOBJECT=object -DSYMBOLS=file -P check_exports.cmake
execute_process(COMMAND ${NM} -D --defined-only --no-sort ${OBJECT}
  OUTPUT_VARIABLE output COMMAND_ERROR_IS_FATAL ANY)
string(REGEX MATCHALL "[A-Za-z] [^\n]+" shown "${output}")
list(TRANSFORM shown REPLACE "^[0-9a-f]+ " "")
list(SORT shown COMPARE STRING)

file(STRINGS ${SYMBOLS} expected REGEX "^[^#]")
if(NOT expected)
  message(FATAL_ERROR "${SYMBOLS} names no symbol")
endif()
list(TRANSFORM expected REPLACE "^IID_" "R IID_")
list(TRANSFORM expected REPLACE "^([^ ]+)$" "T \\1")
list(SORT expected COMPARE STRING)

if(NOT shown STREQUAL expected)
  set(surplus ${shown})
  list(REMOVE_ITEM surplus ${expected})
  set(missing ${expected})
  list(REMOVE_ITEM missing ${shown})
  message(FATAL_ERROR "${OBJECT}\n  shows, but should not: ${surplus}\n  lacks: ${missing}")
endif()
