// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/edit/Gesture.h>
#include <curveeditor/edit/OwnScale.h>
#include <curveeditor/edit/PlaneMapping.h>
#include <curveeditor/edit/ViewStep.h>
#include <curveeditor/files/AxisText.h>

#include <QRect>

class QMouseEvent;

using namespace curveeditor;

/// The coordinate system of the canvas, and the three mouse gestures that change the view: rubber-band zoom,
/// pan and drag zoom.
///
/// The plane has time on its horizontal and the curve value on its vertical axis. Times are in time units,
/// also when the display counts frames; a frame number is time × `fps` and is formed only where numbers are
/// shown. Pixels are logical. Pixel rows run down: `valueMax` lies at row 0, `valueMin` at row `pixelHeight`.
///
/// The visible range is what the next paint shows. The limits bound the mapping and rubber bands; a pan may
/// carry the visible range past them. The band is scratch space: the two corners of a rubber band in any
/// order, or the left top and right bottom corner of a view that a pan, a zoom or a fit proposes.
///
/// The drawing classes get a pointer, own nothing and read the fields directly.
class ViewPort
{
public:
    static constexpr double usualThreshold = double(0.05f);

    int pixelWidth = 0;      ///< of the canvas
    int pixelHeight = 0;     ///< of the canvas
    double pixelRatio = 1.0; ///< device pixels for each logical one; written by the canvas
    int anchorX = 0;         ///< column of the last mouse press
    int anchorY = 0;         ///< row of the last mouse press
    bool showFrames = true;
    double fps = 10.0;     ///< frames per time unit
    AxisText timeText;     ///< of the host; `dirty` is set by whoever sets it
    AxisText valueText;    ///< the same
    double timeLine = 0.0; ///< time at which the time line stands
    double timeMin = -1.0; ///< left edge of the visible range
    double timeMax = 10.0;
    double valueMin = -3.0; ///< bottom edge of the visible range
    double valueMax = 3.0;
    double bandX0 = 0.0; ///< time of the band's first corner
    double bandY0 = 0.0; ///< value of the band's first corner
    double bandX1 = 0.0;
    double bandY1 = 0.0;
    double zoomThreshold = usualThreshold; ///< smallest side of a rubber band, as a share of the visible side
    double limitTimeMin = -1.0;
    double limitTimeMax = 10.0;
    double limitValueMin = -100000000.0;
    double limitValueMax = 100000000.0;
    bool bandValid = false;  ///< the last band test accepted the band
    bool bandActive = false; ///< a band is open; it shows while this or `bandValid` holds
    /// Whether each curve has a scale of its own. The visible values are those of the current curve then, and follow it;
    /// the other curves are seen at the same heights of their scales.
    OwnScale ownScale;
    bool dirty = true;  ///< the grid's layout and the curves' polylines are out of date
    Gesture gesture;    ///< what the mouse does between press and release; the canvas begins those at points
    int lastMouseX = 0; ///< of the previous mouse event of a drag
    int lastMouseY = 0;

    /// A view that has no size yet, whatever is passed: the size arrives with the widget's first resize.
    ViewPort(const int& width, const int& height);

    /// Takes the canvas size in pixels; makes the view dirty if it is another size than before.
    void setSize(const int& width, const int& height);

    /// Shows all that the limits allow, or the whole of a scale of its own, counts frames, ends every gesture, closes the band and makes the view
    /// dirty.
    void reset();

    /// The visible range and the canvas size as they are now. Everything here that maps asks it.
    PlaneMapping mapping() const;
    /// The same in device pixels, or in parts of them, `scale` to a pixel.
    PlaneMapping deviceMapping(int scale = 1) const;
    /// The curve of that scale is the current one. The visible values follow, at the same heights: no curve is seen
    /// otherwise, so the view is not made dirty.
    void followScale(const AxisRange& scale);
    /// Takes the visible range of `view`, and makes the view dirty if it is another one.
    void showView(const PlaneMapping& view);
    ViewStep::Limits limits() const;
    /// The value, or the limit next to it.
    double withinLimits(double value) const;
    AxisRange valueLimits() const;
    AxisRange wholeValues() const;

