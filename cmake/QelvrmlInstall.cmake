# Installation: the library, its headers, the CMake package and the pkg-config file.

include(CMakePackageConfigHelpers)
include(GNUInstallDirs)

install(TARGETS qelvrml EXPORT qelvrml-targets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(EXPORT qelvrml-targets NAMESPACE qelvrml:: DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/qelvrml)

foreach(header IN LISTS QELVRML_HEADERS)
  cmake_path(GET header PARENT_PATH folder)
  install(FILES src/${header} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/${folder})
endforeach()

configure_package_config_file(cmake/qelvrml-config.cmake.in ${CMAKE_CURRENT_BINARY_DIR}/qelvrml-config.cmake
  INSTALL_DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/qelvrml)
write_basic_package_version_file(${CMAKE_CURRENT_BINARY_DIR}/qelvrml-config-version.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/qelvrml-config.cmake ${CMAKE_CURRENT_BINARY_DIR}/qelvrml-config-version.cmake
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/qelvrml)

# Found from where the file lies, so that an installation can be moved.
file(RELATIVE_PATH QELVRML_PREFIX_FROM_PC /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
configure_file(cmake/qelvrml.pc.in ${CMAKE_CURRENT_BINARY_DIR}/qelvrml.pc @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/qelvrml.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
