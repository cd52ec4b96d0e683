# SPDX-License-Identifier: MIT
# Installs the package below WORK and builds against it, as its users would: the example hosts, and each header alone.
# usage: cmake -DBUILD=... -DSOURCE=... -DWORK=... -DBUILD_TYPE=... -DCXX=... -DCXX_FLAGS=... -P check_install.cmake
function(run)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE output)
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "failed: ${ARGN}\n${output}")
  endif()
endfunction()

# The tree is moved after its installation, and its new place has a blank in its name.
set(prefix "${WORK}/a prefix")
file(REMOVE_RECURSE "${prefix}")
run("${CMAKE_COMMAND}" --install "${BUILD}" --prefix "${WORK}/first")
file(RENAME "${WORK}/first" "${prefix}")
# A later version beside it, found first, is passed over by those who ask for this one.
set(later "${WORK}/later")
file(REMOVE_RECURSE "${later}")
file(COPY "${prefix}/" DESTINATION "${later}")
file(GLOB_RECURSE version "${later}/CurveEditorConfigVersion.cmake")
file(READ "${version}" text)
string(REGEX MATCH "PACKAGE_VERSION \"([0-9.]+)\"" line "${text}")
string(REPLACE "\"${CMAKE_MATCH_1}\"" "\"0.99.0\"" text "${text}")
file(WRITE "${version}" "${text}")
file(REMOVE_RECURSE "${later}/include")
set(ENV{CMAKE_PREFIX_PATH} "${later}:${prefix}")

foreach(user IN ITEMS examples/minimal_host examples/docked_host examples/foreign_history examples/curve_tool tests/install/headers)
  set(without_qt OFF)
  if(user STREQUAL examples/curve_tool) # as where no Qt is installed
    set(without_qt ON)
  endif()
  run("${CMAKE_COMMAND}" -G Ninja -S "${SOURCE}/${user}" -B "${WORK}/${user}"
      -U CurveEditor_DIR -DCMAKE_DISABLE_FIND_PACKAGE_Qt6=${without_qt} "-DCMAKE_CXX_COMPILER=${CXX}" "-DCMAKE_BUILD_TYPE=${BUILD_TYPE}"
      "-DCMAKE_CXX_FLAGS=${CXX_FLAGS}")
  run("${CMAKE_COMMAND}" --build "${WORK}/${user}")
endforeach()

# CMake's own switch for tests is obeyed.
file(REMOVE_RECURSE "${WORK}/untested")
run("${CMAKE_COMMAND}" -G Ninja -S "${SOURCE}" -B "${WORK}/untested" -DBUILD_TESTING=OFF -DCURVEEDITOR_BUILD_GUI=OFF
    "-DCMAKE_CXX_COMPILER=${CXX}")
if(EXISTS "${WORK}/untested/tests")
  message(FATAL_ERROR "tests are built in spite of BUILD_TESTING=OFF")
endif()

# One line of a host, by way of pkg-config.
find_program(pkg_config pkg-config REQUIRED)
file(GLOB_RECURSE package "${prefix}/*/CurveEditor.pc")
get_filename_component(folder "${package}" DIRECTORY)
get_filename_component(libraries "${folder}" DIRECTORY)
set(CurveEditorModel "#include <curveeditor/model/SplineBase.h>\nint main() { return SplineBase()(1.0) != 0.0; }\n")
set(CurveEditor "#include <curveeditor/shell/CurveEditor.h>\nint main() { return CurveEditor::staticMetaObject.className()[0] != 'C'; }\n")
foreach(name IN ITEMS CurveEditorModel CurveEditor)
  file(WRITE "${WORK}/${name}.cpp" "${${name}}")
  set(ENV{PKG_CONFIG_PATH} "${folder}")
  set(ENV{LD_LIBRARY_PATH} "${libraries}")
  run(sh -ec "flags=$('${pkg_config}' --cflags --libs ${name})
    eval '${CXX}' ${CXX_FLAGS} -std=c++17 -fPIC -o ${name} ${name}.cpp \"$flags\"
    ./${name}" WORKING_DIRECTORY "${WORK}")
endforeach()
