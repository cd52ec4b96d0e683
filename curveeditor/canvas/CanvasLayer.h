// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QImage>
#include <QPoint>
#include <QRect>
#include <QSize>

#include <array>
#include <optional>
#include <utility>
#include <vector>

class BackgroundImage;
class CanvasGrid;
class CurveNodeBase;
class QPainter;

/// What lies behind the current curve: background, mark, rubber band, selection, grid and the other curves, held as
/// one image. It is drawn anew only when what it shows has changed, so that an edit of the current curve draws one
/// curve. The canvas owns it.
class CanvasLayer
{
public:
    /// All that the image depends on; two that are equal give the same image. Pixels are logical.
    struct Content
    {
        quint64 view = 0; ///< another number after each change of range, size, pixel ratio or axes
        QColor canvasColor;
        QColor selectionColor;
        BackgroundImage* background = nullptr; ///< laid out for the view; null if there is none
        std::optional<QPoint> mark;            ///< where the last press was
        std::optional<QRect> band;
        bool isBandValid = false;
        std::optional<std::pair<int, int>> selection; ///< first and last column of the selected points
        CanvasGrid* grid = nullptr;                   ///< laid out for the view
        std::array<QColor, 5> gridColors;
        int timeLine = -1;
        /// The curves from back to front, with the numbers of their pictures.
        std::vector<std::pair<const CurveNodeBase*, quint64>> curves;

        bool operator==(const Content& other) const = default;
    };

    /// Takes a size in logical pixels. Returns false if it had that size and ratio already.
    bool resize(const QSize& size, double pixelRatio);
    /// The layer shows `content` from now on.
    void show(Content content);
    /// Puts the image at the corner of what `painter` draws on.
    void draw(QPainter* painter) const;

    bool isNull() const { return image_.isNull(); }
    double pixelRatio() const { return image_.devicePixelRatio(); }

private:
    void render();
    void drawBackground(QPainter& painter) const;
    void drawMark(QPainter& painter) const;
    void drawBand(QPainter& painter) const;
    void drawSelection(QPainter& painter) const;
    QSize size() const;

    Content content_;
    QImage image_;
};
