// SPDX-License-Identifier: MIT
#pragma once

namespace curveeditor {

/// What the user marks at a curve in the list. No mark is an edit.
enum class CurveMark {
    Solo, ///< only curves with this mark are seen
    Hide, ///< it is not seen, unless it has the mark above
    Lock  ///< it can't be edited
};

inline constexpr CurveMark allCurveMarks[] = {CurveMark::Solo, CurveMark::Hide, CurveMark::Lock};

struct MarkState
{
    bool isOn = false;
    bool isHosts = false; ///< the host has decided so, and the user can't change it
};

} // namespace curveeditor
