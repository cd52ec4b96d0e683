// SPDX-License-Identifier: MIT
#pragma once

#include "CurveStore.h"
#include "EditorHost.h"

#include <QPixmap>
#include <QPoint>
#include <QStringList>

/// The sample curves in a visible editor, and the hands of a user at it. The curves that are named are on the canvas;
/// the last one is current. Places are times and values.
class GuideScene
{
public:
    explicit GuideScene(const QStringList& names);

    CurveEditor& editor() { return host_.getEditor(); }
    QWidget& canvas();
    /// Where a place of the plane lies on the canvas.
    QPoint pixel(double time, double value);

    void press(double time, double value);
    void move(double time, double value);
    /// The same, to a pixel of the canvas.
    void moveTo(const QPointF& place);
    /// The mouse comes there, with no button held.
    void hover(double time, double value);
    void drag(double time, double value, double toTime, double toValue);
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    /// A point of the current curve, null if there is none.
    const SplineBase::PointInfo* point(unsigned index);
    /// Clicks a point of the current curve.
    void selectPoint(unsigned index);
    /// Drags the right handle of the selected Bezier point of that index by a distance in values.
    void dragHandle(unsigned index, double value);
    void makeCurrent(const QString& name);
    /// The current curve becomes what a sensor would give of it.
    void takeSamples();
    /// Chooses an entry of the menus.
    void choose(const QString& entry);

    QPixmap wholeEditor();
    QPixmap canvasAlone();
    /// The editor with the dialog that this entry opens, with that tolerance typed in.
    QPixmap withDialog(const QString& entry, const QString& tolerance);

private:
    CurveStore& filledStore();
    Curve* current();

    CurveStore store_;
    EditorHost host_;
    QString current_;
};
