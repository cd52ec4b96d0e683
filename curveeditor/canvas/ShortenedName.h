// SPDX-License-Identifier: MIT
#pragma once

#include <QFontMetrics>
#include <QString>

namespace curveeditor {

/// The name of a curve, "group.curve", in at most that many pixels: what must go of the group is cut at its end, up to two
/// thirds of the room are for the curve.
inline QString shortenedName(const QFontMetrics& metrics, const QString& name, int width)
{
    const qsizetype dot = name.indexOf(u'.');
    if (dot < 0 || metrics.horizontalAdvance(name) <= width)
        return metrics.elidedText(name, Qt::ElideMiddle, width);
    const QString curve = name.sliced(dot);
    const int roomOfGroup = qMax(width / 3, width - metrics.horizontalAdvance(curve));
    const QString group = metrics.elidedText(name.first(dot), Qt::ElideRight, roomOfGroup);
    return group + metrics.elidedText(curve, Qt::ElideMiddle, width - metrics.horizontalAdvance(group));
}

} // namespace curveeditor
