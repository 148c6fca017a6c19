# Installation, by components:
#
#   runtime        the library under the name that programs load it by
#   development    what a host is built with: headers, the library's plain name, the CMake package, the pkg-config file
#   tool           the command
#   documentation  pages and examples

include(CMakePackageConfigHelpers)
include(GNUInstallDirs)

set(QELVRML_CMAKE_FOLDER ${CMAKE_INSTALL_LIBDIR}/cmake/qelvrml)

install(TARGETS qelvrml EXPORT qelvrml-targets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT runtime NAMELINK_COMPONENT development
  INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(EXPORT qelvrml-targets NAMESPACE qelvrml:: DESTINATION ${QELVRML_CMAKE_FOLDER} COMPONENT development)

foreach(header IN LISTS QELVRML_HEADERS)
  cmake_path(GET header PARENT_PATH folder)
  install(FILES src/${header} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/${folder} COMPONENT development)
endforeach()

configure_package_config_file(cmake/qelvrml-config.cmake.in ${CMAKE_CURRENT_BINARY_DIR}/qelvrml-config.cmake
  INSTALL_DESTINATION ${QELVRML_CMAKE_FOLDER})
write_basic_package_version_file(${CMAKE_CURRENT_BINARY_DIR}/qelvrml-config-version.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/qelvrml-config.cmake ${CMAKE_CURRENT_BINARY_DIR}/qelvrml-config-version.cmake
  DESTINATION ${QELVRML_CMAKE_FOLDER} COMPONENT development)

# Found from where the file lies, so that an installation can be moved.
file(RELATIVE_PATH QELVRML_PREFIX_FROM_PC /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
configure_file(cmake/qelvrml.pc.in ${CMAKE_CURRENT_BINARY_DIR}/qelvrml.pc @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/qelvrml.pc
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT development)

# The folder would be that of a project that this one is a part of.
if(PROJECT_IS_TOP_LEVEL)
  install(FILES README.md CHANGELOG.md CONTRIBUTING.md SECURITY.md DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT documentation)
  if(NOT QELVRML_DEBIAN)  # there it is a part of another file
    install(FILES LICENSE DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT documentation)
  endif()
  install(DIRECTORY docs DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT documentation
    FILES_MATCHING PATTERN "*.md" PATTERN "*.svg" PATTERN "*.png")
  install(DIRECTORY ${CMAKE_CURRENT_BINARY_DIR}/docs/html
    DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT documentation OPTIONAL)
  install(DIRECTORY examples DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT documentation)
endif()
