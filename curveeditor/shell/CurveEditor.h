// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/canvas/CurveEditorTheme.h>
#include <curveeditor/edit/PlaneMapping.h>
#include <curveeditor/model/Export.h>
#include <curveeditor/shell/CurveChange.h>
#include <curveeditor/shell/CurveEditorDialogBase.h>
#include <curveeditor/shell/CurveOptions.h>
#include <curveeditor/shell/EditorPart.h>

#include <QByteArray>
#include <QColor>
#include <QList>
#include <QPair>
#include <QPointF>
#include <QRectF>
#include <QString>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

class FunctionFloatBase;
class ParserVarMapper;
class QAction;
class QMenu;
class QTextStream;
class QTreeWidgetItem;
class QUndoStack;
class SplineBase;

/// A group, and a curve in it.
using CurveName = QPair<QString, QString>;

/// A dialog in which a user draws and adjusts the curves of a host. It is the one class that a host talks to.
///
/// A host names each curve by a group and a curve name and hands over a spline and the address of a variable
/// for an expression. A curve has three degrees of presence: registered by `addCurve`, on the canvas after
/// `setDefaultSelected` or a drop of its full name (group, ".", curve) on the list, and current, which is the
/// one curve that mouse, keys and the expression page act on.
///
///     SplineBase lens;                      // the host owns its curves ...
///     FunctionFloatBase* formula = nullptr; // ... and the variables of their expressions
///     CurveEditor editor;
///     QObject::connect(&editor, &CurveEditor::curveEdited,
///                      [&](const CurveChange& change) { /* read lens or formula */ });
///     editor.setTimeRange(0.0, 20.0);
///     editor.addCurve("Camera", "Lens", Qt::yellow, 35.0F, &lens, &formula, 10.0F, 200.0F);
///     editor.setDefaultSelected("Camera", "Lens");
///     editor.show();
///
/// **Ownership.** Splines and expression variables belong to the host and must outlive their registration:
/// delete the dialog first, then the curves. The editor changes splines in place and never deletes one. The
/// object in an expression variable is shared: the editor deletes and replaces it when the user enters,
/// deletes or resets an expression, and the host deletes what is left in the end. An object whose text can't be
/// parsed again is kept for undo instead; see `deleteExpression`. The dialog itself belongs
/// to its parent, or to whoever made it. It may be deleted at any time outside of its own events, also while a
/// menu, a message box or a dialog of its is open, which goes with it; and by `deleteLater` from a slot of its
/// signals too. Where that slot runs a loop of its own, the deletion waits until the slot has returned.
///
/// **Order of calls.** Construct and connect; set colours, frames per second, ranges and font; `addCurve`;
/// `setDefaultSelected`; show. While the dialog lives: `setTimeLine` when the host's clock moves,
/// `updateCurves` after each change that the host makes to a spline or an expression, the renames and
/// removals as its own objects change, `deleteExpression` when it drops an expression.
///
/// **Cost.** Opening and closing grow with the number of curves, a change of the view with those on the canvas, a
/// drag, undo and redo with the points of the edited curve and the formulas that read it: each in proportion. Formulas
/// that read each other in a chain cost its length, unless they close a circle or are very long together.
/// `docs/embedding.md` has a table.
///
/// **Units.** Times are in time units everywhere; a frame number is a time multiplied by the frames per
/// second. Names compare exactly. A name that is not known, a null list item, a number that is not finite or
/// a missing current curve make a call return without effect. Everything happens on the GUI thread; signals
/// are synchronous.
class CURVEEDITOR_EXPORT CurveEditor : public CurveEditorDialogBase
{
    Q_OBJECT

public:
    /// One group of curves.
    struct MainNodeStruct
    {
        MainNodeStruct() = default;
        MainNodeStruct(const MainNodeStruct&) = delete;
        MainNodeStruct& operator=(const MainNodeStruct&) = delete;
        ~MainNodeStruct();

        QTreeWidgetItem* item = nullptr; ///< a row for the group's pixmap; this dialog makes none
        QMenu* menu = nullptr;           ///< submenu of the "D vars" menu; deleted with the record
        int menuId = 0;                  ///< the id in the data of the submenu's entry
        QString name;                    ///< the group, as the host gave it
    };

