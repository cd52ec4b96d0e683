// SPDX-License-Identifier: MIT
#include <curveeditor/shell/CurveEditorPrivate.h>

#include <curveeditor/canvas/CurveNodeBase.h>
#include <curveeditor/shell/FunctionEditor.h>

#include <algorithm>

using namespace curveeditor;

namespace {

/// The order in which points were selected does not count.
bool areSamePoints(const CanvasCurves::Selections& left, const CanvasCurves::Selections& right)
{
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](const auto& one, const auto& other) {
                          return one.first == other.first &&
                                 (one.second == other.second || one.second.points() == other.second.points());
                      });
}

} // namespace

CurveName CurveEditor::Private::nameOf(const CurveNodeBase* curve) const
{
    const NodeStruct* const record = curve ? nodeOfName.value(curve->getName()) : nullptr;
    return record ? CurveName(record->nodeName, record->curveName) : CurveName();
}

QList<CurveName> CurveEditor::openCurves() const
{
    QList<CurveName> names;
    for (const auto& curve : d_->functionEdit->canvas.curves().all())
        names.append(d_->nameOf(curve.get()));
    return names;
}

CurveName CurveEditor::currentCurve() const
{
    return d_->nameOf(d_->functionEdit->canvas.getCurrentCurve());
}

std::vector<int> CurveEditor::selectedPoints(const QString& group, const QString& curve) const
{
    const CurveNodeBase* const shown = d_->functionEdit->canvas.findCurve(fullName(group, curve));
    if (!shown || !shown->getSpline())
        return {};
    const std::vector<std::int32_t> indices = shown->control().selection().indices(*shown->getSpline());
    return {indices.begin(), indices.end()};
}

void CurveEditor::selectPoints(const QString& group, const QString& curve, const std::vector<int>& indices)
{
    d_->functionEdit->canvas.selectPoints(fullName(group, curve), indices);
}

void CurveEditor::Private::tellSelection()
{
    CanvasCurves::Selections present = functionEdit->canvas.curves().selections();
    const bool areSame = areSamePoints(present, toldSelections);
    toldSelections = std::move(present);
    if (areSame)
        return;
    const HostCalls::Call call(hostCalls());
    Q_EMIT editor.pointSelectionChanged();
}
