// SPDX-License-Identifier: MIT
#include <curveeditor/shell/PlainToolBar.h>

PlainToolBar::PlainToolBar(QWidget* parent, const QString& label) : QToolBar(label, parent) {}

#include "moc_PlainToolBar.cpp"