    /// One registered curve.
    struct NodeStruct
    {
        NodeStruct() = default;
        NodeStruct(const NodeStruct&) = delete;
        NodeStruct& operator=(const NodeStruct&) = delete;
        ~NodeStruct();

        SplineBase* spline = nullptr;           ///< the host's
        FunctionFloatBase** function = nullptr; ///< the host's variable for the expression
        QTreeWidgetItem* checkItem = nullptr;   ///< a row in a check list; this dialog makes none
        QTreeWidgetItem* editingItem = nullptr; ///< the row of the editing list; deleted with the record
        QAction* action = nullptr;              ///< the entry in the "D vars" menu; deleted with the record
        QColor color;                           ///< of the curve on the canvas and of its row
        float defaultValue = 0.0F;              ///< what a reset leaves
        float minValue = 0.0F;                  ///< lower bound of the curve's value
        float maxValue = 0.0F;                  ///< upper bound of the curve's value
        QString name;                           ///< the full name: group, ".", curve
        QString nodeName;                       ///< the group, as the host gave it
        QString curveName;                      ///< the curve, as the host gave it
    };

    /// Builds the dialog: not modal, without any curve, frames shown, 10 frames per time unit, times -1.0 to
    /// 10.0 and values -3.0 to 3.0 in view. The parent, if any, owns it.
    explicit CurveEditor(QWidget* parent = nullptr);
    /// Leaves all splines and expressions as they are.
    ~CurveEditor() override;

    // Curves and groups

    /// Registers a curve and offers it as a variable in the "D vars" menu; the first curve of a group makes
    /// the group. A full name that is known already, or a null `spline` or `function`, changes nothing.
    /// `defaultValue` is what a reset leaves; `minValue` and `maxValue` clamp the curve's value, all in value
    /// units. The curve is an expression curve if `*function` is not null when it comes onto the canvas.
    void addCurve(const QString& nodeName, const QString& curveName, const QColor& color, float defaultValue,
                  SplineBase* spline, FunctionFloatBase** function, float minValue, float maxValue);
    /// Takes a curve off the canvas and out of the register. Its group stays, its data too.
    void removeCurve(const QString& nodeName, const QString& curveName);
    /// Gives a curve another name within its group. Expressions that read it under the old name stay as they
    /// are. A name that another curve has changes nothing.
    void renameCurve(const QString& nodeName, const QString& curveName, const QString& newCurveName);
    /// Removes a group and every curve whose full name begins with it and a dot.
    void removeNode(const QString& nodeName);
    /// Renames a group and every curve whose full name begins with it and a dot; nothing if that gives one of
    /// them a name that is taken.
    void renameNode(const QString& nodeName, const QString& newNodeName);
    /// @{
    /// What holds for a registered curve, on the canvas or off it, until it is removed; a rename keeps it. A curve
    /// that is not known has the options of a new one. Options to which no value keeps, as with ends in the wrong
    /// order or without a multiple of the step between them, and those with a number that is not finite or a step
    /// below 0.0 change nothing. A lock ends first what the user is at with that curve, as
    /// release and leaving do. While it holds `curveHasChanged` comes for undo, redo, `edit` and `apply` alone.
    void setCurveOptions(const QString& group, const QString& curve, const CurveOptions& options);
    CurveOptions curveOptions(const QString& group, const QString& curve) const;
    /// @}
    /// Lets the host have the last word on each step of an edit: `mend` gets the spline of the curve after each step of a
    /// drag, each number typed and each tolerance tried out, and before the edit is done, one by `edit` included. It
    /// writes what follows from that, as slopes from neighbours, or times on whole frames. What it writes belongs to the
    /// edit: to its entry, to `CurveChange::diff`, to the times that `curveEdited` tells, and to what Escape takes back. It
    /// keeps to the values and types of `CurveOptions`, and points that are out of order then are put in order.
    ///
    /// Each step of a drag, and each number typed, begins without what `mend` wrote in the one before: a point that was
    /// pushed away comes back when what pushed it does. `mend` is not called for undo, redo and `apply`, nor where the
    /// spline has not changed, and may be called twice for the same state. What the host writes to the spline in other
    /// ways during such an edit is part of it.
    ///
    /// Null takes it away. A `mend` that throws has written nothing, and the step stays as it was made. It must not delete
    /// the editor; what it calls here edits nothing. The constraint is that of the name, and ends with the curve's removal.
    void setConstraint(const QString& group, const QString& curve, std::function<void(SplineBase&)> mend);
    /// Gives a registered curve another colour, as the user can. A colour that is not valid changes nothing.
    void setCurveColor(const QString& group, const QString& curve, const QColor& color);
    /// Gives a group's row a picture. This dialog shows no such row, so nothing is seen.
    void setMainNodePixmap(const QString& nodeName, const QPixmap& pixmap);

