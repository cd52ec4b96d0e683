// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/canvas/BackgroundImage.h>
#include <curveeditor/canvas/CanvasGrid.h>
#include <curveeditor/canvas/CanvasLayer.h>
#include <curveeditor/canvas/CurveEditorTheme.h>
#include <curveeditor/canvas/SpeedLine.h>
#include <curveeditor/edit/Gesture.h>

#include <QCoreApplication>

#include <memory>
#include <optional>
#include <utility>

class QPainter;
class QWidget;
class SplineBase;
class ViewPort;

namespace curveeditor {

class CanvasCurves;
class CurvePainter;
class DragGuide;

/// What is seen on a canvas: the look, the grid, the background image and the curves, as one picture that is brought up
/// to date where `ViewPort::dirty`, `CurveNodeBase::changed` and what changes here ask for it. It changes no curve and
/// reports nothing. Widget, curves, guide and view are others' and outlive it.
class CanvasPicture
{
    Q_DECLARE_TR_FUNCTIONS(CanvasPicture)

public:
    /// `widget` may be null; nothing is painted then.
    CanvasPicture(QWidget* widget, const CanvasCurves& curves, const DragGuide& guide);
    ~CanvasPicture();

    /// Without one nothing but the background is painted.
    void setViewport(ViewPort* viewport) { viewport_ = viewport; }

    /// See `CanvasFunctionBase`.
    void paint();
    void updateCurves();
    void show(QPainter* painter);
    void resize();

    const CurveEditorTheme& theme();
    void setTheme(const CurveEditorTheme& theme);
    /// A host has given a theme.
    bool hasOwnTheme() const { return hasOwnTheme_; }
    void setColor(QColor CurveEditorTheme::*part, const QColor& color);
    /// The same for all canvases that have no theme of their own.
    void setSharedColor(QColor CurveEditorTheme::*part, const QColor& color);

    bool loadImage(const QString& fileName);
    void clearImage();

    /// See `CurveEditor`.
    void setUnderlay(CanvasPainter painter);
    void setOverlay(CanvasPainter painter);
    void updateUnderlay();
    /// Lets the host paint on the widget, within its paint event, when all else is painted.
    void showOverlay();

    /// Laid out for the view as it is.
    CanvasGrid& grid();
    std::optional<Gesture::Place> mark; ///< where the point menu is open
    bool showsSpeed = false;            ///< the slope of the current curve
    double imageStrength = 1.0;         ///< how much of its colours the background image keeps
    std::optional<double> mouseTime;    ///< whose slope is told then
    QString modeLine;                   ///< what is said at the upper edge; empty for nothing
    /// That, behind what is on, and before what is told of the place of the mouse.
    QString line() const;
    QString hint() const;

private:
    /// What an image of the underlay was painted for.
    struct Ground
    {
        PlaneMapping plane;
        double pixelRatio = 0.0;
        quint64 look = 0;
        quint64 content = 0;

        bool operator==(const Ground& other) const = default;
    };
    using SharedPainter = std::shared_ptr<const CanvasPainter>; ///< null for none
    static SharedPainter shared(CanvasPainter painter);
    bool callHost(SharedPainter& painter, QPainter& on);
    bool isLaidOut() const;
    void paintUnderlay();
    void drawFront(CurvePainter& curves) const;
    void drawSnapMark(QPainter& painter) const;
    void drawHint(QPainter& painter) const;
    bool isOutOfReach(const SplineBase& spline) const;
    void drawModeLine(QPainter& painter) const;
    QColor textColor() const;
    QString slopeText() const;
    void drawSpeed(QPainter& painter) const;
    void drawText(QPainter& painter, const QString& text, int middle, const QColor& color) const;
    CanvasLayer::Backdrop backdrop() const;
    CanvasLayer::Curves curvesBehindCurrent() const;
    std::optional<std::pair<int, int>> selectedColumns() const;

    QWidget* widget_;
    const CanvasCurves& curves_;
    const DragGuide& guide_;
    ViewPort* viewport_ = nullptr;
    CurveEditorTheme theme_;
    bool hasOwnTheme_ = false;
    quint64 look_ = 0; ///< counts the changes of the theme
    quint64 view_ = 0; ///< counts those of the view
    std::unique_ptr<CanvasGrid> grid_;
    PlaneMapping laidOut_; ///< what grid and image were laid out for last
    std::unique_ptr<BackgroundImage> image_;
    SharedPainter underlay_;
    quint64 content_ = 0; ///< counts the changes of what the underlay shows, and of the picture below it
    Ground ground_;       ///< for which it was painted last ...
    quint64 grounds_ = 0; ///< ... and how often it was
    SharedPainter overlay_;
    bool isHostAtWork_ = false; ///< in one of the two
    SpeedLine speed_;
    CanvasLayer layer_;
};

} // namespace curveeditor
