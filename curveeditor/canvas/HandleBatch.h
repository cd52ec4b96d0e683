// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QLine>
#include <QRect>

#include <vector>

class QPainter;
struct CurveEditorTheme;

namespace curveeditor {

/// Draws lines of one colour that end in squares or circles all at once. Painter and theme outlive it.
class HandleBatch
{
public:
    HandleBatch(QPainter* painter, const CurveEditorTheme& theme) : painter_(painter), theme_(theme) {}
    ~HandleBatch() { flush(); }
    Q_DISABLE_COPY_MOVE(HandleBatch)

    void add(const QPoint& from, const QPoint& to, const QColor& color, bool endsInSquare);
    void flush();

private:
    QPainter* painter_;
    const CurveEditorTheme& theme_;
    QColor color_;
    std::vector<QLine> lines_;
    std::vector<QRect> squares_;
    std::vector<QRect> circles_;
};

/// The pixels of a marker of that size.
inline QRect markerSquare(const QPoint& center, int size)
{
    return QRect(center.x() - size / 2, center.y() - size / 2, size, size);
}

} // namespace curveeditor