    /// @{
    /// The first record of that group name, full name or lower variable name (the full name with its ASCII
    /// letters in lower case and "_" for each blank, as `CurveVariables` stores it); null if there is none.
    /// The record stays the editor's.
    MainNodeStruct* searchMainNode(const QString& name);
    NodeStruct* searchAllNodeList(const QString& name);
    NodeStruct* searchAllNodeListCurveName(const QString& name);
    /// @}

    /// Puts a registered curve on the canvas and makes it current. A curve that is there already is made
    /// current only; the host then hears of its changes once more for each such call, until it leaves the
    /// canvas.
    void setDefaultSelected(const QString& nodeName, const QString& curveName);
    /// Takes all curves off the canvas. They stay registered.
    void cleanSelecteds();
    /// Shows no row of the editing list as selected.
    void setAllNodeListUnselected();

    /// Draws all curves anew. To be called after each change that the host makes by itself; points may be
    /// gone then.
    void updateCurves();

    /// Lets the host give the times of the grid's vertical lines, as of the bars of a tempo map: `lines` gets the first
    /// and the last time in sight, in time units, and gives those between them. Points snap to them where they snap to
    /// grid lines. It is called when the view changes, and not for each frame; when its own data change, call `updateCurves`.
    ///
    /// In what it gives the order does not matter. Times that are not finite or not in sight are left out, and so are
    /// those less than four pixels behind another one, so give fewer where the span is long; for one that throws
    /// there are none. It must change no curve and not delete the editor. Null brings back lines at even distances.
    void setTimeGrid(std::function<std::vector<double>(double first, double last)> lines);
    /// Whether wheel, touch pad, Space and the middle button move and zoom the view, as they do at first. Switched off,
    /// these events are the host's, and so are the keys B, D, X and Y: none of them adds a band to the selection, draws,
    /// or holds an axis of a drag any more. The keys Home, F, + and - stay, and so do the drags with Alt.
    void setViewGestures(bool on);
    /// Whether the user may move the time line: by its foot at the lower edge of the canvas, and by the keys comma and
    /// period. `timeLineDragged` tells where it is then. At first only the host moves it.
    void setTimeLineDraggable(bool on);
    /// While the dialog is visible: the curve becomes a spline curve, the object in its variable is deleted, and
    /// the variable is null then. `function` is not read, and may be null; a curve that is not on the canvas is
    /// left alone. While the dialog is hidden: the object in `*function` is deleted, whatever the names are, and
    /// `*function` is null then; a null `function` changes nothing. In any case the objects that the curve had before
    /// and that are kept for undo are deleted too, and the entries that would bring them back go: afterwards the host
    /// may free what its own classes of expressions read.
    void deleteExpression(const QString& nodeName, const QString& curveName, FunctionFloatBase** function);
    /// Takes what the formulas that are entered, loaded and taken back in this editor read, apart from those of other
    /// editors: two documents then may have curves of the same names. It stays the host's. Null, as at first, and its end
    /// bring back what `FunctionParserBase::setVarMapper` took. A formula keeps the mapper that it was parsed with, in
    /// undo too; parse those of the host with `FunctionParserBase::parseString(text, message, variables)`.
    void setVariables(ParserVarMapper* variables);
    /// Whether the user may make points of the type `SplineBase::Hold`, at curves whose `CurveOptions::types` say nothing
    /// else. At first not: editors of before it can't read the files. Points that are there show and are kept anyway.
    void setHoldOffered(bool on);
    /// Writes the table of all curves on the canvas: a banner, then one row for each whole time within the
    /// range given by `setTimeRange`, one column for each curve. `out` must be open for writing. Writes
    /// nothing and returns false if the range is too long for a table.
    bool exportSensorData(QTextStream& out) const;

