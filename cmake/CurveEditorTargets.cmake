# SPDX-License-Identifier: MIT

# The compile settings that every target of this repository shares.
function(curveeditor_settings target)
  target_compile_features(${target} PUBLIC cxx_std_17 PRIVATE cxx_std_20)
  if(MSVC)
    target_compile_options(${target} PRIVATE /W4 /permissive- /utf-8 $<$<BOOL:${CURVEEDITOR_WARNINGS_AS_ERRORS}>:/WX>)
    target_compile_definitions(${target} PRIVATE NOMINMAX)
  else()
    target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow -Wconversion
                                             $<$<BOOL:${CURVEEDITOR_WARNINGS_AS_ERRORS}>:-Werror>)
  endif()
  # All sources of a folder at once: what stands in their anonymous namespaces meets in one file.
  if(CMAKE_UNITY_BUILD AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    target_compile_options(${target} PRIVATE -Wno-subobject-linkage)
  endif()
  set_target_properties(${target} PROPERTIES
    UNITY_BUILD_BATCH_SIZE 0
    CXX_EXTENSIONS OFF
    LINKER_LANGUAGE CXX
    CXX_VISIBILITY_PRESET hidden
    VISIBILITY_INLINES_HIDDEN ON
    POSITION_INDEPENDENT_CODE ON
    WINDOWS_EXPORT_ALL_SYMBOLS ON)
endfunction()

# An object library for one folder below curveeditor/. The libraries and the tests link the same objects.
function(curveeditor_folder name)
  add_library(curveeditor_${name} OBJECT)
  curveeditor_settings(curveeditor_${name})
  target_include_directories(curveeditor_${name} PUBLIC "${PROJECT_SOURCE_DIR}")
endfunction()

# The same for a folder that uses Qt.
function(curveeditor_widget_folder name)
  curveeditor_folder(${name})
  set_target_properties(curveeditor_${name} PROPERTIES AUTOMOC ON)
  target_link_libraries(curveeditor_${name} PUBLIC Qt6::Core Qt6::Gui Qt6::Widgets)
  target_compile_definitions(curveeditor_${name} PRIVATE QT_NO_KEYWORDS)
endfunction()
