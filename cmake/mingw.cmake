# SPDX-License-Identifier: MIT
# For Windows on Linux: the curve model and curve-tool, which Wine runs.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)
find_program(CURVEEDITOR_WINE NAMES wine64 wine HINTS /usr/lib/wine)
set(CMAKE_CROSSCOMPILING_EMULATOR "${CURVEEDITOR_WINE}")
set(CMAKE_FIND_ROOT_PATH /usr/x86_64-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_EXE_LINKER_FLAGS_INIT -static)

# A library of headers alone is the same everywhere, but the headers of this system, which lie beside it, are not.
set(nlohmann_json_DIR "${CMAKE_BINARY_DIR}/headers")
if(NOT EXISTS "${nlohmann_json_DIR}/nlohmann_json-config.cmake")
  file(MAKE_DIRECTORY "${nlohmann_json_DIR}")
  file(CREATE_LINK /usr/include/nlohmann "${nlohmann_json_DIR}/nlohmann" SYMBOLIC)
  file(WRITE "${nlohmann_json_DIR}/nlohmann_json-config-version.cmake" "set(PACKAGE_VERSION_COMPATIBLE TRUE)\n")
  file(WRITE "${nlohmann_json_DIR}/nlohmann_json-config.cmake" "
add_library(nlohmann_json::nlohmann_json INTERFACE IMPORTED)
target_include_directories(nlohmann_json::nlohmann_json INTERFACE \"${nlohmann_json_DIR}\")\n")
endif()
