// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/canvas/ControlSplineNode.h>
#include <curveeditor/files/AxisText.h>

#include <QAbstractTableModel>
#include <QLocale>
#include <QPointer>

#include <functional>
#include <vector>

class ViewPort;

namespace curveeditor {

/// The points of one curve as the rows of a table, ascending in time, and their fields as its columns.
///
/// Numbers are read from the spline when they are asked for. Six digits of them are shown; to be edited, and in the
/// tool tip, they stand in the shortest form that reads back to the same bits. What is typed is read as `NumberText`
/// says. Times and values that the host writes stand as it does, to be edited too if it reads them. The host may do anything to spline and curve between two
/// calls: edits name the points by their serials, and pass over those that are gone. After a change by others
/// `show` brings the rows up to date.
class PointTableModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column {
        Time,
        Value,
        Type,
        Incoming,
        Outgoing,
        Tension,
        Continuity,
        Bias,
        EaseTo,
        EaseFrom,
        ColumnCount
    };

    /// Times are in the unit of `view`, which must outlive the model.
    explicit PointTableModel(const ViewPort& view, QObject* parent = nullptr);

    /// Shows the points of `control` as they are now, none for null. Linear in the points. Returns whether the
    /// rows are others than before; the model is reset then.
    bool show(ControlSplineNode* control);
    ControlSplineNode* control() const { return control_; }

    /// The row of the point; -1 if it is not shown.
    int rowOf(PointSerial point) const;
    PointSerial pointIn(int row) const;

    /// Gives the field in the column of `cell` to the points of all `rows`, as one edit. A text that is no finite
    /// number, or no type, changes nothing and gives false; so does an edit that leaves all as it was. The text that
    /// `cell` has to be edited stands for that very number. Parameters and ease are kept within -10 ... 10 and -1 ... 1.
    bool setText(const QModelIndex& cell, const QString& text, const std::vector<int>& rows);
    /// Why that text can't be taken, for the user; empty if it can.
    QString faultOf(const QModelIndex& cell, const QString& text) const;
    /// To be called when the language has changed: all views take their texts anew.
    void translate();
    /// Whose decimal sign numbers show; that of `QLocale()` at first.
    void setLocale(const QLocale& locale);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& cell, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex& cell) const override;
    bool setData(const QModelIndex& cell, const QVariant& value, int role = Qt::EditRole) override;

Q_SIGNALS:
    /// The user changed the curve of that selection; null if it is gone by now.
    void edited(ControlSplineNode* control);

private:
    const SplineBase::PointInfo* pointOf(const QModelIndex& cell) const;
    static Qt::Alignment sideOf(int column);
    QString textOf(const SplineBase::PointInfo& point, int column, int role) const;
    double shownNumber(const SplineBase::PointInfo& point, int column) const;
    const AxisText& axisText(int column) const;
    bool readNumber(const SplineBase::PointInfo& point, int column, const QString& text,
                    double& number) const;
    bool edit(const QString& one, const QString& many, std::size_t count,
              const std::function<void(SplineBase&)>& work);

    const ViewPort& view_;
    QLocale locale_;
    QPointer<ControlSplineNode> control_;
    std::vector<PointSerial> rows_;
};

} // namespace curveeditor
