# What every target of the project is compiled with.

# A project that this one is a part of decides these for itself.
if(PROJECT_IS_TOP_LEVEL)
  if(NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES)
    set(CMAKE_BUILD_TYPE Release CACHE STRING "Kind of build" FORCE)
  endif()
  set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

  find_program(CCACHE_PROGRAM ccache)
  if(CCACHE_PROGRAM AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
    set(CMAKE_CXX_COMPILER_LAUNCHER "${CCACHE_PROGRAM}")
  endif()
endif()

function(qelvrml_compilation target)
  target_compile_features(${target} PUBLIC cxx_std_20)
  set_target_properties(${target} PROPERTIES CXX_EXTENSIONS OFF)
  # Fused multiplications would give another model on another machine.
  target_compile_options(${target} PRIVATE -ffp-contract=off -Wall -Wextra -Wpedantic -Wshadow -Wconversion)
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    # g++ 12 takes moves of short strings for writes behind their end.
    target_compile_options(${target} PRIVATE -Wno-array-bounds -Wno-restrict -Wno-stringop-overflow)
  endif()
  if(QELVRML_WERROR)
    target_compile_options(${target} PRIVATE -Werror)
  endif()
  if(QELVRML_SANITIZE)
    # -O1 and lines without variables: the checks make texts so long that more takes twice as long to compile.
    target_compile_options(${target} PRIVATE
      -fsanitize=${QELVRML_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer -O1 -g1)
    target_link_options(${target} PUBLIC $<BUILD_INTERFACE:-fsanitize=${QELVRML_SANITIZE}>)
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
      # Between the checks g++ 12 takes states of std::regex for uninitialized ones.
      target_compile_options(${target} PRIVATE -Wno-maybe-uninitialized)
    endif()
  endif()
  if(QELVRML_COVERAGE)
    target_compile_options(${target} PRIVATE --coverage)
    target_link_options(${target} PUBLIC $<BUILD_INTERFACE:--coverage>)
  endif()
endfunction()
