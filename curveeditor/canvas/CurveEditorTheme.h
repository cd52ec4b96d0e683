// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/model/Export.h>

#include <QColor>
#include <QString>

class QPalette;

/// The look of an editor: every colour, width and size of its canvas, and the colours of its fields.
///
/// A plain value. Take a preset, change what you like, and hand it to `CurveEditor::setTheme`:
///
///     CurveEditorTheme theme = CurveEditorTheme::dark();
///     theme.grabDistance = 12; // for hands that need it
///     editor.setTheme(theme);
///
/// Widths and sizes are logical pixels: at a pixel ratio of 2 a line of width 1 covers two device pixels. The editor
/// bounds what it gets: widths to 0.5 to 20, sizes and distances to 1 to 100, shares to 0 to 1, and a number that is not
/// finite becomes the lower bound. An invalid colour is black, if nothing else is said.
struct CURVEEDITOR_EXPORT CurveEditorTheme
{
    /// The form of a marker.
    enum class Shape { Square, Circle, Diamond };

    /// @name Presets
    /// @{

    /// White grid, plain pixels and black points on black: what an editor has whose host sets nothing, and what a
    /// default constructed theme is.
    static CurveEditorTheme described();
    /// Smooth lines on a light, or a dark, canvas. Texts have a contrast of 4.5:1 at least, and curves, markers and
    /// handles 3:1.
    static CurveEditorTheme light();
    static CurveEditorTheme dark();
    /// The same look in the colours of `palette`: its `Base`, `Text` and `Highlight`, made darker or lighter where
    /// they lack contrast. `followsPalette` is set.
    static CurveEditorTheme fromPalette(const QPalette& palette);
    /// @}

    /// The same with its numbers bounded and an opaque canvas.
    CurveEditorTheme bounded() const;

    /// When the palette of the editor changes, it takes `fromPalette` of the new one, which replaces all of this.
    bool followsPalette = false;

    /// @name Canvas
    /// @{

    QColor canvas = QColor(0, 0, 0);        ///< opaque: alpha is taken off
    QColor selection = QColor(20, 10, 105); ///< behind the span of selected points, and in a rubber band
    /// Rubber band and the cross of the last press, both dotted, and the frame of a canvas that has the focus.
    QColor mark = QColor(255, 255, 255);
    QColor hint; ///< what to do on an empty canvas; invalid: nothing is said
    /// @}

    /// @name Grid
    /// @{

    QColor gridLines = QColor(255, 255, 255);
    double gridWidth = 1.0;
    /// If valid, the grid lines stand at 1, 2 or 5 times a power of ten, and lines of this colour between them where
    /// there is room; else at a power of ten, its half, its quarter and so on.
    QColor fineGridLines;
    QColor zeroLines;                          ///< the grid lines at 0; invalid: as `gridLines`
    QColor frameVLine = QColor(220, 255, 255); ///< along the bottom edge
    QColor frameHLine = QColor(220, 255, 255); ///< along the left edge
    double frameWidth = 2.0;                   ///< of both, the outer half of which lies beyond the edge
    QColor labels = QColor(255, 255, 255);
    QString labelFamily = QStringLiteral("Arial"); ///< empty: the font of the application
    double labelPoints = 8.0; ///< size of the labels in points, to 100; below 1: that of the application
    int labelStretch = 87;    ///< per cent of the font's own width, 50 to 200
    /// Each label stands in the middle of its line on the colour of the canvas, and one that would meet an edge or
    /// another one is left out. Else they stand beside their lines, on nothing.
    bool spacesLabels = false;
    QColor timeLine = QColor(220, 255, 255); ///< also of the lines through what a dragged point snaps to
    double timeLineWidth = 2.0;
    bool timeLineBlends =
        true;             ///< the time line is the bitwise OR of its colour and what it covers, inverted
    int timeLineGrip = 0; ///< width of the grip at the foot of the time line, 0 for none
    /// @}

    /// @name Curves
    /// Their colours are the host's.
    /// @{

    bool namesCurves = false; ///< each has its name at the right edge of the canvas
    double curveWidth = 1.0;  ///< of the current curve
    double otherCurveWidth = 1.0;
    double dottedWidth = 1.0; ///< of the dotted lines of curves, outside their points and beyond their bounds
    double otherCurveShare = 0.5; ///< how much of its colour a curve keeps that is not current
    bool smooth = false; ///< lines and markers are antialiased; dotted lines let shine through what is behind
    /// Curves are drawn in other colours where the canvas swallows them or where they can't be told apart. Their hue
    /// stays as far as it can, and their squares in the list have the colour that is drawn.
    bool adaptsCurveColors = false;
    /// @}

    /// @name Points and handles
    /// @{

    QColor controlPoint = QColor(0, 0, 0);           ///< points that are not selected
    QColor controlPointSelected = QColor(255, 0, 0); ///< points that are
    QColor controlPointOutline;                      ///< around both; invalid: none
    QColor guide; ///< the dotted line through a selected point; invalid: as `controlPointSelected`
    Shape pointShape =
        Shape::Square; ///< where `smooth` is set, as the next and the outline; else points are squares
    Shape selectedPointShape = Shape::Square;
    int pointSize = 5;
    int selectedPointSize = 5;
    QColor controller = QColor(255, 255, 220);       ///< tangent handles
    QColor controllerSelected = QColor(255, 0, 220); ///< the one that is dragged
    double handleWidth = 1.0;                        ///< of the line from a point to its handle
    int handleSize = 5;
    int fixedHandleSize = 3;    ///< of handles that can't be dragged
    double handleLength = 45.0; ///< from a point to its handle, for a tangent of plain length
    int grabDistance = 6; ///< a press takes a point or a handle that is nearer, along both axes together
    int handleGrabDistance = 10; ///< the same of the line between two handles, across it
    int curveGrabDistance = 4;   ///< the same of a curve, up and down
    /// @}

    /// @name Panel
    /// @{

    /// Of the menu bar, the list, the pages and the dialogs for numbers; empty: the font of the application. Where the
    /// host has set a font of its own this has no effect.
    QString panelFamily = QStringLiteral("Arial Narrow");
    QColor field = QColor(128, 128, 128); ///< fields of numbers
    QColor fieldText = QColor(0, 0, 0);
    QColor formula = QColor(32, 32, 32); ///< the formula line
    QColor formulaText = QColor(255, 255, 255);
    QColor formulaWarning = QColor(255, 55, 33); ///< the faulty part of a formula
    QColor preview = QColor(192, 192, 192);      ///< the small picture on the node page
    QColor previewCurve = QColor(0, 0, 0);       ///< in it
    QColor previewMiddle = QColor(128, 0, 0);    ///< the middle of that curve
    /// @}
};
