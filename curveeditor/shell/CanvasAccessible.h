// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/edit/Selection.h>

#include <QAccessibleWidget>
#include <QCoreApplication>

#include <unordered_map>

class FunctionEditor;

namespace curveeditor {

/// What assistive technology knows of the canvas: the current curve, and the points of it as children in order of
/// time, each with its place, whether it is selected, and the actions "Select" and "Delete".
///
/// Qt makes it when it is asked for the canvas, and owns it.
class CanvasAccessible : public QAccessibleWidget
{
    Q_DECLARE_TR_FUNCTIONS(CanvasAccessible)

public:
    explicit CanvasAccessible(FunctionEditor* canvas);
    ~CanvasAccessible() override;
    Q_DISABLE_COPY_MOVE(CanvasAccessible)

    /// Lets Qt make them; more than one call does nothing more.
    static void install();

    int childCount() const override;
    QAccessibleInterface* child(int index) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;
    QAccessibleInterface* childAt(int x, int y) const override;
    QAccessibleInterface* focusChild() const override;
    QString text(QAccessible::Text kind) const override;

private:
    QAccessibleInterface* childOf(PointSerial point) const;
    QString contents() const;
    void forgetLostPoints() const;

    FunctionEditor* canvas_;
    mutable std::unordered_map<PointSerial, QAccessible::Id> points_; ///< those that were asked for
};

/// Tells assistive technology which point is selected, when that point has moved, and when the canvas shows another
/// curve, or another number of points is there or selected, or says something at its edge.
///
/// A child of the canvas.
class CanvasAnnouncer : public QObject
{
    Q_OBJECT

public:
    explicit CanvasAnnouncer(FunctionEditor* canvas);

Q_SIGNALS:
    /// That event was sent for the canvas or a point of that name. Qt passes it on only to technology that listens.
    void announced(QAccessible::Event kind, const QString& name);

private:
    void announce();
    void send(QAccessible::Event kind, QAccessibleInterface* about);

    FunctionEditor* canvas_;
    PointSerial toldPoint_ = 0;
    QString toldPlace_;
    QString toldCanvas_;
};

} // namespace curveeditor
