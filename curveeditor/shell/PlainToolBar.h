// SPDX-License-Identifier: MIT
#pragma once

#include <QToolBar>

namespace curveeditor {

/// A tool bar that stands in a layout, without a main window. Its ends are in line with what stands above and below.
class PlainToolBar : public QToolBar
{
    Q_OBJECT

public:
    PlainToolBar(QWidget* parent, const QString& label);

protected:
    /// A style gives the bar its own margins.
    void changeEvent(QEvent* event) override;
};

} // namespace curveeditor
