// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/canvas/CanvasCursor.h>
#include <curveeditor/canvas/CanvasCurves.h>
#include <curveeditor/canvas/CanvasEdit.h>
#include <curveeditor/canvas/CanvasHands.h>
#include <curveeditor/canvas/CanvasPicture.h>
#include <curveeditor/canvas/CurveColors.h>
#include <curveeditor/canvas/PointMenu.h>
#include <curveeditor/canvas/ViewPort.h>
#include <curveeditor/edit/CurveMark.h>

#include <QObject>

#include <functional>
#include <iosfwd>
#include <memory>
#include <vector>

class ControlSplineNode;
class DependencyCheck;
class FunctionFloatBase;
class ParseMessage;
class QTextStream;

using namespace curveeditor;

/// The controller of the canvas, as one front of three: its `CanvasCurves`, their `CanvasPicture`, and the
/// `CanvasHands` that edit them. The commands on curves are its own.
///
/// It is no widget. Its `QObject` parent is the widget that it paints for and whose events it gets; that
/// widget holds it by value. The viewport and the editor belong to others and outlive it. Positions are logical pixels
/// of the widget, times are time units.
///
/// Every change of a curve goes through `door`, which also leads back: see `CurveEdit`. What it reports, an edit of
/// this canvas or a step of the undo stack, marks the pictures of that curve and of all that read it as stale;
/// nothing else does.
///
/// Whatever reports a change (`CurveNodeBase::curveHasChanged`, `changeCommandLine`) and whatever opens a
/// menu or a message box may run foreign code that removes curves. All operations here allow for that.
class CanvasFunctionBase : public QObject
{
    Q_OBJECT

public:
    /// `parent` is the widget; `editor` answers whether an expression closes a cycle, null means never.
    CanvasFunctionBase(QObject* parent, DependencyCheck* editor);
    ~CanvasFunctionBase() override;

    CanvasCursor cursor; ///< over the widget

    DependencyCheck* getEditor() const { return editor_; }
    ViewPort* getViewport() const { return viewport_; }
    /// The widget on which the curves are seen; null without one.
    QWidget* widget() const;
    /// The door through which the curves are edited.
    CurveEdit& door() { return door_; }
    const CanvasCurves& curves() const { return curves_; }
    CanvasCurves& curves() { return curves_; }
    CanvasHands& hands() { return hands_; }
    CanvasGrid& grid() { return picture_.grid(); }
    /// Stores the viewport; without one nothing is painted, and mouse events do nothing.
    void setViewport(ViewPort* newViewport);

    /// @name The curves
    /// Names are full names and compare exactly. A name that is not found changes nothing.
    /// @{

    /// A new curve, which becomes the current one; or the curve of that name if there is one, unchanged.
    CurveNodeBase* addCurve(QWidget* menu, const QString& name, const QColor& color, float defaultValue,
                            SplineBase* spline, FunctionFloatBase** expression, float minValue,
                            float maxValue);
    /// The first curve of that name; null if there is none.
    CurveNodeBase* findCurve(const QString& name) const { return curves_.find(name); }
    void setCurveColor(const QString& name, const QColor& color);
    void renameCurve(const QString& oldName, const QString& newName);
    /// Deletes the curve; if it was the current one, the first that is left becomes current.
    void removeCurve(const QString& name);
    void removeCurve(CurveNodeBase* curve);
    /// Deletes all curves. Neither paints nor tells anybody.
    void removeAllCurves();
    /// Selections let go of the points that their splines do not hold any more. To be called after the host
    /// has changed splines by itself.
    void dropLostPoints() { curves_.dropLostPoints(); }

    /// Makes a curve of this canvas the current one; null leaves it. Emits `changeCommandLine()` in any case.
    void setCurrentCurve(CurveNodeBase* curve);
    /// Does so for each curve of that name in turn: of several, which renames can leave, the last stays
    /// current.
    void setCurrentCurve(const QString& name);
    /// @}

