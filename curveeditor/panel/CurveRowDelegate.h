// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/edit/CurveMark.h>

#include <QRect>
#include <QStyledItemDelegate>

#include <optional>

class QTreeWidgetItem;

namespace curveeditor {

/// Draws a row of the list of curves: the colour of its curve as a square, sharp whatever the ratio of pixels and the
/// same in a selected row, its name, and at the right end its marks. Of these those show that are on, and all in the
/// row under the mouse, where there is room for them.
class CurveRowDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    /// Under which a row holds the state of a mark.
    static int roleOf(CurveMark mark) { return Qt::UserRole + int(mark); }
    static QVariant dataOf(const MarkState& state) { return int(state.isOn) + 2 * int(state.isHosts); }
    static MarkState stateOf(const QVariant& data)
    {
        return {bool(data.toInt() & 1), bool(data.toInt() & 2)};
    }
    /// Whether the canvas leaves the curve out, whatever the reason.
    static constexpr int unseenRole = Qt::UserRole + 3;
    /// Whether the curve is a formula.
    static constexpr int formulaRole = Qt::UserRole + 4;

    /// The mark at that place of a row, of which the letters are `side` pixels high.
    static std::optional<CurveMark> markAt(const QPoint& place, const QRect& row, int side);
    /// What all marks of such a row take.
    static int widthOfMarks(int side);

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& row) const override;
    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& row) const override;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& row) const override;
};

} // namespace curveeditor
