// SPDX-License-Identifier: MIT
#include <curveeditor/canvas/CanvasEdit.h>

#include <curveeditor/canvas/CurveNodeBase.h>

namespace curveeditor {

CanvasEdit::Text CanvasEdit::ofCurve(const QString& text)
{
    return [text](const Nodes& nodes) {
        return text.arg(nodes.front()->getName());
    };
}

CanvasEdit::Text CanvasEdit::ofPoints(const QString& one, const QString& many)
{
    return [one, many](const Nodes& nodes) {
        const QString& name = nodes.front()->getName();
        std::size_t count = 0;
        for (const CurveNodeBase* const node : nodes)
            count += node->control().selection().edited().size();
        if (nodes.size() > 1)
            return many.arg(count).arg(tr("%1 curves").arg(nodes.size()));
        return count == 1 ? one.arg(name) : many.arg(count).arg(name);
    };
}

} // namespace curveeditor
