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

# Tests take most of the time to compile, so the headers that most of them include are compiled once.
# For coverage each file is compiled by itself, so that a missing include is found there.
if(NOT OXA_COVERAGE)
  add_executable(oxa_test_headers ${PROJECT_SOURCE_DIR}/tests/support/precompiled.cpp)
  target_link_libraries(oxa_test_headers PRIVATE oxa_headers GTest::gtest)
  target_precompile_headers(oxa_test_headers PRIVATE
    <gtest/gtest.h> <oxa/oxa.h> <functional> <map> <memory> <optional> <string> <vector>)
  oxa_warn(oxa_test_headers)
endif()
function(oxa_compile_quickly target)
  if(TARGET oxa_test_headers)
    target_precompile_headers(${target} REUSE_FROM oxa_test_headers)
  endif()
  # In tests these double the time, and AddressSanitizer tells most of what they would.
  if(OXA_SANITIZE MATCHES "undefined")
    target_compile_options(${target} PRIVATE -fno-sanitize=alignment,null,vptr)
  endif()
endfunction()

# oxa_add_test(name LIBRARY library... SOURCES source...): a program of GoogleTest cases, linked with
# the library's objects (oxa_objects) or with the shared library (oxa::common), never with both.
function(oxa_add_test name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "LIBRARY;SOURCES")
  add_executable(${name} ${arg_SOURCES})
  target_link_libraries(${name} PRIVATE ${arg_LIBRARY} oxa_test_support)
  set_target_properties(${name} PROPERTIES
    RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/tests)
  oxa_warn(${name})
  oxa_compile_quickly(${name})
  add_test(NAME ${name} COMMAND ${name})
  list(TRANSFORM arg_SOURCES PREPEND ${CMAKE_CURRENT_SOURCE_DIR}/)
  set_property(GLOBAL APPEND PROPERTY OXA_TEST_SOURCES ${arg_SOURCES})
endfunction()

# A locale whose numbers have a comma, which a system need not have installed.
find_program(OXA_LOCALEDEF localedef REQUIRED)
set(oxa_locales ${PROJECT_BINARY_DIR}/tests/locales)
add_custom_command(OUTPUT ${oxa_locales}/de_DE.UTF-8/LC_NUMERIC
  COMMAND ${CMAKE_COMMAND} -E make_directory ${oxa_locales}
  COMMAND ${OXA_LOCALEDEF} --no-archive -i de_DE -f UTF-8 ${oxa_locales}/de_DE.UTF-8
  VERBATIM COMMENT "Making a locale whose numbers have a comma")
add_custom_target(test_locales DEPENDS ${oxa_locales}/de_DE.UTF-8/LC_NUMERIC)

# oxa_use_comma_locale(name): lets a test program use support/comma_locale.h.
function(oxa_use_comma_locale name)
  add_dependencies(${name} test_locales)
  target_compile_definitions(${name} PRIVATE OXA_LOCALES="${oxa_locales}")
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