    // The view
    //
    // The user may give each curve a scale of its own. All values here are those of the current curve then, as are those
    // of the mapping that painters get, and the view changes with that curve and its scale.

    /// The part of the plane that is seen: the first time and the lowest value are `x` and `y`, its spans are
    /// `width` and `height`, in time and value units.
    QRectF view() const;
    /// Shows that part of the plane, also before the dialog is shown. It is never refused as a whole: it goes as far
    /// as the limits of times and values let it, as a zoom does, and no side gets too short to be shown. A
    /// rectangle without width or height, or with a number that is not finite, changes nothing. `setTimeRange`,
    /// `setMinValue` and `setMaxValue` set the limits, and show all of them.
    void setView(const QRectF& plane);
    /// @{
    /// Where a place, a time and a value, lies on the canvas, and the other way, within the view or not. Pixels are
    /// logical, not rounded, and count from the upper left corner of the canvas, which is the child widget with the
    /// object name `functionEdit`. All is 0 where the canvas has no size yet, or there is nothing between the
    /// limits; what is not a number stays so.
    QPointF toCanvas(const QPointF& place) const;
    QPointF fromCanvas(const QPointF& pixel) const;
    /// @}

    /// Something of the host's on the canvas, such as a waveform: below the grid and the curves, and above a picture that
    /// the user has loaded. It is kept as an image, so `painter` is called only for a frame in which the view, the size
    /// of the canvas, its pixel ratio, the theme or that picture is another one than in the last, and after
    /// `updateUnderlay`; an edit of a curve costs what it costs without. Null takes it away.
    ///
    /// The painter draws in logical pixels of the canvas, to which it is clipped, and is as a new one for the canvas; the
    /// mapping tells where times and values lie. Where nothing can be shown it is not called. It may call every
    /// operation here, but what it changes shows at the next frame, and it must not run an event loop. One that
    /// changes the view each time is called in each frame. One that throws is not called any more, but the one that
    /// it has put in its place is; a line on the standard error output says so.
    void setUnderlay(CanvasPainter painter);
    /// The same on top of all else, in each frame: it should be quick. A frame comes when anything on the
    /// canvas has changed, and after `updateCurves`.
    void setOverlay(CanvasPainter painter);
    /// The underlay has other content.
    void updateUnderlay();

    /// How the user has arranged the editor: splitters, the page in front, snapping, whether all curves are edited
    /// at once, handles are kept in line and frames are shown, and the view. Neither curves nor what a host decides. For the settings
    /// of the host; versioned.
    QByteArray saveState() const;
    /// Takes what `saveState` gave, of this editor or of another one. The view goes as far as the limits let it.
    /// Bytes that are not whole, of another origin or of a version that this one does not know give false and change
    /// nothing.
    bool restoreState(const QByteArray& state);

    // What the user works on

    /// The curves on the canvas, from back to front.
    QList<CurveName> openCurves() const;
    /// Both names are empty if there is none.
    CurveName currentCurve() const;
    /// The indices of the selected points of that curve, ascending; none of one that is not on the canvas.
    std::vector<int> selectedPoints(const QString& group, const QString& curve) const;
    /// Selects these points of that curve and no other ones of it, in any order. The curve becomes the current one,
    /// unless the user edits all curves at once. What the user is at, a drag say, is committed first.
    /// An index that no point has changes nothing, and neither does a curve that is not on the canvas, is
    /// hidden, or shows its formula. Points of a locked curve can be selected.
    void selectPoints(const QString& group, const QString& curve, const std::vector<int>& indices);

    // Undo

    /// Where the edits of the user are kept, one entry for each: the dialog's own stack, which holds the last 1000,
    /// or the one that `setUndoStack` took. Another limit is set on it while it is empty.
    QUndoStack* undoStack() const;
    /// Puts the edits from now on on a stack of the host, which stays the host's; several editors and the host's
    /// own commands may share one. Null, and the end of that stack, bring back the dialog's own, empty. Entries of
    /// a curve that is removed go, and so do those of one that the host has changed since: nothing that the host
    /// did is overwritten. After the end of the dialog its entries do nothing. What the user is at, a drag say, is
    /// committed first, to the stack before.
    void setUndoStack(QUndoStack* stack);

    // Parts

