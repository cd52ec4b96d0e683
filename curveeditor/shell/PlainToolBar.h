// SPDX-License-Identifier: MIT
#pragma once

#include <QToolBar>

namespace curveeditor {

/// A tool bar that stands in a layout, without a main window.
class PlainToolBar : public QToolBar
{
    Q_OBJECT

public:
    PlainToolBar(QWidget* parent, const QString& label);
};

} // namespace curveeditor
