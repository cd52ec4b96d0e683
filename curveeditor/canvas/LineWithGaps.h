// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

class QPainter;
class QPolygon;

/// Draws the polyline through `points` with the painter's pen. `gaps` holds indices in `points`, ascending
/// and at most the number of points: where one stands, the point of that index is not joined to the one
/// before.
void drawLineWithGaps(QPainter* painter, const QPolygon& points, const std::vector<int>& gaps);
