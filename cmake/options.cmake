# What is built, and how strictly. The presets set what developers and CI use; the defaults here are
# those of a user who builds the library to install it, or as a part of another project.
option(OXA_BUILD_EXAMPLES "Build oxa-graph and its plug-ins" ${PROJECT_IS_TOP_LEVEL})
option(OXA_INSTALL "Install the library with its package" ${PROJECT_IS_TOP_LEVEL})
option(OXA_BUILD_TESTS "Build the tests" OFF)
option(OXA_BUILD_BENCHMARKS "Build the benchmarks" OFF)
option(OXA_BUILD_FUZZERS "Build the fuzz targets" OFF)
option(OXA_WERROR "Treat warnings as errors" OFF)
option(OXA_CLANG_TIDY "Check the sources with clang-tidy as they are compiled" OFF)
set(OXA_SANITIZE "" CACHE STRING "Sanitizers for -fsanitize=, such as address,undefined")
option(OXA_COVERAGE "Instrument for coverage" OFF)

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/lib)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin)
set(OXA_PLUGIN_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/plugins)
set(OXA_PLUGIN_DIRECTORY ${CMAKE_INSTALL_LIBDIR}/oxa/plugins)
set(CMAKE_INSTALL_DEFAULT_COMPONENT_NAME Runtime)

# What is installed finds its parts by the way from one to the other.
foreach(directory BINDIR LIBDIR INCLUDEDIR)
  if(OXA_INSTALL AND IS_ABSOLUTE "${CMAKE_INSTALL_${directory}}")
    message(FATAL_ERROR "CMAKE_INSTALL_${directory} must be relative to CMAKE_INSTALL_PREFIX, "
      "but is ${CMAKE_INSTALL_${directory}}")
  endif()
endforeach()
# Like the installed package, tells a project around this one where hosts look for plug-ins.
if(NOT PROJECT_IS_TOP_LEVEL)
  set(OXA_PLUGIN_DIRECTORY ${CMAKE_INSTALL_FULL_LIBDIR}/oxa/plugins PARENT_SCOPE)
endif()

if(OXA_SANITIZE)
  add_compile_options(-fsanitize=${OXA_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${OXA_SANITIZE})
  # In instrumented code GCC takes parts of the standard library for uninitialized.
  if(CMAKE_CXX_COMPILER_ID STREQUAL GNU)
    add_compile_options(-Wno-maybe-uninitialized)
  endif()
endif()
if(OXA_BUILD_FUZZERS)
  add_compile_options(-fsanitize=fuzzer-no-link)
endif()
if(OXA_COVERAGE)
  add_compile_options(--coverage -fprofile-update=atomic)
  add_link_options(--coverage)
endif()
# Once it optimizes, GCC 12 reports overlapping copies where text is added in front of a std::string;
# there are none. clang-tidy, which reads debug builds, does not know the option.
if(CMAKE_CXX_COMPILER_ID STREQUAL GNU AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  add_compile_options($<$<NOT:$<CONFIG:Debug>>:-Wno-restrict>)
endif()
