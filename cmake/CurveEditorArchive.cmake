# SPDX-License-Identifier: MIT
# `./dev archive`: what is installed, as one archive that can be unpacked anywhere.
set(CPACK_GENERATOR TGZ)
set(CPACK_PACKAGE_NAME curveeditor)
set(CPACK_PACKAGE_FILE_NAME "curveeditor-${PROJECT_VERSION}-${CMAKE_SYSTEM_NAME}-${CMAKE_SYSTEM_PROCESSOR}")
set(CPACK_PACKAGE_DIRECTORY "${PROJECT_SOURCE_DIR}/out")
set(CPACK_RESOURCE_FILE_LICENSE "${PROJECT_SOURCE_DIR}/LICENSE")
set(CPACK_STRIP_FILES ON)
# Only an archive takes these along: packages have places of their own for them.
install(FILES LICENSE README.md CHANGELOG.md DESTINATION . COMPONENT papers EXCLUDE_FROM_ALL)
set(CPACK_INSTALL_CMAKE_PROJECTS "${PROJECT_BINARY_DIR};CurveEditor;ALL;/;${PROJECT_BINARY_DIR};CurveEditor;papers;/")
include(CPack)
