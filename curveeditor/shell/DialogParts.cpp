// SPDX-License-Identifier: MIT
#include <curveeditor/shell/DialogParts.h>

#include <curveeditor/canvas/ModalDialog.h>

#include <QColorDialog>
#include <QComboBox>
#include <QCoreApplication>
#include <QEvent>

namespace curveeditor {

void setDialogFamily(QWidget* widget)
{
    widget->setFont(QFont(QStringLiteral("Arial Narrow")));
}

// A new style makes a box measure its items. A policy to follow them would resize it behind the back of its layout.
void fitToItems(QComboBox* box)
{
    QEvent change(QEvent::StyleChange);
    QCoreApplication::sendEvent(box, &change);
}

QColor askForColor(const QColor& initial, QWidget* parent)
{
    ModalDialog<QColorDialog> dialog(initial, parent);
    return dialog.answer() == QDialog::Accepted ? dialog->selectedColor() : QColor();
}

void setPaletteColor(QWidget* widget, QPalette::ColorRole role, const QColor& color)
{
    QPalette colors = widget->palette();
    colors.setColor(role, color);
    widget->setPalette(colors);
}

} // namespace curveeditor
