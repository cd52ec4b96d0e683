// SPDX-License-Identifier: MIT
#include <curveeditor/canvas/LineWithGaps.h>

#include <QPainter>
#include <QPolygon>

void drawLineWithGaps(QPainter* painter, const QPolygon& points, const std::vector<int>& gaps)
{
    int begin = 0;
    for (const int gap : gaps) {
        painter->drawPolyline(points.constData() + begin, gap - begin);
        begin = gap;
    }
    painter->drawPolyline(points.constData() + begin, int(points.size()) - begin);
}
