# Packages of Debian, one for each component of an installation; scripts/package gives the settings that they need.

get_target_property(QELVRML_ABI qelvrml SOVERSION)
set(QELVRML_LIBRARY_PACKAGE libqelvrml${QELVRML_ABI})
set(QELVRML_DEBIAN_RELEASE 1)
set(QELVRML_DEBIAN_VERSION ${PROJECT_VERSION}-${QELVRML_DEBIAN_RELEASE})
set(QELVRML_MAINTAINER "qelvrml developers <qelvrml@example.org>")

set(QELVRML_DEBIAN_FOLDER ${CMAKE_CURRENT_BINARY_DIR}/debian)
file(MAKE_DIRECTORY ${QELVRML_DEBIAN_FOLDER})

# The license, indented as the format of the file wants it.
file(READ LICENSE QELVRML_LICENSE)
string(REGEX MATCH "Copyright \\(c\\) ([^\n]*)" ignored "${QELVRML_LICENSE}")
set(QELVRML_COPYRIGHT "${CMAKE_MATCH_1}")
string(REGEX REPLACE "^.*${QELVRML_COPYRIGHT}\n+" "" QELVRML_LICENSE "${QELVRML_LICENSE}")
string(REPLACE "\n\n" "\n.\n" QELVRML_LICENSE "${QELVRML_LICENSE}")
string(STRIP "${QELVRML_LICENSE}" QELVRML_LICENSE)
string(REPLACE "\n" "\n " QELVRML_LICENSE " ${QELVRML_LICENSE}")
configure_file(cmake/debian/copyright.in ${QELVRML_DEBIAN_FOLDER}/copyright @ONLY)

string(TIMESTAMP QELVRML_DATE "%a, %d %b %Y %H:%M:%S +0000" UTC)
configure_file(cmake/debian/changelog.in ${QELVRML_DEBIAN_FOLDER}/changelog.Debian @ONLY)
configure_file(CHANGELOG.md ${QELVRML_DEBIAN_FOLDER}/changelog COPYONLY)
foreach(file changelog changelog.Debian)
  execute_process(COMMAND gzip -9nf ${QELVRML_DEBIAN_FOLDER}/${file} COMMAND_ERROR_IS_FATAL ANY)
endforeach()

# What a component becomes: qelvrml_debian_package(COMPONENT NAME SECTION SUMMARY DESCRIPTION [DEPENDS])
macro(qelvrml_debian_package component name section summary description)
  string(TOUPPER ${component} upper)
  set(CPACK_DEBIAN_${upper}_PACKAGE_NAME ${name})
  set(CPACK_DEBIAN_${upper}_PACKAGE_SECTION ${section})
  set(CPACK_DEBIAN_${upper}_DESCRIPTION "${summary}\n${description}")
  set(CPACK_DEBIAN_${upper}_PACKAGE_DEPENDS "${ARGN}")
  install(FILES ${QELVRML_DEBIAN_FOLDER}/copyright ${QELVRML_DEBIAN_FOLDER}/changelog.gz
    ${QELVRML_DEBIAN_FOLDER}/changelog.Debian.gz
    DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/doc/${name} COMPONENT ${component})
endmacro()

set(QELVRML_DEBIAN_TEXT
"qelvrml loads VRML 1.0 and 2.0 scenes into a 3-D model in memory: named
groups, geometry objects with one material each, and textures. It reads plain
files and files packed with gzip or PK-zip, and is lenient where files are
careless.\n\n")

qelvrml_debian_package(runtime ${QELVRML_LIBRARY_PACKAGE} libs "loader of VRML 1.0 and 2.0 scenes, shared library"
  "${QELVRML_DEBIAN_TEXT}This package holds the library that programs load.")
qelvrml_debian_package(development libqelvrml-dev libdevel "loader of VRML 1.0 and 2.0 scenes, development files"
  "${QELVRML_DEBIAN_TEXT}This package holds what programs are built with: the headers, and files for
CMake and pkg-config that tell where the library is."
  "${QELVRML_LIBRARY_PACKAGE} (= ${QELVRML_DEBIAN_VERSION})")
qelvrml_debian_package(tool qelvrml graphics "shows, measures and converts VRML files"
  "${QELVRML_DEBIAN_TEXT}This package holds the command, which tells what a scene holds, measures it,
makes pictures of it and pages that show it in a browser, and converts it to
glTF, OBJ, STL or PLY."
  "${QELVRML_LIBRARY_PACKAGE} (>= ${PROJECT_VERSION})")
# Drivers that draw pictures without a display.
set(CPACK_DEBIAN_TOOL_PACKAGE_RECOMMENDS "libegl-mesa0, libgl1-mesa-dri")
qelvrml_debian_package(documentation qelvrml-doc doc "loader of VRML 1.0 and 2.0 scenes, documentation"
  "${QELVRML_DEBIAN_TEXT}This package holds pages about the library, and an example of a host.")

# What packages of programs depend on that are linked with the library, and that ldconfig has to look at it.
file(WRITE ${QELVRML_DEBIAN_FOLDER}/shlibs
  "libqelvrml ${QELVRML_ABI} ${QELVRML_LIBRARY_PACKAGE} (>= ${PROJECT_VERSION})\n")
file(WRITE ${QELVRML_DEBIAN_FOLDER}/triggers "activate-noawait ldconfig\n")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA ${QELVRML_DEBIAN_FOLDER}/shlibs ${QELVRML_DEBIAN_FOLDER}/triggers)

# Manual pages are packed there. Those of the command are in their place by now.
install(CODE "
  file(GLOB_RECURSE pages \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_MANDIR}/*.1\")
  foreach(page IN LISTS pages)
    execute_process(COMMAND gzip -9nf \${page} COMMAND_ERROR_IS_FATAL ANY)
  endforeach()" COMPONENT tool)

set(CPACK_GENERATOR DEB)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_ALL runtime development tool documentation)
set(CPACK_PACKAGE_CONTACT "${QELVRML_MAINTAINER}")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")  # each package has its own
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE ${QELVRML_DEBIAN_RELEASE})
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_DOCUMENTATION_PACKAGE_ARCHITECTURE all)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_TOOL_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_CURRENT_BINARY_DIR})
include(CPack)