    /// @name The current curve
    /// Without one these give null, 0, false or an empty text, or do nothing.
    /// @{
    CurveNodeBase* getCurrentCurve() const { return curves_.current(); }
    /// "None" without a current curve.
    QString getCurrentCurveName() const;
    CanvasSpline* currentSpline() const;
    ControlSplineNode* currentControl() const;
    /// Null for a formula too.
    ControlSplineNode* currentSplineControl() const;
    const SplineBase* currentSplineBase() const;
    bool noCurrentCurve() const { return !curves_.current(); }
    bool isCurrentExpression() const;
    QString getCurrentExpressionText() const;
    /// `value` becomes the clamped value at `time`, and the result true.
    bool getCurrentValue(const double& time, double& value) const;
    /// Exactly one point is selected.
    bool hasSinglePoint() const;
    /// A point of the current spline is selected, or with `setEditsAllCurves` one of any.
    bool hasSelectedPoint() const { return curves_.hasSelection(); }
    void setCurrentToSpline(const bool& dropExpression);
    void setCurrentToExpression();
    /// Back to a spline of one point at the default value; the expression is deleted. Reports each curve.
    void resetAllCurves();
    void resetCurrentCurve();

    /// Parses `text` for the current curve. A text that can't be parsed, or that would make the curve depend on
    /// itself, leaves the curve as it is. In the latter case `message` gets code `CyclicDependency` and a span for
    /// each place where its text names the curve that closes the cycle, or for all of it where it does not.
    /// Either fault is told in a box, after which the curve may be gone. One without fault makes the curve an
    /// expression curve and is reported. `message` has the outcome; the result is whether the curve that was
    /// current is still the current one, and is not locked.
    bool parseExpression(const QString& text, ParseMessage& message);
    /// Deletes the expression of the current curve and reports it.
    void deleteExpression() { showSpline(true, CanvasEdit::Told::Targets); }

    /// Writes the current curve as a curve file. Returns false if the stream failed or there is no curve or
    /// no expression to write.
    bool saveCurve(std::ostream& out) const;
    /// Reads a curve file into the current curve and reports the change. Returns false, and changes nothing,
    /// if there is no current curve or the file is not a whole curve. A locked curve stays as it is too, and true
    /// says that the file is not at fault. The colour in the file is not used, no dependency check is run, and the
    /// selection does not outlive it.
    bool loadCurve(std::istream& in);

    /// The behaviour of the spline before its first and after its last point. Paints; reports nothing.
    void setFirstNodeZero() { setFirstType(SplineBase::Zero); }
    void setFirstNodeConstant() { setFirstType(SplineBase::Constant); }
    void setLastNodeZero() { setLastType(SplineBase::Zero); }
    void setLastNodeConstant() { setLastType(SplineBase::Constant); }
    void setLastNodeLoop() { setLastType(SplineBase::Loop); }
    void setLastNodeLoopOffset() { setLastType(SplineBase::LoopOffset); }
    void setLastNodeFollowTangent() { setLastType(SplineBase::FollowTangent); }

    /// Multiplies, or shifts, times and values of the selected points about a place, at first the origin of the plane.
    /// Paints; reports nothing.
    void scaleSelection(const double& timeFactor, const double& valueFactor, double pivotTime = 0.0,
                        double pivotValue = 0.0);
    void panSelection(const double& timeOffset, const double& valueOffset);

    /// For commands that select points: lets them work on each curve in reach, and shows what is selected then.
    using NodeWork = std::function<void(ControlSplineNode&)>;
    void changeSelections(const NodeWork& work);

    /// By order of the host: selects these points of the curve, by their indices, and no other of it. The curve becomes
    /// the current one unless all are edited. Nothing happens if there is no such point, or the user can't select any of it.
    void selectPoints(const QString& name, const std::vector<int>& indices);

