# How test programs are made. Every *_test.cpp below tests/ must belong to one, or configuring fails.
find_package(GTest REQUIRED)
# Debian's own, for which modules are installed, whatever else is called python3.
find_program(OXA_PYTHON python3 PATHS /usr/bin NO_DEFAULT_PATH REQUIRED)

add_library(oxa_test_support OBJECT
  ${PROJECT_SOURCE_DIR}/tests/support/allocations.cpp
  ${PROJECT_SOURCE_DIR}/tests/support/main.cpp)
target_include_directories(oxa_test_support PUBLIC ${PROJECT_SOURCE_DIR}/tests)
target_link_libraries(oxa_test_support PUBLIC GTest::gtest)
oxa_warn(oxa_test_support)

# oxa_add_test(name LIBRARY library... SOURCES source...): a program of GoogleTest cases, linked with
# the library's objects (oxa_objects) or with the shared library (oxa::common), never with both.
function(oxa_add_test name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "LIBRARY;SOURCES")
  add_executable(${name} ${arg_SOURCES})
  target_link_libraries(${name} PRIVATE ${arg_LIBRARY} oxa_test_support)
  set_target_properties(${name} PROPERTIES
    RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/tests)
  oxa_warn(${name})
  add_test(NAME ${name} COMMAND ${name})
  list(TRANSFORM arg_SOURCES PREPEND ${CMAKE_CURRENT_SOURCE_DIR}/)
  set_property(GLOBAL APPEND PROPERTY OXA_TEST_SOURCES ${arg_SOURCES})
endfunction()

# Fails when a test file was written but is built by no program.
function(oxa_check_test_sources)
  get_property(built GLOBAL PROPERTY OXA_TEST_SOURCES)
  file(GLOB_RECURSE written CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/tests/*_test.cpp)
  list(REMOVE_ITEM written ${built} "")
  if(written)
    message(FATAL_ERROR "No test program is built from: ${written}")
  endif()
endfunction()
