// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QPixmap>

class QPainter;
class QString;
class ViewPort;

/// A picture behind the curves. The whole picture covers the rectangle of the view's limits, so it zooms and
/// pans with the curves. The canvas owns it, calls `updateForView` when the view is dirty, and `draw` on
/// every paint.
class BackgroundImage
{
public:
    QPixmap viewPixmap; ///< the visible part, sized as the canvas; null if there is nothing to show
    QImage sourceImage; ///< the decoded file; null if it can't be decoded

    /// Loads a file of any format that Qt reads, up to 1 GiB decoded. A file that can't be decoded leaves a
    /// picture that draws nothing.
    explicit BackgroundImage(const QString& fileName);

    /// Crops and scales the picture for the view. Whole picture elements are cropped, so the part may be
    /// empty at a very close view: `viewPixmap` is null then. What lies outside of the picture is black, or
    /// transparent if the picture has an alpha channel. The pixmap gets `devicePixelRatio` times the canvas
    /// size, as the buffer it is drawn into.
    void updateForView(ViewPort* view, double devicePixelRatio = 1.0);

    /// True if `draw` paints every pixel of the canvas. If not, the canvas is erased before.
    bool coversCanvas() const;

    /// Draws the visible part at the top left corner.
    void draw(QPainter* painter);
};
