// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>
#include <QImage>
#include <QPoint>
#include <QRect>
#include <QSize>

#include <functional>
#include <optional>
#include <utility>
#include <vector>

class BackgroundImage;
class CanvasGrid;
class CurveNodeBase;
class QPainter;
struct CurveEditorTheme;

namespace curveeditor {

/// What lies behind the current curve: background, mark, rubber band, selection, grid and the other curves, held as
/// one image. It is drawn anew only when what it shows has changed, so that an edit of the current curve draws one
/// curve. What a host has painted above the background is held in an image of its own, together with that. A curve that comes on top is drawn onto it, and where only the time line moves its columns are drawn anew.
/// The canvas owns it.
class CanvasLayer
{
public:
    /// What the image depends on but for the curves; two that are equal look the same. Pixels are logical.
    struct Backdrop
    {
        quint64 view = 0; ///< another number after each change of range, size, pixel ratio or axes
        quint64 look = 0; ///< another number after each change of the theme
        const CurveEditorTheme* theme = nullptr;
        BackgroundImage* background = nullptr; ///< laid out for the view; null if there is none
        double backgroundStrength = 1.0;       ///< 0 to 1
        quint64 underlay = 0;       ///< another number for another `paintUnderlay`; 0 if there is none
        std::optional<QPoint> mark; ///< where the last press was
        std::optional<QRect> band;
        bool isBandValid = false;
        std::optional<std::pair<int, int>> selection; ///< first and last column of the selected points
        CanvasGrid* grid = nullptr;                   ///< laid out for the view
        int timeLine = -1;
        QFont font; ///< of the application, in which labels may be

        bool operator==(const Backdrop& other) const = default;
    };
    /// From back to front, each with the number of its picture.
    using Curves = std::vector<std::pair<const CurveNodeBase*, quint64>>;

    /// Takes a size in logical pixels. Returns false if it had that size and ratio already.
    bool resize(const QSize& size, double pixelRatio);
    /// Lets a host paint what lies above background, band and selection and below the grid. It shows in `show` wherever
    /// that is given an `underlay`.
    void paintUnderlay(const std::function<void(QPainter&)>& work);
    /// The image shows these from now on.
    void show(const Backdrop& backdrop, const Curves& curves);
    /// Puts the image at the corner of what `painter` draws on.
    void draw(QPainter* painter) const { put(image_, painter); }
    /// The same with what `drawOn` draws onto a copy of it, which that writes into as into any image.
    void drawWith(const std::function<void(QPainter&, QImage&)>& drawOn, QPainter* painter);

    bool isNull() const { return image_.isNull(); }
    double pixelRatio() const { return image_.devicePixelRatio(); }

private:
    static void put(const QImage& image, QPainter* painter);
    void renderBackdrop(const QRect& part);
    void renderCurves(const QRect& part, std::size_t first);
    void clip(QPainter& painter, const QRect& part) const;
    QRect columnsOfTimeLine(int column) const;
    void drawBackground(QPainter& painter) const;
    void drawMark(QPainter& painter) const;
    void drawBand(QPainter& painter) const;
    void drawSelection(QPainter& painter) const;
    QSize size() const;

    Backdrop backdrop_;
    Curves curves_;
    QImage image_;
    QImage underlay_; ///< what the host has painted, and nothing around it
    QImage frame_;
};

} // namespace curveeditor