    /// Takes a part away, or brings it back; at first all are there. An area that is hidden leaves its room to the
    /// canvas, and its commands keep their keys. A subject that is off has neither commands nor keys, and a dialog of it
    /// that is open is left as by Escape; calls of the host work all the same. Brought back, it shows all its actions,
    /// those that the host had hidden too. What has the focus in a part that goes is left, and what is under way with it
    /// done. May be called at any time; each part goes and comes by itself, so the page of formulas shows where `Pages`,
    /// `ExpressionPage` and `Formulas` all are. The dialog takes at least 640 x 480 pixels, 400 x 200 without the pages,
    /// and 200 x 120 where the canvas is alone, in usual fonts.
    void setPartShown(EditorPart part, bool shown);
    bool isPartShown(EditorPart part) const;
    /// A window that nobody gave a size begins with room for all it holds.
    void setVisible(bool visible) override;

    // Commands

    /// The action of the editor with that object name, to be triggered, shown elsewhere too, or given another key;
    /// null for a name that is not known. `docs/guide/actions.md` lists all; an action of the host is never found, whatever
    /// its name. The action stays the editor's. Hidden by `setVisible(false)` it is in no menu, and its key does nothing,
    /// but for undo and redo. Those of the menu over points are shared by all editors of the process.
    QAction* action(const QString& objectName) const;
    /// @{
    /// Puts an action of the host at the end of the menu over points, the menu "Edit" or the menu of the list, which
    /// are about the current curve. It stays the host's, and leaves the menu when it is deleted. Its keys act wherever in
    /// the editor the focus is, if the editor has no other use for them, and no field has. Null, and an action that
    /// is there already, change nothing. A slot of `triggered` deletes the editor by `deleteLater` only.
    void addPointAction(QAction* action);
    void addEditAction(QAction* action);
    void addListAction(QAction* action);
    /// @}

    // Edits of the host

    /// Lets `work` edit the spline of a registered curve as a step of the user does: with one entry on the undo stack,
    /// named `text`, one `curveEdited` of cause `Host`, and one `curveHasChanged`; none of them if nothing changed. The
    /// curve may be locked, hidden or off the canvas; of one that shows a formula the spline beneath is edited. Points
    /// that are written keep to the values and types of `CurveOptions`. What the user is at with that spline, a drag
    /// say, is committed first; what goes on elsewhere goes on.
    ///
    /// An edit with the same `merge` as that of the entry on top of the stack, and not 0, joins it, also one of another
    /// curve: a recording is one entry then. `work` is called at once and may take the curve away, which leaves
    /// no entry. What it throws passes on, and the curve is as it was before.
    ///
    /// Returns whether `work` was called: not without one, for a curve that is not known, or within the `work` of
    /// another edit, in which undo, redo and commands of the user do nothing either. Nor within `undo` and `redo` of a
    /// command of the host on that stack, as far as the editor makes the step. It can't know of steps that the host makes by
    /// itself, so never call it there: an entry that is put on a stack deletes the commands that could be redone, the one
    /// at work too. To make one step of an edit and other commands use `beginMacro` and `endMacro` of the stack.
    bool edit(const QString& group, const QString& curve, const QString& text,
              const std::function<void(SplineBase&)>& work, int merge = 0);

    /// Whether edits are kept on the undo stack, as they are at first. A host that has commands of its own, of whatever
    /// kind, switches it off: the entries that are there go and no new ones come, and where the user asks for a step
    /// `undoRequested` or `redoRequested` is emitted instead. What the user is at is committed first. The host keeps
    /// `CurveChange::diff` of each `Commit` of cause `Edit` or `Host`, and steps by `apply` in the slots of these signals. Its
    /// own buttons for undo and redo call `undo` and `redo` here: they commit first what the user types, which is a command
    /// of the host too. What `edit` gets as `text` and `merge` stands in `CurveChange`; joining edits is the host's then.
    ///
    /// On a stack that is shared, entries below those of others can't go at once: they are obsolete, and leave the stack
    /// when a step reaches them.
    void setKeepsHistory(bool on);
    /// Does `diff` to a registered curve, or if not `forward` takes it back, as a step of the undo stack does: a lock does
    /// not keep it, the points that it changed become selected, and `curveEdited` tells it with cause `Redo` or `Undo`,
    /// and `curveHasChanged` too. What the user is at with that spline is committed first. While the undo stack is kept
    /// its entries of that curve go, as after a change by the host.
    ///
    /// Returns false, and changes nothing, for a curve that is not known, within the `work` of `edit`, and where what
    /// `diff` changes is not as it has left it, or its formula can't be parsed any more.
    bool apply(const QString& group, const QString& curve, const CurveDiff& diff, bool forward);

