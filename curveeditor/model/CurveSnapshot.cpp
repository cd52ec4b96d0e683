// SPDX-License-Identifier: MIT
#include <curveeditor/model/CurveSnapshot.h>

#include <curveeditor/model/FormulaSnapshot.h>
#include <curveeditor/model/SplineSnapshot.h>

using namespace curveeditor;

CurveSnapshot::~CurveSnapshot() = default;

std::shared_ptr<const CurveSnapshot> CurveSnapshot::of(const SplineBase& spline,
                                                       std::shared_ptr<const CurveSnapshot> previous)
{
    const auto* const last = dynamic_cast<const SplineSnapshot*>(previous.get());
    auto snapshot = std::make_shared<SplineSnapshot>(spline, last);
    if (last && snapshot->isSame(*last))
        return previous;
    return snapshot;
}

std::shared_ptr<const CurveSnapshot> CurveSnapshot::of(const FunctionFloatBase& formula, double fps,
                                                       const CurveVariables& variables)
{
    auto snapshot = std::make_shared<FormulaSnapshot>(fps);
    return snapshot->take(formula, variables) ? snapshot : nullptr;
}