    /// True if the view has width, height and span and all its numbers are finite. Any other view can only
    /// come from a host or from typed limits, or stand before the first resize; painting draws nothing for
    /// it. The mapping is defined for it all the same: what would be a division by zero gives 0.
    bool canShow() const;

    /// Counts frames (true) or time units (false) wherever numbers are shown; makes the view dirty on a
    /// change.
    void setShowFrames(const bool& on);
    bool isShowFrames() const { return showFrames; }
    /// Whether times stand as numbers of frames, which the host's own text replaces.
    bool writesFrames() const { return showFrames && !timeText; }
    /// A time as fields hold it: the number of its frame while those are written.
    double shownTime(double time) const { return writesFrames() ? time * fps : time; }
    /// The time that fields hold as that number; at 0 frames per time unit it is not finite.
    double timeOfShown(double number) const { return writesFrames() ? number / fps : number; }

    /// These only store: the caller sets `dirty`, but for the time line. A limit takes the edge of the visible range with it.
    void setFps(const double& framesPerTimeUnit) { fps = framesPerTimeUnit; }
    void setTimeLine(const double& time) { timeLine = time; }
    void setLimitTimeMin(const double& time) { limitTimeMin = timeMin = time; }
    void setLimitTimeMax(const double& time) { limitTimeMax = timeMax = time; }
    void setLimitValueMin(const double& value) { limitValueMin = valueMin = value; }
    void setLimitValueMax(const double& value) { limitValueMax = valueMax = value; }

    double getFps() const { return fps; }
    double getTimeMin() const { return timeMin; }
    double getTimeMax() const { return timeMax; }
    double getValueMin() const { return valueMin; }
    double getValueMax() const { return valueMax; }

    /// A span of pixels as a span of the plane, not clamped. `pixelToValueDelta` keeps the sign.
    double pixelToTimeDelta(const int& dx) const;
    double pixelToValueDelta(const int& dy) const;

    /// A pixel's place in the plane, clamped to the limits.
    double pixelToTime(const int& x) const;
    double pixelToValue(const int& y) const;

    /// A place in the plane, first clamped to the limits, as a pixel: truncated toward zero and at most
    /// `farthestPixel` (Truncate.h) away from 0. What is outside the view gives a pixel outside the canvas.
    /// Not-a-number gives 0.
    int timeToPixel(const double& t) const;
    int valueToPixel(const double& v) const;

    /// Moves the view by a distance in pixels, through the band and its test without `strict`. A refused move
    /// leaves the view. Does not set `dirty`.
    void panView(const int& dx, const int& dy);

    /// Scales each axis about the place of the last press: by 5 for a drag across the whole canvas. To the
    /// left and down narrows the span (positive dx, negative dy). Goes through `applyBand(true)`.
    void zoomView(const int& dx, const int& dy);

    /// Opens a band at a pixel, and tests it.
    void beginBand(const int& x, const int& y);

    /// Moves the second corner of the band to a pixel, and tests it.
    void extendBand(const int& x, const int& y);

    /// The band test. Opens the band (`bandActive`) and sets `bandValid`: no side may be shorter than 1e-9 or
    /// longer than the limits are apart. With `strict` the corners are first clamped to the limits, and no
    /// side may be shorter than `zoomThreshold` of the visible side, nor than 0.0001 of the sum of its two
    /// coordinates. A comparison with not-a-number refuses nothing.
    void checkBand(bool strict);

    /// Tests the band; if it passes it becomes the visible range and the view dirty. Closes the band.
    void applyBand(bool strict);

    /// Gives the band sorted, then closes it. Leaves the view alone.
    void takeBand(double& timeLow, double& timeHigh, double& valueLow, double& valueHigh);

    /// The band in pixels, for drawing; its numbers are bounded as those of `timeToPixel`.
    QRect bandRect() const;

    /// Ends a gesture at the view and leaves the view as it is.
    void clearDrag();
    /// Takes a gesture at the view back: the view is as it was at the press, the band is closed, and what is
    /// left of the drag does nothing.
    void cancelDrag();

    /// The gestures. Left drags a rubber band, which zooms if Alt is held at the release and else stays open;
    /// Alt and middle pan, the content follows the mouse; Alt and right zoom about the press.
    void mousePress(QMouseEvent* event);
    void mouseMove(QMouseEvent* event);
    void mouseRelease(QMouseEvent* event);
};