    // Time, frames, font

    /// Frames per time unit.
    double getFps() const;
    /// @{
    /// Whether horizontal numbers show as frames, or as time.
    bool isModeFrames() const;
    bool isModeTime() const;
    /// @}
    /// @{
    /// How times, in time units, and values are written: at the grid, in the read-outs, in the fields of points, in their
    /// table, and for assistive tools. While one is set, times are written by it and not as frames; the grid's lines stay
    /// where they are. What is typed there is read by `read`, else as a plain number of time or value units. Null, as at
    /// first, gives back the numbers. What a function throws, and not-a-number, count as no answer.
    void setTimeText(std::function<QString(double)> write,
                     std::function<std::optional<double>(const QString&)> read = {});
    void setValueText(std::function<QString(double)> write,
                      std::function<std::optional<double>(const QString&)> read = {});
    /// @}
    /// Gives the dialog, all in it and its menus a font. The numbers of the grid, the menu over points and the
    /// boxes that it opens keep theirs.
    virtual void setFont(const QFont& font);

    // The look

    /// Takes all colours, widths and sizes from `theme`, and paints. An editor that never got one looks as
    /// `CurveEditorTheme::described()`, in which points that are not selected are black as the canvas is.
    void setTheme(const CurveEditorTheme& theme);
    /// What the editor looks like now, with all that the setters below have changed.
    CurveEditorTheme theme() const;

    /// @name Single colours of the theme
    /// A change shows at the next paint. The four of points and handles hold for all editors of the process that never
    /// got a theme.
    /// @{
    void setCanvasColor(const QColor& color);               ///< behind everything; alpha is taken off
    void setSelectionColor(const QColor& color);            ///< of the band over the selected points
    void setControllerColor(const QColor& color);           ///< of handles
    void setControllerSelectedColor(const QColor& color);   ///< of the handles of selected points
    void setControlPointColor(const QColor& color);         ///< of points
    void setControlPointSelectedColor(const QColor& color); ///< of selected points
    void setFrameFontColor(const QColor& color);            ///< of the numbers at the grid
    void setFrameLinesColor(const QColor& color);           ///< of the grid
    void setFrameHLineColor(const QColor& color);           ///< of the line along the left edge
    void setFrameVLineColor(const QColor& color);           ///< of the line along the bottom edge
    void setTimeLineColor(const QColor& color);             ///< of the time line and its number
    /// @}

public Q_SLOTS:
    // Host settings

    /// @{
    /// Moves the time line, by a time or by a frame number. Mind the type: `setTimeLine(5)` is frame 5, and
    /// `setTimeLine(5.0)` the time 5.
    void setTimeLine(const double& val);
    void setTimeLine(int val);
    /// @}
    /// Frames per time unit. Zero and less are stored, and show numbers of no use; they do no harm.
    void setFps(const double& val);
    /// The limits of time; the view shows all of it. Where one of them is not finite neither is taken. Limits that leave no
    /// range show an empty canvas, until others follow or "Reset View" mends them.
    void setTimeRange(const double& timeMin, const double& timeMax);
    /// @{
    /// The limits of the value, and the edge of the view with it.
    void setMinValue(const double& val);
    void setMaxValue(const double& val);
    /// @}

    /// @{
    /// Whether horizontal numbers show as time, or as frames.
    void setShowTime();
    void setShowFrames();
    /// @}

    // Read-outs; times in time units

    /// Writes a place of the plane into the node page.
    void setPosInfo(const double& valueX, const double& valueY);
    /// Writes the place of the mouse and the value of the curve there into the read-outs.
    void setFuncPosInfo(const double& valueX, const double& valueY, const double& val);

    // For a host's own list of curves, whose rows are named by the full names below a row for each group.
    // Null and top level rows are passed over.

