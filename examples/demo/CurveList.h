// SPDX-License-Identifier: MIT
#pragma once

#include <QTreeWidget>

/// The host's own list of its curves: a row for each group, below it a row for each curve. A row is dragged
/// as the full name of its curve, the text that the editor's list and its command line take.
class CurveList : public QTreeWidget
{
    Q_OBJECT

public:
    explicit CurveList(QWidget* parent = nullptr);

    /// Adds a curve to its group, which is added with its first curve.
    void addCurve(const QString& group, const QString& name, const QColor& color);

    /// Group and curve name of a curve's row; both empty for null and for the row of a group.
    struct CurveName
    {
        QString group;
        QString curve;
    };
    static CurveName nameOf(const QTreeWidgetItem* item);

    /// Shows only the curves whose name holds `text`; an empty text shows all.
    void setFilter(const QString& text);

Q_SIGNALS:
    /// The current row was dragged, and somebody took it.
    void dragged();

protected:
    void startDrag(Qt::DropActions actions) override;

private:
    QTreeWidgetItem* groupItem(const QString& group);
};
