// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/canvas/ControlSplineNode.h>
#include <curveeditor/edit/CurveMark.h>
#include <curveeditor/edit/ViewStep.h>

#include <QColor>
#include <QObject>
#include <QString>

#include <iosfwd>
#include <memory>
#include <optional>
#include <utility>

class CanvasExpression;
class CanvasFunctionBase;
class CanvasSpline;
class FunctionFloatBase;
class ParseMessage;
class QAction;
class QWidget;
class SplineBase;
class ViewPort;

namespace curveeditor {
class CurvePainter;
struct DeviceLine;
} // namespace curveeditor

using namespace curveeditor;

/// One curve on the canvas: a named function of time that is either a spline or an expression. It joins the
/// host's spline and the host's expression holder to the pictures of both kinds, to an entry of the "Curves"
/// menu and to a clamp range.
///
/// The canvas owns it. Spline and holder are the host's and outlive it, so a curve that leaves the canvas and
/// comes back keeps its content. Both pictures exist whatever the kind is. It writes nothing into the curve
/// itself: that is done by its `EditedCurve`, while the canvas holds the door for edits open. Times are in time
/// units, values in value units.
///
/// `curveHasChanged` may run a host's slot that takes this very curve off the canvas: whoever causes it must
/// not touch the curve afterwards without a guard (`QPointer`).
class CurveNodeBase : public QObject
{
    Q_OBJECT

public:
    /// Adds an entry of the curve's name to `menu`, whose entries are in ascending order, in an exclusive group
    /// that belongs to that menu. A filled holder makes it an expression curve. `menu` may be null; `canvas`, `menu`, `spline` and `expression` are
    /// not owned. Tells nobody: it is for the canvas to make the curve its current one.
    CurveNodeBase(CanvasFunctionBase* canvas, QWidget* menu, const QString& name, const QColor& color,
                  float defaultValue, SplineBase* spline, FunctionFloatBase** expression, float minValue,
                  float maxValue);
    ~CurveNodeBase() override;

    bool changed = true; ///< The picture is out of date; set by the canvas, cleared by `update`.

    /// The picture is out of date at these times alone.
    void noteEdited(const TimeInterval& times) { edited_.unite(times); }

    /// The full name: group, ".", curve.
    QString getName() const { return curve_->name; }
    void setName(const QString& newName);

    CurveKind kind() const { return curve_->kind(); }
    /// Whether the canvas shows it: the host does not hide it, and the user wants to see it.
    bool isShown() const;
    /// What the user has marked in the list, and the host has decided there.
    MarkState mark(CurveMark mark) const;
    /// Writes the user's mark. It is for the canvas to do what follows.
    void setMark(CurveMark mark, bool on);
    bool isBesideSolo = false; ///< Others are seen alone; written by `CanvasCurves`.
    bool isSpline() const { return kind() == CurveKind::Spline; }
    /// The content, for edits.
    const std::shared_ptr<EditedCurve>& curve() const { return curve_; }
    const SplineBase* getSpline() const { return curve_->spline(); }
    /// What the holder holds; null if it is empty.
    FunctionFloatBase* getExpression() const { return curve_->expression(); }
    CanvasSpline* getCanvasSpline() const { return canvasSpline_.get(); }
    CanvasExpression* getCanvasExpression() const { return canvasExpression_.get(); }
    /// The selected points.
    ControlSplineNode& control() { return control_; }
    const ControlSplineNode& control() const { return control_; }
    /// What a reset leaves as the value of the one point.
    double defaultValue() const { return defaultValue_; }

    /// Checks the curve's entry in the menu; the exclusive group unchecks the others.
    void toggleAction();

    /// The host's colour of the curve. It is dimmed toward `background` when the curve is not current, and while it is
    /// locked.
    void setColor(const QColor& color, const QColor& background);
    QColor getColor() const { return color_; }
    /// In which the curve is drawn when it is current.
    QColor lineColor() const;
    /// The nearest in which its name can be read on the canvas; found when it is asked for first.
    QColor nameColor();

    /// The value that is not clamped. An expression reads the variables `t` and `f`, which the caller has
    /// set; `time` plays no part then. An empty holder gives 0.0.
    double getValue(const double& time) const;
    /// The value within the clamp range, of an expression with `t` and `f` set for `time` and given back. An
    /// empty holder gives 0.0. The lower bound is tested first; not-a-number stays what it is.
    double getClampedValue(const double& time) const;