    /// @{
    /// Takes the signal of such a list, and does nothing.
    void pressedItem(QTreeWidgetItem* who);
    void pressedSpaceItem(QTreeWidgetItem* who);
    /// @}
    /// Asks for the colour of the curve that the row names.
    void rightButtonPressedItem(QTreeWidgetItem* who, const QPoint& point, int column);
    /// Puts the curve that the row names on the canvas.
    void doubleClickedItem(QTreeWidgetItem* who, const QPoint& point, int column);

    // The editing list

    /// Does nothing: a press selects, which is what counts.
    void pressedEditingItem(QTreeWidgetItem* who);
    /// Opens the menu of the row at `point`, in coordinates of the screen.
    void rightButtonPressedEditingItem(QTreeWidgetItem* who, const QPoint& point, int column);
    /// Makes the curve of a selected row current. The current curve's row stays selected where none is.
    void selectionChangedEditingItem(QTreeWidgetItem* who);
    /// As `setDefaultSelected`, with the full name. Any text may come here.
    void setEditingNode(const QString& name);
    /// Asks for the colour of the row that the menu was opened on.
    void slotMenuEditingNodeColor();
    /// Takes the curve of the row that the menu was opened on off the canvas.
    void slotMenuEditingNodeRemove();
    /// Takes the curve of that row off the canvas; it stays registered.
    void slotRemoveFromEditing(QTreeWidgetItem* item);
    /// Lets hosts hear `curveHasChanged` with these names, whether there is such a curve or not.
    void emitSignalCurveHasChanged(QString& nodeName, QString& curveName);

    // The expression page; the ids are those in the data of the menus' entries, others have no effect

    /// Parses the command line for the current curve.
    void executeCommand();
    /// @{
    /// Puts the function of that entry around the text of the command line.
    void insertUnaryFunc(int id);
    void insertBinaryFunc(int id);
    void insertTernaryFunc(int id);
    /// @}
    /// @{
    /// Inserts the variable of that entry where the cursor is.
    void insertIVarFunc(int id);
    void insertDVarFunc(int id);
    /// @}
    /// @{
    /// Shows the current curve as its expression, or as its spline while its expression is kept.
    void setExpression();
    void setTcb();
    /// @}
    /// Deletes the expression of the current curve and tells the host.
    void deleteCurveClicked();
    /// Brings the dialog in line with the current curve.
    void refreshCommandLine();
    /// To be called when the message about a fault in the text has been closed: marks the fault in the command line.
    void errorClosed();
    /// Follows the expressions of the registered curves from that of `current` on, and returns true if one of them reads
    /// `firstFunc`. Both are full names with "_" for each blank and ASCII letters in lower case. On true `withFunc` becomes
    /// the full name of the curve through which the cycle runs; on false it stays as it is.
    bool checkDependencies(const QString& firstFunc, const QString& current, QString& withFunc);

    // Commands of the "Edit" menu

    /// @{
    /// Take the last edit of the undo stack back, or do it again. The points that it changed become selected, and
    /// its curve the current one if it is on the canvas. During a drag of points `undo` takes the drag back. After
    /// `setKeepsHistory(false)` they commit what the user types and ask the host for the step.
    void undo();
    void redo();
    /// @}

    // Commands of the "File" menu

    /// @{
    /// Every curve on the canvas, or the current one, loses its expression and goes back to one point.
    void resetAllCheckedF();
    void resetSelectedF();
    /// @}
    /// Asks for a file and reads the current curve from it. A file that is no whole curve is refused with a
    /// message and changes nothing.
    void loadFile();
    /// Asks for a file and writes the current curve to it, as a whole or, with a message, not at all.
    void saveFile();

    // Commands of the "Options" menu and of the view buttons

