# SPDX-License-Identifier: MIT
include(CMakePackageConfigHelpers)

set(targets CurveEditorModel)
if(TARGET CurveEditor)
  list(APPEND targets CurveEditor)
endif()
set(package_folder "${CMAKE_INSTALL_LIBDIR}/cmake/CurveEditor")
foreach(target IN LISTS targets)
  install(TARGETS ${target} EXPORT ${target}Targets
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
    RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
  install(EXPORT ${target}Targets NAMESPACE CurveEditor:: DESTINATION ${package_folder})
endforeach()

# Headers keep their folders, so that a host includes the same paths installed and in the source tree.
foreach(target IN LISTS targets)
  get_target_property(headers ${target} CURVEEDITOR_PUBLIC_HEADERS)
  foreach(header IN LISTS headers)
    get_filename_component(folder "${header}" DIRECTORY)
    install(FILES "${PROJECT_SOURCE_DIR}/curveeditor/${header}"
      DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/curveeditor/${folder}")
  endforeach()
endforeach()

configure_package_config_file("${CMAKE_CURRENT_LIST_DIR}/CurveEditorConfig.cmake.in"
  "${CMAKE_CURRENT_BINARY_DIR}/CurveEditorConfig.cmake" INSTALL_DESTINATION ${package_folder})
write_basic_package_version_file("${CMAKE_CURRENT_BINARY_DIR}/CurveEditorConfigVersion.cmake"
  COMPATIBILITY SameMinorVersion)
install(FILES "${CMAKE_CURRENT_BINARY_DIR}/CurveEditorConfig.cmake"
              "${CMAKE_CURRENT_BINARY_DIR}/CurveEditorConfigVersion.cmake" DESTINATION ${package_folder})

# What pkg-config reads. The prefix follows from where the file lies, so that an installed tree can be moved; folders
# given as absolute paths stay where they are.
set(pkgconfig_folder "${CMAKE_INSTALL_LIBDIR}/pkgconfig")
if(IS_ABSOLUTE "${CMAKE_INSTALL_LIBDIR}")
  set(pc_prefix "${CMAKE_INSTALL_PREFIX}")
  set(pc_libdir "${CMAKE_INSTALL_LIBDIR}")
else()
  file(RELATIVE_PATH way_up "/${pkgconfig_folder}" "/")
  string(REGEX REPLACE "/$" "" way_up "${way_up}")
  set(pc_prefix "\${pcfiledir}/${way_up}")
  set(pc_libdir "\${prefix}/${CMAKE_INSTALL_LIBDIR}")
endif()
if(IS_ABSOLUTE "${CMAKE_INSTALL_INCLUDEDIR}")
  set(pc_includedir "${CMAKE_INSTALL_INCLUDEDIR}")
else()
  set(pc_includedir "\${prefix}/${CMAKE_INSTALL_INCLUDEDIR}")
endif()
foreach(target IN LISTS targets)
  configure_file("${CMAKE_CURRENT_LIST_DIR}/${target}.pc.in" "${CMAKE_CURRENT_BINARY_DIR}/${target}.pc" @ONLY)
  install(FILES "${CMAKE_CURRENT_BINARY_DIR}/${target}.pc" DESTINATION ${pkgconfig_folder})
endforeach()
