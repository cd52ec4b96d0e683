// SPDX-License-Identifier: MIT
#include <curveeditor/shell/PlainToolBar.h>

#include <QEvent>
#include <QLayout>

namespace curveeditor {

PlainToolBar::PlainToolBar(QWidget* parent, const QString& label) : QToolBar(label, parent)
{
    layout()->setContentsMargins(0, 0, 0, 0);
}

void PlainToolBar::changeEvent(QEvent* event)
{
    QToolBar::changeEvent(event);
    if (event->type() == QEvent::StyleChange)
        layout()->setContentsMargins(0, 0, 0, 0);
}

} // namespace curveeditor

#include "moc_PlainToolBar.cpp"
