# SPDX-License-Identifier: MIT
# `./dev archive`: what is installed, as one archive that can be unpacked anywhere.
set(CPACK_GENERATOR TGZ)
set(CPACK_PACKAGE_NAME curveeditor)
set(CPACK_PACKAGE_FILE_NAME "curveeditor-${PROJECT_VERSION}-${CMAKE_SYSTEM_NAME}-${CMAKE_SYSTEM_PROCESSOR}")
set(CPACK_PACKAGE_DIRECTORY "${PROJECT_SOURCE_DIR}/out")
set(CPACK_RESOURCE_FILE_LICENSE "${PROJECT_SOURCE_DIR}/LICENSE")
set(CPACK_STRIP_FILES ON)
install(FILES LICENSE README.md CHANGELOG.md DESTINATION ${CMAKE_INSTALL_DATADIR}/curveeditor)
include(CPack)