    /// The road of every edit that is done at once: ends what is open, edits, tells and paints. The curves, and the
    /// canvas itself, may be gone afterwards. Locked curves are left out; where all are, it is told.
    void edit(const CanvasEdit& edit);
    /// Edits the selected points, and reports it; nothing happens if there are none. The text of
    /// the edit is `one` or `many`, see `CanvasEdit::ofPoints`.
    using PointWork = std::function<void(SplineBase&, const std::vector<PointSerial>&)>;
    void editSelection(const QString& one, const QString& many, const PointWork& work);
    /// Edits the current spline, and reports it; `text` has a place for its name.
    void editSpline(const QString& text, const std::function<void(SplineBase&)>& work);
    /// Gives a curve of this canvas other points and reports it; it is a spline then, and loses the formula that it
    /// showed. Points that can't be a spline's change nothing. `text` has a place for the name.
    void setPoints(CurveNodeBase& curve, const QString& text, std::vector<SplineBase::PointInfo> points);
    /// Times of the first and the last point, lowest and highest value of the points. An expression, or a
    /// spline of fewer than two points, leaves the arguments as they are.
    void getExtent(double& timeFirst, double& timeLast, double& valueLowest, double& valueHighest) const;

    /// A new point of the current curve, if that is a spline; reports it.
    void createPoint(const Gesture::Place& place);
    /// The same at the place of the last press. While the point menu is open over another canvas nothing happens.
    void createNodeAtCursor();
    /// The selected points go. Reports the current curve, whether it had any or not; of one that shows its formula
    /// those of the spline behind it go.
    void deleteSelection();
    /// Whether the points of all splines on the canvas show and can be hit, and a gesture, a band or a command acts
    /// on the selected points of all of them as one step. Else those of the current curve alone do, as at first.
    void setEditsAllCurves(bool on);
    bool editsAllCurves() const { return curves_.editsAll(); }

    /// Ends a drag of points and typing on the node page, as release and leaving do, without a report of
    /// `curveHasChanged`. What hears of them may take curves away, so it comes before all else that edits, opens or
    /// closes curves.
    /// Returns the curves that have changed by what was ended.
    CurveEdit::Curves settle() { return hands_.settle(); }
    /// Ends a drag of points where it is, and reports it: its release will not come, or is no concern of the curves.
    void finishDrag();
    /// Ends that and tells nobody any more. To be called before whom the signals of the undo stack may reach goes.
    void leaveStack();
    /// Takes a gesture back, at points or at the view; what is left of it does nothing. Returns whether there
    /// was one.
    bool cancelGesture() { return hands_.cancel(); }
    /// By order of the host: deletes the expression of that curve, which shows its spline then. No edit, and not
    /// reported. What the curve has retired goes too. Returns false if the curve is not on the canvas.
    bool dropExpression(const QString& name);
    /// @}

    /// Writes all curves, not clamped, at each whole number within the time limits of the viewport as a
    /// sensor data file. Writes nothing and returns false if that are more than
    /// `SensorTable::maximumRows` rows, or without a viewport.
    bool exportSensorData(QTextStream& out) const;

    /// @name The picture
    /// @{

    /// Lets the widget show what has changed, at its next frame. To be called as often as anything changes: the picture
    /// is made once.
    void paint();
    /// Brings the curves' pictures up to date, as a frame does. To be called before anything is hit in them.
    void updateCurves();
    /// Says, in a line at the upper edge, what is worth knowing of a command or a gesture, until the next press of a
    /// button or a key, the next edit, or a step of the undo stack. An empty text says nothing more.
    void tell(const QString& text);
    QString toldText() const { return picture_.line(); }
    QString hint() const { return picture_.hint(); }
    /// For the widget's `paintEvent`: brings the picture up to date and draws it.
    void showBuffer(QPainter* painter);
    /// Takes the size and the pixel ratio of the widget.
    void resizeBuffer() { picture_.resize(); }

    /// Takes the theme, with its numbers bounded, and paints. The colours of the curves follow.
    void setTheme(const CurveEditorTheme& theme);
    /// The theme as it is in effect; the reference stays.
    const CurveEditorTheme& theme() { return picture_.theme(); }
    /// To be told which colours the curves of the host have, whether they are on the canvas or not.
    CurveColors& colors() { return colors_; }

