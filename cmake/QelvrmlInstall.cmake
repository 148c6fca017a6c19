# Installation: the library, its headers, the CMake package and the pkg-config file.

include(CMakePackageConfigHelpers)

install(TARGETS qelvrml EXPORT qelvrml-targets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(DIRECTORY src/qelvrml DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}
  FILES_MATCHING REGEX "/(C[A-Z]|brix|VRML|Generic)[^/]*[.]h$")
install(EXPORT qelvrml-targets NAMESPACE qelvrml:: DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/qelvrml)

configure_package_config_file(cmake/qelvrml-config.cmake.in ${CMAKE_CURRENT_BINARY_DIR}/qelvrml-config.cmake
  INSTALL_DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/qelvrml)
write_basic_package_version_file(${CMAKE_CURRENT_BINARY_DIR}/qelvrml-config-version.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/qelvrml-config.cmake ${CMAKE_CURRENT_BINARY_DIR}/qelvrml-config-version.cmake
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/qelvrml)

# Found from where the file lies, so that an installation can be moved.
file(RELATIVE_PATH QELVRML_PREFIX_FROM_PC /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
configure_file(cmake/qelvrml.pc.in ${CMAKE_CURRENT_BINARY_DIR}/qelvrml.pc @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/qelvrml.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
