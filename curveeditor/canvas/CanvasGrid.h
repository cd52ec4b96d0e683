// SPDX-License-Identifier: MIT
#pragma once

#include <QPolygon>
#include <QRect>
#include <QStringList>

#include <functional>
#include <vector>

class QPainter;
class QWidget;
class ViewPort;
struct CurveEditorTheme;

/// What lies behind the curves: lines at even distances with a number at each, a line along the bottom and
/// the left edge, and the time line. The spacing follows from the visible range, but for vertical lines whose times the
/// host gives.
///
/// Positions on the horizontal axis are frames (time × `fps`) while the view counts frames, else time units;
/// on the vertical axis they are values. The canvas owns the grid, calls `layout` when the view is dirty
/// and `placeTimeLine` before each `draw`.
class CanvasGrid
{
public:
    QWidget* widget; ///< the canvas, not owned; its size in logical pixels is the length of the lines
    QPolygon lines;  ///< two points for each line: `countX` vertical lines from left to right, then `countY`
                     ///< horizontal ones from the bottom up
    double stepY = 0.0;             ///< distance of the horizontal lines in axis units
    double firstY = 0.0;            ///< axis position of the first horizontal line
    std::vector<double> positionsX; ///< axis positions of the vertical lines
    int countX = 0;                 ///< number of vertical lines
    int countY = 0;
    int zeroIndexX = -1; ///< index of the vertical line at axis position 0, or -1
    int zeroIndexY = -1;
    int timeLineX = -1;          ///< pixel column of the time line
    bool offersTimeLine = false; ///< the user may drag the time line
    /// Gives the times of the vertical lines in a span, which are the host's; null for those at even distances.
    std::function<std::vector<double>(double first, double last)> hostTimes;
    /// Lines stand at 1, 2 or 5 times a power of ten, and finer ones between them where there is room.
    bool hasFineLines = false;
    int gridWidth = 0; ///< pixel size of the view at the last `layout`
    int gridHeight = 0;

    explicit CanvasGrid(QWidget* widget);

    /// Chooses the lines for the view: at least 5 in each direction, at multiples of a power of ten or of its
    /// half, quarter and so on, or with `hasFineLines` of its half, fifth and so on. An axis that has no finite span above zero (a view without span, `fps` not
    /// above zero while frames are shown) gets no line; a view that can't be shown gets nothing at all.
    /// `hostTimes` is called once for each layout. Times that are not finite or not in the view are left out, and so are
    /// those that come too close to the one before; none is left where it throws.
    void layout(ViewPort* view);
    /// Places the time line, which moves without the view.
    void placeTimeLine(const ViewPort& view);
    /// Where the lines are: times in time units, values in value units.
    const std::vector<double>& times() const { return times_; }
    std::vector<double> values() const;

    /// Draws lines, edges, time line and labels as laid out, behind the curves, whose points no label may hide; nothing
    /// for a view that can't be shown. Leaves the painter's background mode opaque: dotted lines that follow fill their
    /// gaps.
    void draw(QPainter* painter, const CurveEditorTheme& theme) const;
    /// Draws the grip of the time line, which lies over the curves.
    void drawGrip(QPainter* painter, const CurveEditorTheme& theme) const;
    /// The grip of the time line, in pixels of the canvas; empty if the theme has none, the time line is out of sight or
    /// it can't be dragged.
    QRect timeLineGrip(const CurveEditorTheme& theme) const;

private:
    void layOutTimes(const ViewPort& view, const std::vector<double>& ofHost);
    std::vector<double> timesOfHost(const ViewPort& view);
    void writeLabels(const ViewPort& view);
    void drawLines(QPainter* painter, const CurveEditorTheme& theme) const;
    void drawLabels(QPainter* painter, const CurveEditorTheme& theme) const;
    void drawSpacedLabels(QPainter* painter, const CurveEditorTheme& theme) const;
    bool showsTimeLine() const { return timeLineX >= 0 && timeLineX <= gridWidth; }

    std::vector<double> times_; ///< of the vertical lines
    std::vector<int> fineColumns_;
    std::vector<int> fineRows_;
    bool isAskingHost_ = false;
    bool isTimeWritten_ = false; ///< by the host
    QStringList timeLabels_;     ///< one for each vertical line
    QStringList valueLabels_;
};