    /// These change the theme; the change shows at the next paint. Curves keep the dimmed colours that they have. All
    /// canvases of the process share the colours of markers and handles until they have a theme of their own.
    void setSelectionColor(const QColor& color) { picture_.setColor(&CurveEditorTheme::selection, color); }
    void setCanvasColor(const QColor& color) { picture_.setColor(&CurveEditorTheme::canvas, color); }
    void setControllerColor(const QColor& color)
    {
        picture_.setSharedColor(&CurveEditorTheme::controller, color);
    }
    void setControllerSelectedColor(const QColor& color)
    {
        picture_.setSharedColor(&CurveEditorTheme::controllerSelected, color);
    }
    void setControlPointColor(const QColor& color)
    {
        picture_.setSharedColor(&CurveEditorTheme::controlPoint, color);
    }
    void setControlPointSelectedColor(const QColor& color)
    {
        picture_.setSharedColor(&CurveEditorTheme::controlPointSelected, color);
    }
    void setFrameFontColor(const QColor& color) { picture_.setColor(&CurveEditorTheme::labels, color); }
    void setFrameHLineColor(const QColor& color) { picture_.setColor(&CurveEditorTheme::frameHLine, color); }
    void setFrameVLineColor(const QColor& color) { picture_.setColor(&CurveEditorTheme::frameVLine, color); }
    void setFrameLinesColor(const QColor& color) { picture_.setColor(&CurveEditorTheme::gridLines, color); }
    void setTimeLineColor(const QColor& color) { picture_.setColor(&CurveEditorTheme::timeLine, color); }

    /// See `CurveEditor`. They paint.
    void setUnderlay(CanvasPainter painter) { picture_.setUnderlay(std::move(painter)); }
    void setOverlay(CanvasPainter painter) { picture_.setOverlay(std::move(painter)); }
    void updateUnderlay() { picture_.updateUnderlay(); }
    /// For the widget's `paintEvent`, while no other painter is at work on it: lets the host paint on top.
    void showOverlay() { picture_.showOverlay(); }

    /// Whether the slope of the current curve is drawn, with a scale of its own, and told where the mouse is; not at first.
    /// It paints.
    void setShowsSpeed(bool on);
    bool showsSpeed() const { return picture_.showsSpeed; }
    /// The mouse is over the canvas at that time, or is not.
    void setMouseTime(std::optional<double> time);

    /// Puts a picture behind the curves, or takes it away. A file that can't be decoded changes nothing and gives false.
    bool loadImage(const QString& fileName) { return picture_.loadImage(fileName); }
    void clearImage() { picture_.clearImage(); }
    /// How much of its colours the picture keeps, 0 to 1, at first 1; the rest is the canvas. It paints.
    void setImageStrength(double share);
    double imageStrength() const { return picture_.imageStrength; }
    /// @}

    /// @name The view
    /// They paint. The limits of the view hold; without a curve nothing happens.
    /// @{

    /// Shows the points of all splines, and the values of all curves between them.
    void showAllCurves();
    /// Shows the selected points, or else the current curve.
    void showSelection();
    /// Whether each curve is seen in a scale of its own, see `OwnScale`; at first all share one. The scale of a spline is
    /// that of its values between its first and last point, the scale of a formula that of its visible values. Scales
    /// stay as they are while an edit is open or a hand is at work.
    void setOwnScale(bool on);
    /// How much longer a span of values of that spline is than one of the current curve that is seen as high; 1.0 where all
    /// share one scale.
    double shareOfScale(const SplineBase& spline) const;
    bool hasOwnScale() const { return viewport_ && viewport_->ownScale.isOn(); }
    /// @}

    /// @name The user's marks in the list
    /// @{

    /// Puts a mark of the user's on a curve of this canvas, or takes it away: no edit, so undo does not know of it. What the
    /// host has decided stays, which `tell` says. Nothing happens to null.
    void setMark(CurveNodeBase* curve, CurveMark mark, bool on);
    /// The host hides other curves.
    void followMarks();
    /// @}

