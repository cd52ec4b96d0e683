# SPDX-License-Identifier: MIT
# Installs the package below WORK and builds against it, as its users would: the example hosts, and each header alone.
# usage: cmake -DBUILD=... -DSOURCE=... -DWORK=... -DBUILD_TYPE=... -DCXX_FLAGS=... -P check_install.cmake
function(run)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE output)
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "failed: ${ARGN}\n${output}")
  endif()
endfunction()

run("${CMAKE_COMMAND}" --install "${BUILD}" --prefix "${WORK}/prefix")
foreach(user IN ITEMS examples/minimal_host examples/docked_host examples/curve_tool tests/install/headers)
  run("${CMAKE_COMMAND}" -G Ninja -S "${SOURCE}/${user}" -B "${WORK}/${user}"
      "-DCMAKE_PREFIX_PATH=${WORK}/prefix" "-DCMAKE_BUILD_TYPE=${BUILD_TYPE}" "-DCMAKE_CXX_FLAGS=${CXX_FLAGS}")
  run("${CMAKE_COMMAND}" --build "${WORK}/${user}")
endforeach()
