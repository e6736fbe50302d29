# What is installed, and the two ways by which other projects find it: find_package(oxa_common) and
# pkg-config. The component Runtime is what a program needs to run, Development what its author needs
# on top. Nothing that is installed names a fixed prefix, so the tree may be moved as a whole.
set(OXA_PACKAGE_DIRECTORY ${CMAKE_INSTALL_LIBDIR}/cmake/oxa_common)

install(TARGETS oxa_common oxa_headers EXPORT oxa_common
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT Runtime NAMELINK_COMPONENT Development)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/include/oxa
  DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT Development
  FILES_MATCHING PATTERN *.h)

install(EXPORT oxa_common NAMESPACE oxa:: FILE oxa_common-targets.cmake
  DESTINATION ${OXA_PACKAGE_DIRECTORY} COMPONENT Development)
configure_package_config_file(${CMAKE_CURRENT_LIST_DIR}/oxa_common-config.cmake.in
  ${PROJECT_BINARY_DIR}/oxa_common-config.cmake
  INSTALL_DESTINATION ${OXA_PACKAGE_DIRECTORY}
  PATH_VARS OXA_PLUGIN_DIRECTORY)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/oxa_common-config-version.cmake
  COMPATIBILITY SameMajorVersion)
install(FILES
  ${PROJECT_BINARY_DIR}/oxa_common-config.cmake
  ${PROJECT_BINARY_DIR}/oxa_common-config-version.cmake
  ${CMAKE_CURRENT_LIST_DIR}/oxa_plugin.cmake
  ${CMAKE_CURRENT_LIST_DIR}/oxa_plugin.map
  DESTINATION ${OXA_PACKAGE_DIRECTORY} COMPONENT Development)

file(RELATIVE_PATH OXA_PREFIX_FROM_PC
  ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
string(REGEX REPLACE "/$" "" OXA_PREFIX_FROM_PC ${OXA_PREFIX_FROM_PC})
configure_file(${CMAKE_CURRENT_LIST_DIR}/oxa_common.pc.in ${PROJECT_BINARY_DIR}/oxa_common.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/oxa_common.pc
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT Development)

install(FILES ${PROJECT_SOURCE_DIR}/README.md ${PROJECT_SOURCE_DIR}/CHANGELOG.md
  DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT Development)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/docs
  DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT Development)