    /// @name Events of the widget
    /// The widget calls `paint` after each; the point menu alone paints before it opens.
    /// @{

    /// Returns true if the press is taken, so that the viewport must not see it.
    bool mousePress(QMouseEvent* event)
    {
        menu_->follow();
        tell({});
        return hands_.press(*event);
    }
    void mouseDoubleClick(QMouseEvent* event) { hands_.doubleClick(*event); }
    void mouseRelease(QMouseEvent* event) { hands_.release(*event); }
    /// To be called while a button or a modifier key is held.
    void mouseMove(QMouseEvent* event) { hands_.move(*event); }
    /// Escape takes a drag back. Delete removes the selected points. The right and left arrows go to the next and previous point; where
    /// nothing is selected, the right one begins at the first point and the left one at the last.
    /// With nothing selected an arrow begins only if `isFocused`.
    void keyPress(QKeyEvent* event, bool isFocused = true) { hands_.key(*event, isFocused); }
    /// The menu that a right press opens, at the selected point or in the middle of the canvas. Returns when it has
    /// closed.
    void openPointMenuByKey();
    /// The same at a position of the screen.
    void openPointMenu(const QPoint& globalPosition) { menu_->open(globalPosition); }
    PointMenu& pointMenu() { return *menu_; }
    /// @}

public Q_SLOTS:
    /// The current curve was edited by others: paints and reports it.
    void currentNodeHasChanged();
    /// The curve of that selection was edited on the node page: paints and reports it. Null, for a curve that is
    /// gone, does nothing.
    void nodeHasChanged(const ControlSplineNode* control);
    /// Shows a mark at the place of the last press, or takes it away, at the next paint.
    void showMark();
    void hideMark() { picture_.mark.reset(); }
    /// The selected points of every curve of this canvas become of that `SplineBase::NodeType`, or go.
    void setSelectedType(int type);
    void deleteSelectedNodes();

Q_SIGNALS:
    /// The current curve, or the expression that is shown for it, may be another one now.
    void changeCommandLine();
    /// The selection, or a point that is selected, has changed by other means than an event of the widget;
    /// `shows` if the user is to see it.
    void selectionChanged(bool shows);
    /// That text is said on the canvas now; empty for none.
    void told(const QString& text);
    /// Curves are marked otherwise in the list, or seen otherwise by that.
    void marksChanged();
    /// `paint` was called, when all else about what has changed was told: view and selection may be others now. Foreign
    /// code may run here, as in the reports.
    void frameAsked();

private:
    using Nodes = CanvasCurves::Nodes;

    CurveNodeBase* curveToSelectIn(const QString& name, const std::vector<int>& indices) const;
    void takeReport(const EditReport& report);
    void showStep(const EditReport& report);
    void open(const CanvasEdit& edit, Nodes& targets);
    void moveSelection(const QString& one, const QString& many, const PointWork& work);
    void editByMenu(const QString& text, const CanvasEdit::Work& work);
    void showSpline(bool dropsExpression, CanvasEdit::Told told);
    static CanvasEdit resetOf(const CanvasEdit::Text& text);
    void editBehaviour(const QString& text, void (*set)(SplineBase&, int), int type);
    void setFirstType(int type);
    void setLastType(int type);
    void freezeScales();
    void tellFollowedView();
    static QString textOf(CurveMark mark, bool isHosts);
    void showCurves(const Nodes& curves);
    void showRanges(const AxisRange& times, const AxisRange& values);

    DependencyCheck* editor_;
    ViewPort* viewport_ = nullptr;
    CurveEdit door_;
    CanvasCurves curves_;
    CanvasHands hands_;
    CanvasPicture picture_;
    CurveColors colors_;
    std::unique_ptr<PointMenu> menu_;
    AxisRange shownValues_;       ///< at the last frame
    bool isTakingReport_ = false; ///< others have not heard of it yet
};
