# Fetches what the package-lock.json in the folder PACKAGES names, and leaves the file "fetched" there.

execute_process(
  COMMAND ${NPM_PROGRAM} ci --ignore-scripts --no-audit --no-fund --prefer-offline --fetch-retries=1 --loglevel=error
  WORKING_DIRECTORY ${PACKAGES} RESULT_VARIABLE result OUTPUT_QUIET)
if(NOT result EQUAL 0)
  message(FATAL_ERROR "npm can't fetch the packages that are needed, see above. Without the network, configure the "
    "build with -D${OPTION}=OFF.")
endif()
file(TOUCH ${PACKAGES}/fetched)
