// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/canvas/CanvasFunctionBase.h>
#include <curveeditor/canvas/CanvasSpline.h>
#include <curveeditor/canvas/CurveNodeBase.h>
#include <curveeditor/canvas/DependencyCheck.h>
#include <curveeditor/canvas/MouseState.h>
#include <curveeditor/canvas/ViewPort.h>
#include <curveeditor/model/FunctionFloatBase.h>
#include <curveeditor/model/FunctionParserBase.h>
#include <curveeditor/model/SplineBase.h>

#include <QApplication>
#include <QMenu>
#include <QMessageBox>
#include <QMouseEvent>
#include <QPainter>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

#include <limits>

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

/// A widget with a canvas that hands its events on. One pixel is 0.1 time units and 0.1 value units; time
/// runs from 0 to 20, value from -5 to 5. The host's curves stand in it too.
class CanvasWidget : public QWidget, public ViewPort, public DependencyCheck
{
public:
    struct Curve
    {
        SplineBase spline;
        FunctionFloatBase* expression = nullptr;
        ~Curve() { delete expression; }
    };

    CanvasWidget() : ViewPort(0, 0)
    {
        resize(200, 100);
        setSize(200, 100);
        limitTimeMin = -100.0;
        limitTimeMax = 100.0;
        timeMin = 0.0;
        timeMax = 20.0;
        valueMin = -5.0;
        valueMax = 5.0;
        canvas.setViewport(this);
    }

    bool checkDependencies(const QString&, const QString&, QString& withFunc) override
    {
        withFunc = cycleThrough.isNull() ? withFunc : cycleThrough;
        return !cycleThrough.isNull();
    }

    /// A curve over `text`, or over a spline with points at (5, 0), (10, 0) and (15, 0) if that is empty.
    CurveNodeBase* add(Curve& curve, const QString& name, const std::string& text = {})
    {
        ParseMessage message;
        if (!text.empty())
            curve.expression = FunctionParserBase::instance()->parseString(text, message);
        curve.spline.setTime(curve.spline.modify(0u), 5.0);
        curve.spline.addPoint(10.0, 0.0);
        curve.spline.addPoint(15.0, 0.0);
        return canvas.addCurve(&menu, name, Qt::red, 1.5f, &curve.spline, &curve.expression, minimum,
                               maximum);
    }
    ControlSplineNode& control() { return canvas.currentSpline()->control; }
    QPoint pixel(double time, double value) const { return {timeToPixel(time), valueToPixel(value)}; }
    QImage picture()
    {
        canvas.paint();
        return grab().toImage().convertToFormat(QImage::Format_RGB32);
    }
    QRgb shown(const QPoint& at) { return picture().pixel(at); }

    void drag(const QPoint& from, const QPoint& to, Qt::MouseButton button = Qt::LeftButton,
              Qt::KeyboardModifiers keys = {})
    {
        QTest::mousePress(this, button, {}, from);
        QMouseEvent move(QEvent::MouseMove, to, mapToGlobal(to), Qt::NoButton, button, keys);
        QApplication::sendEvent(this, &move);
        QTest::mouseRelease(this, button, {}, to);
    }

    QMenu menu;
    QString cycleThrough;
    float minimum = -3.0f;
    float maximum = 3.0f;
    bool taken = false; ///< what the last press gave
    CanvasFunctionBase canvas{this, this};

protected:
    void mousePressEvent(QMouseEvent* event) override
    {
        clearDrag();
        taken = canvas.mousePress(event);
        if (!taken)
            ViewPort::mousePress(event);
        canvas.paint();
    }
    void mouseMoveEvent(QMouseEvent* event) override
    {
        if (stateBefore(*event).isEmpty())
            return;
        canvas.mouseMove(event);
        ViewPort::mouseMove(event);
        canvas.paint();
    }
    void mouseReleaseEvent(QMouseEvent* event) override
    {
        ViewPort::mouseRelease(event);
        canvas.mouseRelease(event);
        canvas.paint();
    }
    void mouseDoubleClickEvent(QMouseEvent* event) override { canvas.mouseDoubleClick(event); }
    void keyPressEvent(QKeyEvent* event) override { canvas.keyPress(event); }
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        canvas.showBuffer(&painter);
    }
};

/// Runs `act` inside the next message box, with its text, and closes the box.
template <class Act> void inMessageBox(Act act)
{
    QTimer::singleShot(0, qApp, [act] {
        auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        QVERIFY(box);
        act(box->windowTitle() + QLatin1Char(':') + box->text());
        box->accept();
    });
}