    /// Asks for the range of times and values.
    void setRange();
    /// @{
    /// Asks for factors or offsets of time and value for the selected points.
    void setScaleSelection();
    void setPanSelection();
    /// @}
    /// Shows all that the limits allow, and counts frames from then on, on the axis, in the menu and in the field of
    /// the node page with its label. Limits that can't be shown are mended first: put in order if they are
    /// reversed, else replaced by those of a new editor.
    void resetViewport();
    /// @{
    /// Shows all of the current spline: its times, its values with a tenth of their span on each side, or both.
    void completeViewport();
    void completeViewportH();
    void completeViewportV();
    /// @}
    /// Asks for a picture and shows it behind the curves. A file that can't be read as one is told in a box, and the
    /// picture that is there stays.
    void loadImage();
    /// Shows no picture behind the curves any more.
    void clearImage();
    /// How much of its colours such a picture keeps, 0 to 1, at first 1; the rest is the colour of the canvas.
    /// Not-a-number counts as 0.
    void setImageStrength(double share);
    /// @{
    /// How the current curve goes on before its first point.
    void setFirstNodeZero();
    void setFirstNodeConstant();
    /// @}
    /// @{
    /// How the current curve goes on behind its last point, as `SplineBase::Behaviour` says.
    void setLastNodeZero();
    void setLastNodeConstant();
    void setLastNodeLoop();
    void setLastNodeLoopOffset();
    void setLastNodeFollowTangent();
    /// @}
    /// @{
    /// The same by the number of the `SplineBase::Behaviour`; numbers without a meaning there have no effect.
    void changeNodeFirstType(int index);
    void changeNodeLastType(int index);
    /// @}

protected Q_SLOTS:
    /// Sets the texts of menus and tips too.
    void languageChange() override;

Q_SIGNALS:
    /// The dialog got a close event. It closes without a question and saves nothing. Mind that `reject`, `accept`
    /// and `hide`, called by a host, give none.
    void closed();
    /// The user has edited a curve on the canvas, or selected points of it; so it may come more often than
    /// the curve changes. When the slot runs, spline and variable hold the change. The slot may call every
    /// operation here, and remove the curve too. The names are the parts of the full name before its first
    /// and behind its last dot.
    void curveHasChanged(QString& nodeName, QString& curveName);

    /// A curve has changed, and when: at each step of a drag, once when an edit is done, when it is taken back or
    /// done again. Not for selections, nor for calls of the host but `edit` and `apply`. The slot may call every
    /// operation here.
    void curveEdited(const CurveChange& change);
    /// @{
    /// The user asks for a step back or forth, by key or menu, and the editor keeps no history; see `setKeepsHistory`.
    void undoRequested();
    void redoRequested();
    /// @}
    /// @{
    /// A curve came onto the canvas, or left it.
    void curveOpened(const QString& nodeName, const QString& curveName);
    void curveClosed(const QString& nodeName, const QString& curveName);
    /// @}
    /// Another curve is the current one now; both names are empty if there is none.
    void currentCurveChanged(const QString& nodeName, const QString& curveName);
    /// A curve has another colour now, which the user or `setCurveColor` gave it. The slot may call every operation here.
    void curveColorChanged(const QString& group, const QString& curve, const QColor& color);
    /// `view` gives another rectangle: after each step of the user, and within the host's call that made it so.
    /// A new size of the canvas alone is no change of it. The slot may call every operation here.
    void viewChanged();
    /// Other points of a curve on the canvas are selected now, by the user or by the host; `selectedPoints` tells which. It
    /// comes after the reports of the edit that has selected or removed them. A selected point that gets another index
    /// is the same point. The slot may call every operation here.
    void pointSelectionChanged();
    /// The user has moved the time line, see `setTimeLineDraggable`. The slot may set it to another time.
    void timeLineDragged(double time);

protected:
    /// Keeps the undo and redo keys, Delete and Escape from shortcuts of the window in which the dialog is docked,
    /// Escape where it means something smaller than the dialog.
    bool event(QEvent* event) override;
    /// Takes the theme of a new palette, where the theme follows it.
    void changeEvent(QEvent* event) override;
    /// Takes undo and redo keys from widgets that would search for a letter, and the wheel from boxes that lack the
    /// focus.
    bool eventFilter(QObject* watched, QEvent* event) override;
    /// Keys that no field took act on the canvas, or undo and redo. Escape takes back a drag, leaves a field, clears the
    /// filter, or clears the selection, the first of these that is there, else it closes a dialog that is a window.
    void keyPressEvent(QKeyEvent* event) override;
    /// Emits `closed`.
    void closeEvent(QCloseEvent* event) override;
    /// Makes the canvas a stop of the Tab key, between the pages and the node page.
    bool focusNextPrevChild(bool next) override;

private:
    struct Private;
    void fitToFont() override;

    std::unique_ptr<Private> d_;
};
