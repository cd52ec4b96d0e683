# SPDX-License-Identifier: MIT
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(targets CurveEditorModel)
if(TARGET CurveEditor)
  list(APPEND targets CurveEditor)
endif()
install(TARGETS ${targets} EXPORT CurveEditorTargets
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})

# Headers keep their folders, so that a host includes the same paths installed and in the source tree.
foreach(target IN LISTS targets)
  get_target_property(headers ${target} CURVEEDITOR_PUBLIC_HEADERS)
  foreach(header IN LISTS headers)
    get_filename_component(folder "${header}" DIRECTORY)
    install(FILES "${PROJECT_SOURCE_DIR}/curveeditor/${header}"
      DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/curveeditor/${folder}")
  endforeach()
endforeach()

set(package_folder "${CMAKE_INSTALL_LIBDIR}/cmake/CurveEditor")
install(EXPORT CurveEditorTargets NAMESPACE CurveEditor:: DESTINATION ${package_folder})
configure_package_config_file("${CMAKE_CURRENT_LIST_DIR}/CurveEditorConfig.cmake.in"
  "${CMAKE_CURRENT_BINARY_DIR}/CurveEditorConfig.cmake" INSTALL_DESTINATION ${package_folder})
write_basic_package_version_file("${CMAKE_CURRENT_BINARY_DIR}/CurveEditorConfigVersion.cmake"
  COMPATIBILITY SameMinorVersion)
install(FILES "${CMAKE_CURRENT_BINARY_DIR}/CurveEditorConfig.cmake"
              "${CMAKE_CURRENT_BINARY_DIR}/CurveEditorConfigVersion.cmake" DESTINATION ${package_folder})
