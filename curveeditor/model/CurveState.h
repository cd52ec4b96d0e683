// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/model/SplineState.h>

#include <string>

/// Which of its two contents a curve shows.
enum class CurveKind { Spline, Expression };

/// The whole content of a curve as a value: its spline, its formula, and which of both it shows.
struct CurveState
{
    SplineState spline;                 ///< there for an expression too, which hides it
    CurveKind kind = CurveKind::Spline; ///< which of both counts
    std::string formula; ///< UTF-8, as the user entered it; empty for a curve without a formula

    /// @{
    /// Splines are compared to the bit, formulas as texts.
    bool operator==(const CurveState& other) const
    {
        return kind == other.kind && formula == other.formula && spline == other.spline;
    }
    bool operator!=(const CurveState& other) const { return !(*this == other); }
    /// @}
};
