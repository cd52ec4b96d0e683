// SPDX-License-Identifier: MIT
#include <curveeditor/canvas/WarningBox.h>

#include <curveeditor/canvas/TitleWidth.h>

#include <QGridLayout>
#include <QMessageBox>

namespace curveeditor {

void makeRoomForTitle(QMessageBox& box)
{
    // The box sizes itself by its layout and passes over a minimum width.
    if (auto* const grid = qobject_cast<QGridLayout*>(box.layout()))
        grid->addItem(new QSpacerItem(titleWidth(box), 0), grid->rowCount(), 0, 1, grid->columnCount());
}

void showWarning(QWidget* parent, const QString& title, const QString& text)
{
    auto* const box = new QMessageBox(QMessageBox::Warning, title, text, QMessageBox::Ok, parent);
    box->setTextFormat(Qt::PlainText);
    makeRoomForTitle(*box);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setModal(true);
    box->show();
}

} // namespace curveeditor