    /// The slope of the clamped value toward later times, in value per time: 0.0 where a clamp bites, exact for a spline, and
    /// for an expression the difference across `step`, which is greater than 0.
    double slope(double time, double step) const;

    /// Whether the curve, not clamped, comes less than `distance` pixels above or below that pixel or one beside it, or
    /// jumps there past it.
    bool passes(const QPoint& pixel, const ViewPort& viewport, int distance) const;

    /// Widens `values` by what the picture shows between these times: the clamped curve, and the points.
    void includeValues(const AxisRange& times, AxisRange& values) const;

    /// `value` within the clamp range.
    double clamped(double value) const;

    /// The values that fill the canvas where each curve has a scale of its own.
    const AxisRange& scale() const { return scale_; }
    /// How the curve is seen in `view`, which is one of the viewport's.
    PlaneMapping planeIn(const PlaneMapping& view) const;
    /// In logical pixels.
    PlaneMapping mapping() const;
    /// The value of the current curve that is seen as high as this one, and the other way.
    double heightOf(double value) const;
    double valueAt(double height) const;
    /// The curve has these values now, so its scale follows, unless scales are frozen.
    void updateScale(const AxisRange& values);

    /// Rebuilds the picture of a spline if the curve is changed or the view dirty; where there is neither a spline nor a
    /// formula to show, it becomes an empty one.
    void update(ViewPort* viewport);
    /// Whether the curve shows an expression whose line is to be made anew, for the same reasons.
    bool needsSamples(const ViewPort& viewport) const;
    /// Takes the line that the `ExpressionSampler` has made. The curve is not changed any more then.
    void setExpressionLine(DeviceLine line);
    /// Paints the picture.
    void draw(CurvePainter& curves) const;
    /// Paints its line alone, in the colour that it has as the current curve.
    void drawLine(CurvePainter& curves, double width) const;
    /// Another number for each picture that the curve had, and never that of another curve.
    quint64 pictureNumber() const { return pictureNumber_; }

    /// Asks the editor whether the curve would depend on itself with that expression. If it would, returns true, and
    /// `withFunc` is the full name of the curve that closes the cycle.
    bool findsCycle(FunctionFloatBase& expression, QString& withFunc) const;

    /// Emits `curveHasChanged` with the first and the last part of the name, which dots divide; a name
    /// without a dot gives itself twice. Nothing while the curve is locked.
    void emitCurveChanged();
    /// These two parts.
    static std::pair<QString, QString> reportedNames(const QString& fullName);

    /// Writes the kind and the body. Returns false if the stream failed, or, with nothing written, if there
    /// is no expression to be written.
    bool write(std::ostream& out) const;

public Q_SLOTS:
    /// Makes this curve the current one of its canvas.
    void setThisNode();

Q_SIGNALS:
    /// The user has changed the curve.
    void curveHasChanged(QString& nodeName, QString& curveName);

private:
    int rowOf(double value, const ViewPort& viewport) const;
    bool jumpsPast(const QPoint& pixel, const ViewPort& viewport, int distance) const;
    bool jumpsAgainPast(const QPoint& pixel, const ViewPort& viewport, int distance) const;
    bool isStale(const ViewPort& viewport) const;
    void noteScale(const ViewPort& viewport);
    bool updatesScale(const ViewPort& viewport) const;
    void renewPictureNumber();
    std::optional<Selection> shownSelection() const;
    double framesPerTimeUnit() const;

    CanvasFunctionBase* canvas_;
    std::shared_ptr<EditedCurve> curve_;
    QAction* action_; ///< owned
    std::unique_ptr<CanvasSpline> canvasSpline_;
    std::unique_ptr<CanvasExpression> canvasExpression_;
    ControlSplineNode control_;
    QColor nameColor_; ///< invalid until it is found
    QColor color_;
    float defaultValue_;
    float minValue_;
    float maxValue_;
    AxisRange scale_{0.0, 1.0};
    bool isScaleStale_ = true;
    bool isSolo_ = false; ///< these two marks go with the curve when it leaves the canvas
    bool isHidden_ = false;
    quint64 pictureNumber_ = 0;
    TimeInterval edited_;                     ///< since the last `update`
    std::optional<Selection> drawnSelection_; ///< in the picture of that number
};
