// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/model/SplineBase.h>

#include <QCoreApplication>
#include <QFrame>

/// The small picture of the node page that shows what a point's parameters do to a curve: a hump from 0 up to
/// 1 and down again, whose top takes the parameters, drawn as a row of crosses or as a line. It owns the spline of the
/// hump; the user's curve is never drawn here.
class TcbCurveFrame : public QFrame
{
    Q_DECLARE_TR_FUNCTIONS(TcbCurveFrame)

public:
    explicit TcbCurveFrame(QWidget* parent = nullptr, const QString& name = QString());

    /// The colours of the background, of the crosses and of the one in the middle.
    void setColors(const QColor& background, const QColor& curve, const QColor& middle);
    /// An antialiased line of that width in logical pixels with a point in the middle; 0 for crosses.
    void setLine(double width);
    /// What there must be for a point to be shown. Where there is a line, a text says so instead.
    enum class Missing { Nothing, Point, Curve };
    void setMissing(Missing what);

    /// Gives the top of the hump the tension, continuity, bias, eases, tangents and type of `point`, but not
    /// its time and value. Does not repaint.
    void setFromPoint(const SplineBase::PointInfo* point);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QPointF place(double time) const;
    void drawLine(QPainter& painter) const;
    void drawCrosses(QPainter& painter) const;

    SplineBase previewSpline_;
    double lineWidth_ = 0.0;
    Missing missing_ = Missing::Curve;
    QColor curveColor_;
    QColor middleColor_;
};
