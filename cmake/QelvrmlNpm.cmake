# Packages of npm, for what is built or tested with node.

find_program(NPM_PROGRAM npm)
find_program(NODE_PROGRAM node)
set(QELVRML_NPM_SCRIPT ${CMAKE_CURRENT_LIST_DIR}/FetchNpmPackages.cmake)

# Has the build fetch what package-lock.json in a folder names, into a folder of the build. Commands that depend on the
# file that `stamp` gets the path of find the packages beside it. `option` is what a build without them is made with.
function(qelvrml_npm_packages sources packages option stamp)
  set(files ${sources}/package.json ${sources}/package-lock.json)
  add_custom_command(OUTPUT ${packages}/fetched
    COMMAND ${CMAKE_COMMAND} -E make_directory ${packages}
    COMMAND ${CMAKE_COMMAND} -E copy ${files} ${packages}
    COMMAND ${CMAKE_COMMAND} -DNPM_PROGRAM=${NPM_PROGRAM} -DPACKAGES=${packages} -DOPTION=${option}
      -P ${QELVRML_NPM_SCRIPT}
    DEPENDS ${files} ${QELVRML_NPM_SCRIPT}
    COMMENT "Fetching packages of npm for ${sources}" VERBATIM)
  set(${stamp} ${packages}/fetched PARENT_SCOPE)
endfunction()
