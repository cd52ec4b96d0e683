# SPDX-License-Identifier: MIT
# Installs the package below WORK and builds the example hosts against it, as a user of the package would.
# usage: cmake -DBUILD=... -DSOURCE=... -DWORK=... -DBUILD_TYPE=... -DCXX_FLAGS=... -P check_install.cmake
function(run)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE output)
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "failed: ${ARGN}\n${output}")
  endif()
endfunction()

run("${CMAKE_COMMAND}" --install "${BUILD}" --prefix "${WORK}/prefix")
foreach(host IN ITEMS minimal_host evaluate)
  run("${CMAKE_COMMAND}" -G Ninja -S "${SOURCE}/examples/${host}" -B "${WORK}/${host}"
      "-DCMAKE_PREFIX_PATH=${WORK}/prefix" "-DCMAKE_BUILD_TYPE=${BUILD_TYPE}" "-DCMAKE_CXX_FLAGS=${CXX_FLAGS}")
  run("${CMAKE_COMMAND}" --build "${WORK}/${host}")
endforeach()
