// SPDX-License-Identifier: MIT
#pragma once

#include <QTreeWidgetItem>

namespace curveeditor {

/// A row of the list of curves. Rows stand as a reader expects: numbers in names count as numbers, so that "key 10" comes
/// behind "key 9".
class CurveRow : public QTreeWidgetItem
{
public:
    using QTreeWidgetItem::QTreeWidgetItem;

    /// The order of the user's language.
    static bool comesBefore(const QString& name, const QString& other);

    bool operator<(const QTreeWidgetItem& other) const override;
};

} // namespace curveeditor
