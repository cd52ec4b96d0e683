// SPDX-License-Identifier: MIT
#include <curveeditor/shell/PlainToolBar.h>

namespace curveeditor {

PlainToolBar::PlainToolBar(QWidget* parent, const QString& label) : QToolBar(label, parent) {}

} // namespace curveeditor

#include "moc_PlainToolBar.cpp"
