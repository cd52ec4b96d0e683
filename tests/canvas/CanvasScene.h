// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/canvas/CanvasFunctionBase.h>
#include <curveeditor/canvas/CurveNodeBase.h>
#include <support/Formulas.h>
#include <support/Test.h>

/// What `draw` paints on the background, at that many device pixels for each logical one.
inline QImage drawn(const QSize& size, const std::function<void(QPainter&)>& draw,
                    const QColor& background = Qt::black, double ratio = 1.0)
{
    QImage image(size * ratio, QImage::Format_RGB32);
    image.setDevicePixelRatio(ratio);
    image.fill(background);
    QPainter painter(&image);
    draw(painter);
    return image;
}

/// Where the colour is; with `Qt::MaskInColor` where others are.
inline QRegion placesOf(const QColor& color, const QImage& image, Qt::MaskMode mode = Qt::MaskOutColor)
{
    return QRegion(QBitmap::fromImage(image.createMaskFromColor(color.rgb(), mode)));
}

/// A host's curve with points at (5, 0), (10, 0) and (15, 0).
struct HostCurve
{
    HostCurve()
    {
        spline.setTime(spline.modify(0u), 5.0);
        spline.addPoint(10.0, 0.0);
        spline.addPoint(15.0, 0.0);
    }
    ~HostCurve() { delete expression; }

    SplineBase spline;
    FunctionFloatBase* expression = nullptr;
};

/// A canvas of 200 x 100 pixels. One pixel is 0.1 time units and 0.1 value units; time runs from 0 to 20,
/// value from -5 to 5.
struct CanvasScene
{
    CanvasScene()
    {
        widget.resize(200, 100);
        view.setSize(200, 100);
        setTimes(0.0, 20.0);
        view.limitTimeMax = 100.0;
        view.valueMin = -5.0;
        view.valueMax = 5.0;
        canvas.setViewport(&view);
        widget.show();
    }
    void setTimes(double low, double high)
    {
        view.setLimitTimeMin(low);
        view.setLimitTimeMax(high);
        view.dirty = true;
    }
    /// Puts the curve on the canvas, with `text` as its expression unless that is empty.
    CurveNodeBase* add(HostCurve& curve, const QString& name, const QString& text = {}, float lowest = -3.0f,
                       float highest = 3.0f)
    {
        if (!text.isEmpty())
            curve.expression = parsed(text.toStdString()).release();
        return canvas.addCurve(&menu, name, Qt::red, 1.5f, &curve.spline, &curve.expression, lowest, highest);
    }
    QImage picture()
    {
        canvas.paint();
        return shown();
    }
    QImage shown()
    {
        return drawn(widget.size(), [this](QPainter& painter) { canvas.showBuffer(&painter); });
    }

    QMenu menu;
    QWidget widget;
    ViewPort view{0, 0};
    CanvasFunctionBase canvas{&widget, nullptr};
};
