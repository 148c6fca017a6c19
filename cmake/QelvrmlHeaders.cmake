# The headers that hosts see. Those of other names are internal.

file(GLOB_RECURSE QELVRML_HEADERS CONFIGURE_DEPENDS RELATIVE ${CMAKE_CURRENT_SOURCE_DIR}/src src/qelvrml/*.h)
list(FILTER QELVRML_HEADERS INCLUDE REGEX "/(C[A-Z]|brix|VRML|Generic)[^/]*[.]h$")

# The same view of them as an installation gives, for what is built beside the library.
set(QELVRML_INCLUDE_DIR ${CMAKE_CURRENT_BINARY_DIR}/include)
file(REMOVE_RECURSE ${QELVRML_INCLUDE_DIR})
foreach(header IN LISTS QELVRML_HEADERS)
  cmake_path(GET header PARENT_PATH folder)
  file(MAKE_DIRECTORY ${QELVRML_INCLUDE_DIR}/${folder})
  file(CREATE_LINK ${CMAKE_CURRENT_SOURCE_DIR}/src/${header} ${QELVRML_INCLUDE_DIR}/${header} SYMBOLIC)
endforeach()
