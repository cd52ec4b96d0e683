# SPDX-License-Identifier: MIT
# What `./dev docs` hands to Doxygen: the headers that are installed, and the documents.
file(GLOB_RECURSE documented_files CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/docs/*.md")
list(APPEND documented_files "${PROJECT_SOURCE_DIR}/README.md" "${PROJECT_SOURCE_DIR}/CHANGELOG.md"
     "${PROJECT_SOURCE_DIR}/SECURITY.md")
foreach(target IN LISTS targets)
  get_target_property(headers ${target} CURVEEDITOR_PUBLIC_HEADERS)
  list(TRANSFORM headers PREPEND "${PROJECT_SOURCE_DIR}/curveeditor/")
  list(APPEND documented_files ${headers})
endforeach()
list(TRANSFORM documented_files REPLACE "(.+)" "\"\\1\"")
list(JOIN documented_files " " documented_files)
configure_file("${PROJECT_SOURCE_DIR}/docs/Doxyfile.in" "${PROJECT_BINARY_DIR}/Doxyfile" @ONLY)
