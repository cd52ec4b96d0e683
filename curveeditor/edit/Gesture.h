// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/edit/PlaneMapping.h>
#include <curveeditor/edit/PointDrag.h>
#include <curveeditor/edit/PointTransform.h>

#include <QPoint>
#include <QPointF>

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

namespace curveeditor {

class EditedCurve;

/// What the hand does, as one state for all that it does on a canvas: which keys it holds, what its last press was, and
/// the gesture between a press of the mouse and its release, at points, at the view or at the time line. A value.
class Gesture
{
public:
    using Place = PointDrag::Place;
    enum class Axis { Both, Time, Value };
    enum class Kind {
        Idle,
        Points,   ///< selected points move with the mouse, or are scaled by it
        Tangent,  ///< a handle of a point follows the mouse
        Box,      ///< selected points are scaled or moved by a frame about them
        Band,     ///< a rubber band grows
        Pan,      ///< the view moves
        Zoom,     ///< the view is scaled
        TimeLine, ///< the time line follows the mouse
        Stroke,   ///< the mouse draws a curve
        Cancelled ///< taken back: what is left until the release does nothing
    };

    /// Keys that are held down.
    struct Keys
    {
        bool space = false;     ///< a drag moves the view
        bool band = false;      ///< a drag adds a band to what is selected, wherever it begins
        bool draw = false;      ///< a drag draws into the current curve
        Axis axis = Axis::Both; ///< along which points move
    };
    /// The last press of the widget, until the next one.
    struct Press
    {
        std::optional<QPoint> pixel; ///< none before the first one
        bool picksCurve = false;     ///< it has made another curve current
        bool bandSelects = false;    ///< the release of a rubber band selects the points in it ...
        bool bandAdds = false;       ///< ... and leaves the others selected
        std::optional<PointSerial>
            click; ///< what is selected alone if the release is at the same pixel; 0 for nothing
    };
    /// A drag of the view by Space or the middle button, until that button is released.
    struct ViewDrag
    {
        Qt::MouseButton button = Qt::NoButton;
        QPointF last; ///< where the mouse was
    };
    /// The points of one curve that are dragged.
    struct Drag
    {
        std::shared_ptr<EditedCurve> curve;
        PointDrag points;
    };
    /// A frame about points, which is pulled at a grip.
    struct BoxDrag
    {
        struct Part
        {
            std::shared_ptr<EditedCurve> curve;
            PointTransform points;
        };
        PlaneFrame frame; ///< at the press
        PlaneFrame::Grip grip;
        Place anchor; ///< of the press
        std::vector<Part> parts;
        PlaneTransform last; ///< that was possible
    };

    Keys keys;
    Press press;
    ViewDrag viewDrag;
    Place place; ///< of the last press, or move with a button or modifier held

    Kind kind() const { return kind_; }
    /// Anything is going on, from the press to the release.
    bool isBusy() const { return kind_ != Kind::Idle || viewDrag.button != Qt::NoButton; }
    bool isAtPoints() const { return kind_ == Kind::Points || kind_ == Kind::Tangent || kind_ == Kind::Box; }
    /// Whether a drag of points or a stroke goes on, which is an edit.
    bool holdsEdit() const { return isAtPoints() || kind_ == Kind::Stroke; }
    bool isAtView() const { return kind_ == Kind::Band || kind_ == Kind::Pan || kind_ == Kind::Zoom; }

    /// Begins a drag of points within the edit of that number.
    void beginAtPoints(std::uint64_t edit, std::vector<Drag> drags);
    /// Begins to pull at a frame about points within the edit of that number.
    void beginAtBox(std::uint64_t edit, BoxDrag box);
    /// Begins a gesture at the view, which shows `start` now.
    void beginAtView(Kind kind, const PlaneMapping& start);
    /// Begins a drag of the time line, which stands at `start` now.
    void beginAtTimeLine(double start);
    /// Begins a stroke by hand.
    void beginStroke(std::uint64_t edit);
    void end();
    void cancel();

    /// The view at the begin of a gesture at it.
    const PlaneMapping& start() const { return start_; }
    /// Where the time line was, while it is dragged.
    double timeLine() const { return timeLine_; }

    std::uint64_t edit() const { return edit_; }
    std::vector<Drag>& drags() { return drags_; }
    BoxDrag& box() { return box_; }
    /// Those of which points are dragged.
    std::vector<std::shared_ptr<EditedCurve>> curves() const;
    /// The points of that spline that are dragged.
    std::vector<PointSerial> moving(const SplineBase* spline) const;
    /// Where the dragged point that is seen nearest to `anchor`, the place of the press in `view`, was seen then.
    Place grabbed(const Place& anchor, const PlaneMapping& view) const;

private:
    Kind kind_ = Kind::Idle;
    PlaneMapping start_;
    double timeLine_ = 0.0;
    std::uint64_t edit_ = 0;
    std::vector<Drag> drags_;
    BoxDrag box_;
};

} // namespace curveeditor
