# SPDX-License-Identifier: MIT

# Puts the translations into the target as a resource. Without Qt's lrelease it has its English texts only.
function(curveeditor_translations target)
  find_program(CURVEEDITOR_LRELEASE lrelease HINTS "${QT6_INSTALL_PREFIX}/${QT6_INSTALL_BINS}")
  mark_as_advanced(CURVEEDITOR_LRELEASE)
  if(NOT CURVEEDITOR_LRELEASE)
    message(STATUS "No translations: Qt's lrelease was not found")
    return()
  endif()
  foreach(language IN ITEMS de es fr ja)
    set(source "${PROJECT_SOURCE_DIR}/curveeditor/translations/curveeditor_${language}.ts")
    set(translation "${CMAKE_CURRENT_BINARY_DIR}/curveeditor_${language}.qm")
    add_custom_command(OUTPUT "${translation}" DEPENDS "${source}" VERBATIM
      COMMAND "${CURVEEDITOR_LRELEASE}" -silent "${source}" -qm "${translation}")
    string(APPEND files "<file>curveeditor_${language}.qm</file>")
  endforeach()
  set(list_of_files "${CMAKE_CURRENT_BINARY_DIR}/curveeditor_translations.qrc")
  file(CONFIGURE OUTPUT "${list_of_files}" CONTENT "<RCC><qresource prefix='/curveeditor'>@files@</qresource></RCC>")
  qt6_add_resources(resource "${list_of_files}")
  target_sources(${target} PRIVATE ${resource})
  target_compile_definitions(${target} PRIVATE CURVEEDITOR_HAS_TRANSLATIONS)
endfunction()
