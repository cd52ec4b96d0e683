// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/model/Export.h>

#include <cstdint>
#include <span>

namespace curveeditor {

/// What a type of points is called, and where it stands in menus. Texts for users are untranslated, in the context
/// "PointType".
struct PointType
{
    std::int32_t number; ///< the `SplineBase::NodeType`, in files too
    const char* word;    ///< in tables and diffs, whatever the language
    const char* name;
    const char* node;      ///< in the combo box of the node page
    const char* point;     ///< as assistive tools say it
    const char* selection; ///< in the menu of the points
    int entry;             ///< its place in that combo box; the first is 0, and no place is free
    int menuId;            ///< of its entry in that menu; 4 and 5 are those of entries that are no types
};

/// The one list of the types of points. Whoever offers, names, reads or writes types asks it.
namespace PointTypes {

/// Ascending in number.
CURVEEDITOR_EXPORT std::span<const PointType> all();
/// That of the number; as a number that is no type acts as `Linear`, it gets that one's row.
CURVEEDITOR_EXPORT const PointType& of(std::int32_t number);
/// For tests: replaces the list, which is not copied.
CURVEEDITOR_EXPORT void use(std::span<const PointType> types);

} // namespace PointTypes

} // namespace curveeditor
